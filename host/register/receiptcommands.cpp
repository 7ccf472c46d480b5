// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "actionfactory.h"
#include "notice.h"
#include "registeraction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

RegisterCommands::RegisterCommands(Sale& sale, const GoodsCatalogue& catalogue)
    : m_sale(sale)
    , m_catalogue(catalogue)
{
}

void RegisterCommands::offer(ActionQueueController& controller)
{
    using Member = EContext::Result (RegisterCommands::*)(control::Action&);
    const auto bound = [this](Member member) {
        return [this, member](control::Action& action) { return (this->*member)(action); };
    };
    controller.setHostHandler(registeraction::openReceipt, bound(&RegisterCommands::openReceipt));
    controller.setHostHandler(registeraction::addGoods, bound(&RegisterCommands::addGoods));
    controller.setHostHandler(registeraction::explainKey, bound(&RegisterCommands::explainKey));
    controller.setHostHandler(control::SelectGoods, bound(&RegisterCommands::selectGoods));
    const auto withReceipt = [&](control::EActionType type, Member member) {
        controller.setHostHandler(EContext::OpenReceipt, type, bound(member));
    };
    withReceipt(registeraction::changeQuantity, &RegisterCommands::changeQuantity);
    withReceipt(registeraction::removePosition, &RegisterCommands::removePosition);
    withReceipt(registeraction::cancelReceipt, &RegisterCommands::cancelReceipt);
    withReceipt(registeraction::backToPositions, &RegisterCommands::backToPositions);
    withReceipt(registeraction::pay, &RegisterCommands::pay);
    withReceipt(control::AddSelectedGoods, &RegisterCommands::addSelectedGoods);
    withReceipt(control::StornoPosition, &RegisterCommands::stornoPosition);
    withReceipt(control::StornoAll, &RegisterCommands::stornoAll);
    withReceipt(control::StornoAllFromMenu, &RegisterCommands::stornoAll);
    withReceipt(control::Subtotal, &RegisterCommands::subtotal);
    withReceipt(control::SubtotalAndPayment, &RegisterCommands::subtotalAndPayment);
    // A cancellation that stopped half-way may have undone what the subtotal did: the way to the payment leads through
    // it again.
    for (const control::EActionType storno :
         {control::StornoPosition, control::StornoAll, control::StornoAllFromMenu}) {
        controller.setHostFrame(storno, [this](control::Action&, const std::function<EContext::Result()>& course) {
            const EContext::Result result = course();
            if (result != EContext::GoOn) {
                m_sale.setPhase(Sale::Phase::Positions);
            }
            return result;
        });
    }
}

EContext::Result RegisterCommands::openReceipt(control::Action&)
{
    if (m_sale.receipt()) {
        showNotice(tr::Tr(u"receiptAlreadyOpen"_s, u"Чек № %1 уже открыт."_s)
                       .arg(QString::number(m_sale.receipt()->getNumber())));
        return EContext::Stop;
    }
    m_sale.open();
    return EContext::GoOn;
}

EContext::Result RegisterCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
    if (!position) {
        return EContext::Stop;
    }
    if (position->isBound()) {
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
    m_sale.setPacks(position->getNumber(), packs);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::removePosition(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
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
    if (position->isBound() && !question.ask()) {
        return EContext::Stop;
    }
    control::Action storno = Singleton<control::ActionFactory>::get()->create(control::StornoPosition);
    storno.insert(u"positionNumber"_s, position->getNumber());
    return Singleton<ActionQueueController>::get()->execute(storno);
}

EContext::Result RegisterCommands::stornoPosition(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
    if (!position) {
        return EContext::NotFound;
    }
    m_sale.remove(position->getNumber());
    return EContext::GoOn;
}

EContext::Result RegisterCommands::cancelReceipt(control::Action& action)
{
    if (!cancellingQuestion().ask()) {
        return EContext::Stop;
    }
    const int by = action.value(u"by"_s, control::StornoAll).toInt();
    control::Action storno = Singleton<control::ActionFactory>::get()->create(static_cast<control::EActionType>(by));
    return Singleton<ActionQueueController>::get()->execute(storno);
}

Question RegisterCommands::cancellingQuestion() const
{
    const Receipt& receipt = *m_sale.receipt();
    const bool isTakeBack = receipt.isCancelling();
    tr::Tr text(u"cancelReceiptQuestion"_s, u"Отменить чек № %1 на сумму %2?"_s);
    if (isTakeBack) {
        text = isTakeBackBegun()
                   ? tr::Tr(u"cancelBegunTakeBackQuestion"_s,
                            u"Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.\n"
                            "Правильно завершить его: «Нет», затем «Оплата».\nВсё равно отменить возврат?"_s)
                   : tr::Tr(u"cancelTakeBackQuestion"_s, u"Отменить возврат № %1 на сумму %2?"_s);
    }
    return {
        isTakeBack ? tr::Tr(u"cancelTakeBackTitle"_s, u"Отмена возврата"_s)
                   : tr::Tr(u"cancelReceiptTitle"_s, u"Отмена чека"_s),
        text.arg(QString::number(receipt.getNumber())).arg(amountText(receipt.getSum())),
        isTakeBack ? tr::Tr(u"cancelTakeBackYes"_s, u"Отменить возврат"_s)
                   : tr::Tr(u"cancelReceiptYes"_s, u"Отменить чек"_s),
        {u"questionNo"_s, u"Нет"_s},
    };
}

/// Plug-ins have already done their part for some position: what they put on it is no longer as in the sale.
bool RegisterCommands::isTakeBackBegun() const
{
    const auto& positions = m_sale.receipt()->positions();
    const QSharedPointer<Receipt> sale = m_sale.archive().find(m_sale.receipt()->getTakesBack());
    return sale && std::any_of(positions.cbegin(), positions.cend(), [&sale](const auto& position) {
               const auto sold = sale->position(position->getNumber());
               return !sold || sold->toJson() != position->toJson();
           });
}

EContext::Result RegisterCommands::stornoAll(control::Action&)
{
    return m_sale.cancel() ? EContext::GoOn : EContext::Stop;
}

EContext::Result RegisterCommands::explainKey(control::Action& action)
{
    const tr::Tr withoutReceipt(u"keyNeedsReceipt"_s, u"«%1» работает при открытом чеке.\nОткройте чек и повторите."_s);
    const tr::Tr withoutPlugin(u"keyNeedsPlugin"_s,
                               u"«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                               "Обратитесь к администратору."_s);
    showNotice((m_sale.receipt() ? withoutPlugin : withoutReceipt).arg(action.value(u"text"_s).toString()));
    return EContext::GoOn;
}

QSharedPointer<ReceiptPosition> RegisterCommands::chosenPosition(const control::Action& action) const
{
    const QSharedPointer<Receipt> receipt = m_sale.receipt();
    if (receipt->isCancelling()) {
        showNotice({u"takeBackIsWhole"_s, u"Продажа возвращается целиком: позиции возврата не меняются."_s});
        return nullptr;
    }
    auto position = receipt->position(action.value(u"positionNumber"_s).toInt());
    if (!position) {
        showNotice({u"positionNotChosen"_s, u"Сначала выберите позицию чека."_s});
    }
    return position;
}
