// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "actionfactory.h"
#include "notice.h"
#include "registeraction.h"

#include <algorithm>

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
            if (result != EContext::GoOn)
                m_sale.setPhase(Sale::Phase::Positions);
            return result;
        });
    }
}

EContext::Result RegisterCommands::openReceipt(control::Action&)
{
    if (m_sale.receipt()) {
        showNotice(tr::Tr(QStringLiteral("receiptAlreadyOpen"), QStringLiteral("Чек № %1 уже открыт."))
                       .arg(QString::number(m_sale.receipt()->getNumber())));
        return EContext::Stop;
    }
    m_sale.open();
    return EContext::GoOn;
}

EContext::Result RegisterCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
    if (!position)
        return EContext::Stop;
    if (position->isBound()) {
        showNotice(tr::Tr(QStringLiteral("positionBound"),
                          QStringLiteral("Позиция № %1 отпускается по документу, её количество и цена не меняются.\n"
                                         "Чтобы отпустить другое количество, удалите позицию и отпустите её заново."))
                       .arg(QString::number(position->getNumber())));
        return EContext::Stop;
    }
    TextInputParams params;
    params.title = tr::Tr(QStringLiteral("changeQuantityTitle"), QStringLiteral("Количество"));
    params.message = tr::Tr(QStringLiteral("changeQuantityMessage"), QStringLiteral("Сколько упаковок?\n%1"))
                         .arg(position->getName());
    params.inputName = QStringLiteral("inputPacks");
    params.initialText = QString::number(position->getQuantity());
    params.mask = QStringLiteral("[1-9]\\d{0,2}");
    params.numeric = true;
    params.manualOnly = true;
    const core::BasicDialog::Result result = MockFactory<Dialog>::create()->showTextInput(params);
    const int packs = result.getData().toString().toInt();
    if (result.canceled() || packs < 1)
        return EContext::Stop;
    m_sale.setPacks(position->getNumber(), packs);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::removePosition(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
    if (!position)
        return EContext::Stop;
    const Question question{
        {QStringLiteral("removeBoundTitle"), QStringLiteral("Удаление позиции")},
        tr::Tr(QStringLiteral("removeBoundQuestion"),
               QStringLiteral("Позиция № %1 отпускается по документу:\n%2\nУдалить её и отменить отпуск?"))
            .arg(QString::number(position->getNumber()))
            .arg(position->getName()),
        {QStringLiteral("removeBoundYes"), QStringLiteral("Удалить")},
        {QStringLiteral("questionNo"), QStringLiteral("Нет")},
    };
    if (position->isBound() && !question.ask())
        return EContext::Stop;
    control::Action storno = Singleton<control::ActionFactory>::get()->create(control::StornoPosition);
    storno.insert(QStringLiteral("positionNumber"), position->getNumber());
    return Singleton<ActionQueueController>::get()->execute(storno);
}

EContext::Result RegisterCommands::stornoPosition(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = chosenPosition(action);
    if (!position)
        return EContext::NotFound;
    m_sale.remove(position->getNumber());
    return EContext::GoOn;
}

EContext::Result RegisterCommands::cancelReceipt(control::Action& action)
{
    if (!cancellingQuestion().ask())
        return EContext::Stop;
    const int by = action.value(QStringLiteral("by"), control::StornoAll).toInt();
    control::Action storno = Singleton<control::ActionFactory>::get()->create(static_cast<control::EActionType>(by));
    return Singleton<ActionQueueController>::get()->execute(storno);
}

Question RegisterCommands::cancellingQuestion() const
{
    const Receipt& receipt = *m_sale.receipt();
    const bool isTakeBack = receipt.isCancelling();
    tr::Tr text(QStringLiteral("cancelReceiptQuestion"), QStringLiteral("Отменить чек № %1 на сумму %2?"));
    if (isTakeBack)
        text =
            isTakeBackBegun()
                ? tr::Tr(QStringLiteral("cancelBegunTakeBackQuestion"),
                         QStringLiteral("Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.\n"
                                        "Правильно завершить его: «Нет», затем «Оплата».\nВсё равно отменить возврат?"))
                : tr::Tr(QStringLiteral("cancelTakeBackQuestion"),
                         QStringLiteral("Отменить возврат № %1 на сумму %2?"));
    return {
        isTakeBack ? tr::Tr(QStringLiteral("cancelTakeBackTitle"), QStringLiteral("Отмена возврата"))
                   : tr::Tr(QStringLiteral("cancelReceiptTitle"), QStringLiteral("Отмена чека")),
        text.arg(QString::number(receipt.getNumber())).arg(amountText(receipt.getSum())),
        isTakeBack ? tr::Tr(QStringLiteral("cancelTakeBackYes"), QStringLiteral("Отменить возврат"))
                   : tr::Tr(QStringLiteral("cancelReceiptYes"), QStringLiteral("Отменить чек")),
        {QStringLiteral("questionNo"), QStringLiteral("Нет")},
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
    const tr::Tr withoutReceipt(QStringLiteral("keyNeedsReceipt"),
                                QStringLiteral("«%1» работает при открытом чеке.\nОткройте чек и повторите."));
    const tr::Tr withoutPlugin(QStringLiteral("keyNeedsPlugin"),
                               QStringLiteral("«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                                              "Обратитесь к администратору."));
    showNotice(
        (m_sale.receipt() ? withoutPlugin : withoutReceipt).arg(action.value(QStringLiteral("text")).toString()));
    return EContext::GoOn;
}

QSharedPointer<ReceiptPosition> RegisterCommands::chosenPosition(const control::Action& action) const
{
    const QSharedPointer<Receipt> receipt = m_sale.receipt();
    if (receipt->isCancelling()) {
        showNotice({QStringLiteral("takeBackIsWhole"),
                    QStringLiteral("Продажа возвращается целиком: позиции возврата не меняются.")});
        return nullptr;
    }
    auto position = receipt->position(action.value(QStringLiteral("positionNumber")).toInt());
    if (!position)
        showNotice({QStringLiteral("positionNotChosen"), QStringLiteral("Сначала выберите позицию чека.")});
    return position;
}
