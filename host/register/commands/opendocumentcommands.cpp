// SPDX-License-Identifier: MIT
#include "opendocumentcommands.h"

#include "actionfactory.h"
#include "actionhost.h"
#include "chosenposition.h"
#include "commandtable.h"
#include "obstaclenotice.h"
#include "registeraction.h"
#include "undoingquestion.h"

#include <algorithm>

using namespace Qt::StringLiterals;

OpenDocumentCommands::OpenDocumentCommands(Till& till)
    : m_till(till)
    , m_cards(till)
{
}

void OpenDocumentCommands::offer(ActionQueueController& controller)
{
    using Commands = OpenDocumentCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::openSale, Where::Everywhere, &Commands::openSale},
        {registeraction::askToRemovePosition, Where::OpenDocument, &Commands::askToRemovePosition},
        {control::RemovePosition, Where::OpenDocument, &Commands::removePosition},
        {registeraction::askToCancelDocument, Where::OpenDocument, &Commands::askToCancelDocument},
        {control::CancelDocument, Where::OpenDocument, &Commands::cancelDocument},
        {control::CancelDocumentFromMenu, Where::OpenDocument, &Commands::cancelDocument},
        {registeraction::suspend, Where::OpenDocument, &Commands::suspend},
    };
    offerCommands<Commands>(controller, *this, table);

    // The obstacle is looked for before the hooks: a plug-in must not cancel its part of what the absence of another
    // one stops. A cancellation that stopped half-way may have undone what the subtotal did, so that the subtotal has
    // to come again before the payment.
    for (const auto type : {control::RemovePosition, control::CancelDocument, control::CancelDocumentFromMenu}) {
        controller.host().setFrame(type, [this](control::Action& action, const auto& course) {
            if (showIfObstacle(obstacleBeforeHooks(action))) {
                return EContext::Stop;
            }
            const EContext::Result result = course();
            if (result != EContext::GoOn) {
                m_till.setPhase(Till::Phase::Positions);
            }
            return result;
        });
    }
}

std::optional<Obstacle> OpenDocumentCommands::obstacleBeforeHooks(const control::Action& action) const
{
    if (action.getType() != control::RemovePosition) {
        return m_till.obstacleToCancelling();
    }
    if (std::optional<Obstacle> obstacle = m_till.obstacleToChangingPositions()) {
        return obstacle;
    }
    const QSharedPointer<Position> position = positionOf(action);
    return position ? m_till.obstacleOfPlugin(*position) : std::nullopt;
}

EContext::Result OpenDocumentCommands::openSale(control::Action&)
{
    if (showIfObstacle(m_till.obstacleToOpening())) {
        return EContext::Stop;
    }
    m_till.open();
    return EContext::GoOn;
}

EContext::Result OpenDocumentCommands::askToRemovePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPositionOrShow(m_till, action);
    if (!position || showIfObstacle(m_till.obstacleOfPlugin(*position))) {
        return EContext::Stop;
    }
    const Question question{
        {u"removeBoundTitle"_s, u"Удаление позиции"_s},
        withUndoings(tr::Tr(u"removeBoundQuestion"_s, u"Позиция отпускается %2:\n%1\nУдалить её?"_s)
                         .arg(position->getName())
                         .arg(m_till.marks().origin(*position)),
                     m_till.marks(), {position}),
        {u"removeBoundYes"_s, u"Удалить"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    if (position->isExternal() && !(question.ask() && isStillThere(m_till, position))) {
        return EContext::Stop;
    }
    control::Action cancellation = Singleton<control::ActionFactory>::get()->create(control::RemovePosition);
    cancellation.insert(u"positionNumber"_s, position->getNumber());
    return Singleton<ActionQueueController>::get()->execute(cancellation);
}

EContext::Result OpenDocumentCommands::removePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPositionOrShow(m_till, action);
    if (!position) {
        return EContext::NotFound;
    }
    m_till.remove(position->getNumber());
    return EContext::GoOn;
}

