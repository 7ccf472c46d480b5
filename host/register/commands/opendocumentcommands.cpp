// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "actionfactory.h"
#include "notice.h"
#include "registeraction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

RegisterCommands::RegisterCommands(Till& till, const GoodsCatalogue& catalogue)
    : m_till(till)
    , m_catalogue(catalogue)
{
}

void RegisterCommands::offer(ActionQueueController& controller)
{
    using Member = EContext::Result (RegisterCommands::*)(control::Action&);
    const auto external = [this](Member member) {
        return [this, member](control::Action& action) { return (this->*member)(action); };
    };
    controller.setHostHandler(registeraction::openSale, external(&RegisterCommands::openSale));
    controller.setHostHandler(registeraction::addGoods, external(&RegisterCommands::addGoods));
    controller.setHostHandler(registeraction::explainKey, external(&RegisterCommands::explainKey));
    controller.setHostHandler(control::SelectGoods, external(&RegisterCommands::selectGoods));
    const auto withDocument = [&](control::EActionType type, Member member) {
        controller.setHostHandler(EContext::OpenDocument, type, external(member));
    };
    withDocument(registeraction::changeQuantity, &RegisterCommands::changeQuantity);
    withDocument(registeraction::askToRemovePosition, &RegisterCommands::askToRemovePosition);
    withDocument(registeraction::askToCancelDocument, &RegisterCommands::askToCancelDocument);
    withDocument(registeraction::backToPositions, &RegisterCommands::backToPositions);
    withDocument(registeraction::pay, &RegisterCommands::pay);
    withDocument(control::AddSelectedGoods, &RegisterCommands::addSelectedGoods);
    withDocument(control::RemovePosition, &RegisterCommands::removePosition);
    withDocument(control::CancelDocument, &RegisterCommands::cancelDocument);
    withDocument(control::CancelDocumentFromMenu, &RegisterCommands::cancelDocument);
    withDocument(control::Subtotal, &RegisterCommands::subtotal);
    withDocument(control::SubtotalAndPayment, &RegisterCommands::subtotalAndPayment);
    // A cancellation that stopped half-way may have undone what the subtotal did: the way to the payment leads through
    // it again.
    for (const control::EActionType cancellation :
         {control::RemovePosition, control::CancelDocument, control::CancelDocumentFromMenu}) {
        controller.setHostFrame(cancellation,
                                [this](control::Action&, const std::function<EContext::Result()>& course) {
                                    const EContext::Result result = course();
                                    if (result != EContext::GoOn) {
                                        m_till.setPhase(Till::Phase::Positions);
                                    }
                                    return result;
                                });
    }
}

EContext::Result RegisterCommands::openSale(control::Action&)
{
    if (m_till.document()) {
        showNotice(tr::Tr(u"receiptAlreadyOpen"_s, u"Чек № %1 уже открыт."_s)
                       .arg(QString::number(m_till.document()->getNumber())));
        return EContext::Stop;
    }
    m_till.open();
    return EContext::GoOn;
}

EContext::Result RegisterCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position) {
        return EContext::Stop;
    }
    if (position->isExternal()) {
        showNotice(tr::Tr(u"positionBound"_s,
                          u"Позиция № %1 отпускается по документу, её количество и цена не меняются.\n"
                          "Чтобы отпустить другое количество, удалите позицию и отпустите её заново."_s)
                       .arg(QString::number(position->getNumber())));
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

EContext::Result RegisterCommands::askToRemovePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position) {
        return EContext::Stop;
    }
    const Question question{
        {u"removeBoundTitle"_s, u"Удаление позиции"_s},
        tr::Tr(u"removeBoundQuestion"_s, u"Позиция № %1 отпускается по документу:\n%2\nУдалить её и отменить отпуск?"_s)
            .arg(QString::number(position->getNumber()))
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

EContext::Result RegisterCommands::removePosition(control::Action& action)
{
    const QSharedPointer<Position> position = chosenPosition(action);
    if (!position) {
        return EContext::NotFound;
    }
    m_till.remove(position->getNumber());
    return EContext::GoOn;
}

EContext::Result RegisterCommands::askToCancelDocument(control::Action& action)
{
    if (!cancellingQuestion().ask()) {
        return EContext::Stop;
    }
    const int by = action.value(u"by"_s, control::CancelDocument).toInt();
    control::Action cancellation =
        Singleton<control::ActionFactory>::get()->create(static_cast<control::EActionType>(by));
    return Singleton<ActionQueueController>::get()->execute(cancellation);
}

Question RegisterCommands::cancellingQuestion() const
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

/// Plug-ins have already done their part for some position: what they put on it is no longer as in the sale.
bool RegisterCommands::isReturnBegun() const
{
    const auto& positions = m_till.document()->positions();
    const QSharedPointer<Document> sale = m_till.archive().find(m_till.document()->getReturnedSale());
    return sale && std::any_of(positions.cbegin(), positions.cend(), [&sale](const auto& position) {
               const auto sold = sale->position(position->getNumber());
               return !sold || sold->toJson() != position->toJson();
           });
}

EContext::Result RegisterCommands::cancelDocument(control::Action&)
{
    return m_till.cancel() ? EContext::GoOn : EContext::Stop;
}

EContext::Result RegisterCommands::explainKey(control::Action& action)
{
    const tr::Tr withoutDocument(u"keyNeedsReceipt"_s,
                                 u"«%1» работает при открытом чеке.\nОткройте чек и повторите."_s);
    const tr::Tr withoutPlugin(u"keyNeedsPlugin"_s,
                               u"«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                               "Обратитесь к администратору."_s);
    showNotice((m_till.document() ? withoutPlugin : withoutDocument).arg(action.value(u"text"_s).toString()));
    return EContext::GoOn;
}

QSharedPointer<Position> RegisterCommands::chosenPosition(const control::Action& action) const
{
    const QSharedPointer<Document> document = m_till.document();
    if (document->isReturn()) {
        showNotice({u"takeBackIsWhole"_s, u"Продажа возвращается целиком: позиции возврата не меняются."_s});
        return nullptr;
    }
    auto position = document->position(action.value(u"positionNumber"_s).toInt());
    if (!position) {
        showNotice({u"positionNotChosen"_s, u"Сначала выберите позицию чека."_s});
    }
    return position;
}
