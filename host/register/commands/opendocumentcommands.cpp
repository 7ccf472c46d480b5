// SPDX-License-Identifier: MIT
#include "opendocumentcommands.h"

#include "actionfactory.h"
#include "actionhost.h"
#include "commandtable.h"
#include "obstaclenotice.h"
#include "registeraction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

OpenDocumentCommands::OpenDocumentCommands(Till& till)
    : m_till(till)
{
}

void OpenDocumentCommands::offer(ActionQueueController& controller)
{
    using Commands = OpenDocumentCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::openSale, Where::Everywhere, &Commands::openSale},
        {registeraction::changeQuantity, Where::OpenDocument, &Commands::changeQuantity},
        {registeraction::askToRemovePosition, Where::OpenDocument, &Commands::askToRemovePosition},
        {control::RemovePosition, Where::OpenDocument, &Commands::removePosition},
        {registeraction::askToCancelDocument, Where::OpenDocument, &Commands::askToCancelDocument},
        {control::CancelDocument, Where::OpenDocument, &Commands::cancelDocument},
        {control::CancelDocumentFromMenu, Where::OpenDocument, &Commands::cancelDocument},
        {registeraction::suspend, Where::OpenDocument, &Commands::suspend},
    };
    offerCommands<Commands>(controller, *this, table);

    // A cancellation that stopped half-way may have undone what the subtotal did, so that the subtotal has to come
    // again before the payment.
    for (const auto action : {control::RemovePosition, control::CancelDocument, control::CancelDocumentFromMenu}) {
        controller.host().setFrame(action, [this](control::Action&, const std::function<EContext::Result()>& course) {
            const EContext::Result result = course();
            if (result != EContext::GoOn) {
                m_till.setPhase(Till::Phase::Positions);
            }
            return result;
        });
    }
}

EContext::Result OpenDocumentCommands::openSale(control::Action&)
{
    if (showIfObstacle(m_till.obstacleToOpening())) {
        return EContext::Stop;
    }
    m_till.open();
    return EContext::GoOn;
}

EContext::Result OpenDocumentCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position || showIfObstacle(Till::obstacleToChangingQuantity(*position))) {
        return EContext::Stop;
    }
    TextInputParams params;
    params.title = tr::Tr(u"changeQuantityTitle"_s, u"Количество"_s);
    params.message = tr::Tr(u"changeQuantityMessage"_s, u"Сколько упаковок?\n%1"_s).arg(position->getName());
    params.inputName = u"inputPacks"_s;
    params.initialText = QString::number(position->getQuantity());
    params.mask = u"[1-9]\\d{0,2}"_s;
    params.numeric = true;
    params.manualOnly = true;
    const core::BasicDialog::Result result = Dialog::create()->showTextInput(params);
    const int packs = result.getData().toString().toInt();
    if (result.canceled() || packs < 1) {
        return EContext::Stop;
    }
    m_till.setPacks(position->getNumber(), packs);
    return EContext::GoOn;
}

EContext::Result OpenDocumentCommands::askToRemovePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position) {
        return EContext::Stop;
    }
    const Question question{
        {u"removeBoundTitle"_s, u"Удаление позиции"_s},
        tr::Tr(u"removeBoundQuestion"_s, u"Позиция отпускается по документу:\n%1\nУдалить её и отменить отпуск?"_s)
            .arg(position->getName()),
        {u"removeBoundYes"_s, u"Удалить"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    if (position->isExternal() && !question.ask()) {
        return EContext::Stop;
    }
    control::Action cancellation = Singleton<control::ActionFactory>::get()->create(control::RemovePosition);
    cancellation.insert(u"positionNumber"_s, position->getNumber());
    return Singleton<ActionQueueController>::get()->execute(cancellation);
}

EContext::Result OpenDocumentCommands::removePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position) {
        return EContext::NotFound;
    }
    m_till.remove(position->getNumber());
    return EContext::GoOn;
}

EContext::Result OpenDocumentCommands::askToCancelDocument(control::Action& action)
{
    if (!cancellingQuestion().ask()) {
        return EContext::Stop;
    }
    const int by = action.value(u"by"_s, control::CancelDocument).toInt();
    control::Action cancellation =
        Singleton<control::ActionFactory>::get()->create(static_cast<control::EActionType>(by));
    return Singleton<ActionQueueController>::get()->execute(cancellation);
}

Question OpenDocumentCommands::cancellingQuestion() const
{
    const Document& document = *m_till.document();
    const bool isReturn = document.isReturn();
    tr::Tr text(u"cancelReceiptQuestion"_s, u"Отменить чек № %1 на сумму %2?"_s);
    if (isReturn) {
        text = isReturnBegun()
                   ? tr::Tr(u"cancelBegunTakeBackQuestion"_s,
                            u"Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.\n"
                            "Правильно завершить его: «Нет», затем «Оплата».\nВсё равно отменить возврат?"_s)
                   : tr::Tr(u"cancelTakeBackQuestion"_s, u"Отменить возврат № %1 на сумму %2?"_s);
    }
    return {
        isReturn ? tr::Tr(u"cancelTakeBackTitle"_s, u"Отмена возврата"_s)
                 : tr::Tr(u"cancelReceiptTitle"_s, u"Отмена чека"_s),
        text.arg(QString::number(document.getNumber())).arg(amountText(document.getSum())),
        isReturn ? tr::Tr(u"cancelTakeBackYes"_s, u"Отменить возврат"_s)
                 : tr::Tr(u"cancelReceiptYes"_s, u"Отменить чек"_s),
        {u"questionNo"_s, u"Нет"_s},
    };
}

/// True when a plug-in has already worked on a position: its data differs from the sale's.
bool OpenDocumentCommands::isReturnBegun() const
{
    const auto& positions = m_till.document()->positions();
    const QSharedPointer<Document> sale = m_till.archive().find(m_till.document()->getReturnedSale());
    return sale && std::any_of(positions.cbegin(), positions.cend(), [&sale](const auto& position) {
               const auto sold = sale->position(position->getNumber());
               return !sold || sold->toJson() != position->toJson();
           });
}

EContext::Result OpenDocumentCommands::cancelDocument(control::Action&)
{
    return m_till.cancel() ? EContext::GoOn : EContext::Stop;
}

EContext::Result OpenDocumentCommands::suspend(control::Action&)
{
    if (showIfObstacle(m_till.obstacleToSuspending())) {
        return EContext::Stop;
    }
    return m_till.suspend() ? EContext::GoOn : EContext::Stop;
}

QSharedPointer<Position> OpenDocumentCommands::chosenPosition(const control::Action& action) const
{
    if (showIfObstacle(m_till.obstacleToChangingPositions())) {
        return nullptr;
    }
    auto position = m_till.document()->position(action.value(u"positionNumber"_s).toInt());
    if (!position) {
        showNotice({u"positionNotChosen"_s, u"Сначала выберите позицию чека."_s});
    }
    return position;
}