EContext::Result OpenDocumentCommands::askToCancelDocument(control::Action& action)
{
    const QSharedPointer<Document> document = m_till.document();
    if (showIfObstacle(m_till.obstacleToChangingDocument()) || showIfObstacle(m_till.obstacleToCancelling()) ||
        !cancellingQuestion(*document).ask() || m_till.document() != document) {
        return EContext::Stop;
    }
    const int by = action.value(u"by"_s, control::CancelDocument).toInt();
    control::Action cancellation =
        Singleton<control::ActionFactory>::get()->create(static_cast<control::EActionType>(by));
    return Singleton<ActionQueueController>::get()->execute(cancellation);
}

Question OpenDocumentCommands::cancellingQuestion(const Document& document) const
{
    const bool isReturn = document.isReturn();
    const tr::Tr text =
        cancellingText(document).arg(QString::number(document.getNumber())).arg(amountText(document.getSum()));
    return {
        isReturn ? tr::Tr(u"cancelTakeBackTitle"_s, u"Отмена возврата"_s)
                 : tr::Tr(u"cancelReceiptTitle"_s, u"Отмена чека"_s),
        isReturn ? text : withUndoings(text, m_till.marks(), document.positions()),
        isReturn ? tr::Tr(u"cancelTakeBackYes"_s, u"Отменить возврат"_s)
                 : tr::Tr(u"cancelReceiptYes"_s, u"Отменить чек"_s),
        {u"questionNo"_s, u"Нет"_s},
    };
}

tr::Tr OpenDocumentCommands::cancellingText(const Document& document) const
{
    if (document.isReturn()) {
        return isReturnBegun(document)
                   ? tr::Tr(
                         u"cancelBegunTakeBackQuestion"_s,
                         u"Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.\n"
                         "Правильно завершить его: ответьте «Нет» и перейдите к оплате.\nВсё равно отменить возврат?"_s)
                   : tr::Tr(u"cancelTakeBackQuestion"_s, u"Отменить возврат № %1 на сумму %2?"_s);
    }
    if (document.getCharged() > Kopecks{0}) {
        return {u"cancelChargedQuestion"_s,
                u"Отменить чек № %1 на сумму %2?\nОплата картой вернётся на карту покупателя."_s};
    }
    return {u"cancelReceiptQuestion"_s, u"Отменить чек № %1 на сумму %2?"_s};
}

/// True when a plug-in has already worked on a position: its data differs from the sale's.
bool OpenDocumentCommands::isReturnBegun(const Document& document) const
{
    const auto& positions = document.positions();
    const QSharedPointer<Document> sale = m_till.archive().find(document.getReturnedSale());
    return sale && std::any_of(positions.cbegin(), positions.cend(), [&sale](const auto& position) {
               const auto sold = sale->position(position->getNumber());
               return !sold || sold->toJson() != position->toJson();
           });
}

EContext::Result OpenDocumentCommands::cancelDocument(control::Action&)
{
    // The money goes back after the plug-ins have agreed: a document that they keep stays paid.
    const QSharedPointer<Document> document = m_till.document();
    if (!document || showIfObstacle(m_till.obstacleToCancelling()) ||
        (!document->isReturn() && !m_cards.refundOrShow(document)) ||
        showIfObstacle(m_till.obstacleToGoingOn(document)) || showIfObstacle(m_till.obstacleToCancelling())) {
        return EContext::Stop;
    }
    return m_till.cancel() ? EContext::GoOn : EContext::Stop;
}

EContext::Result OpenDocumentCommands::suspend(control::Action&)
{
    if (showIfObstacle(m_till.obstacleToSuspending())) {
        return EContext::Stop;
    }
    return m_till.suspend() ? EContext::GoOn : EContext::Stop;
}

/// Null when the open document has no such position.
QSharedPointer<Position> OpenDocumentCommands::positionOf(const control::Action& action) const
{
    const QSharedPointer<Document> document = m_till.document();
    return document ? document->position(action.value(u"positionNumber"_s).toInt()) : nullptr;
}
