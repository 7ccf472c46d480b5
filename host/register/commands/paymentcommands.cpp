// SPDX-License-Identifier: MIT
#include "paymentcommands.h"

#include "actionhost.h"
#include "cashpayment.h"
#include "commandtable.h"
#include "obstaclenotice.h"
#include "question.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

namespace
{

/// A plug-in may lower the sum after the card was charged.
bool showIfOvercharged(const Document& document)
{
    if (document.getCharged() <= document.getSum()) {
        return false;
    }
    showNotice(tr::Tr(u"cardOvercharged"_s, u"С карты списано %1, а сумма чека теперь %2.\n"
                                            "Отмените чек: деньги вернутся на карту. Затем продайте заново."_s)
                   .arg(amountText(document.getCharged()))
                   .arg(amountText(document.getSum())));
    return true;
}

/// A plug-in may raise the sum while the terminal works.
bool showIfUnderpaid(Kopecks due, Kopecks cash)
{
    if (cash >= due) {
        return false;
    }
    showNotice(tr::Tr(u"sumRaisedDuringPayment"_s, u"Сумма чека выросла во время оплаты: остаётся оплатить %1.\n"
                                                   "Примите остаток: наличными или картой."_s)
                   .arg(amountText(due)));
    return true;
}

/// Asks the cashier about an amount that nobody gives.
bool isSure(Kopecks due, Kopecks received)
{
    return Question{{u"absurdTitle"_s, u"Слишком много денег"_s},
                    tr::Tr(u"absurdQuestion"_s, u"Получено %1, к оплате %2.\nВыдать сдачу %3?"_s)
                        .arg(amountText(received))
                        .arg(amountText(due))
                        .arg(amountText(received - due)),
                    {u"absurdYes"_s, u"Выдать сдачу"_s},
                    {u"absurdNo"_s, u"Исправить"_s}}
        .ask();
}

} // namespace

PaymentCommands::PaymentCommands(Till& till)
    : m_till(till)
    , m_cards(till)
{
}

void PaymentCommands::offer(ActionQueueController& controller)
{
    using Commands = PaymentCommands;
    static constexpr Command<Commands> table[] = {
        {control::Subtotal, Where::OpenDocument, &Commands::subtotal},
        {control::SubtotalAndPayment, Where::OpenDocument, &Commands::subtotalAndPayment},
        {registeraction::backToPositions, Where::OpenDocument, &Commands::backToPositions},
        {registeraction::pay, Where::OpenDocument, &Commands::pay},
    };
    offerCommands<Commands>(controller, *this, table);

    // Before the hooks: a plug-in must not register its part of what cannot be paid. An empty document is left to them:
    // they may have words of their own for it.
    for (const auto action : {control::Subtotal, control::SubtotalAndPayment}) {
        controller.host().setFrame(action, [this](control::Action&, const std::function<EContext::Result()>& course) {
            const QSharedPointer<Document> document = m_till.document();
            const bool hasPositions = document && !document->positions().isEmpty();
            return hasPositions && showIfObstacle(m_till.obstacleToPayment()) ? EContext::Stop : course();
        });
    }
}

EContext::Result PaymentCommands::subtotal(control::Action&)
{
    return goOnTo(Till::Phase::Subtotal);
}

EContext::Result PaymentCommands::subtotalAndPayment(control::Action&)
{
    return goOnTo(Till::Phase::Payment);
}

EContext::Result PaymentCommands::goOnTo(Till::Phase phase)
{
    if (showIfObstacle(m_till.obstacleToChangingDocument()) || showIfObstacle(m_till.obstacleToPayment())) {
        return EContext::Stop;
    }
    m_till.setPhase(phase);
    return EContext::GoOn;
}

EContext::Result PaymentCommands::backToPositions(control::Action&)
{
    m_till.setPhase(Till::Phase::Positions);
    return EContext::GoOn;
}

EContext::Result PaymentCommands::pay(control::Action& action)
{
    if (m_till.phase() != Till::Phase::Payment || showIfObstacle(m_till.obstacleToPayment())) {
        return EContext::Stop;
    }
    const QSharedPointer<Document> document = m_till.document();
    if (document->isReturn()) {
        return payOut(document); // exactly its sum, whatever is typed
    }
    if (!m_cards.settleOrShow(document) || !isStillAtPaymentOrShow(document)) {
        return EContext::Stop;
    }
    const QString typed = action.value(u"received"_s).toString();
    return action.value(u"method"_s).toString() == rowOf(PaymentMethod::Card).word ? payByCard(document, typed)
                                                                                   : payInCash(document, typed);
}

EContext::Result PaymentCommands::payInCash(const QSharedPointer<Document>& document, const QString& typed)
{
    const auto payment = cashpayment::received(m_till.due(), typed);
    if (!payment) {
        showNotice(payment.failure().text);
        return EContext::Stop;
    }
    if (cashpayment::isAbsurd(m_till.due(), payment->amount) && !isSure(m_till.due(), payment->amount)) {
        return EContext::Stop;
    }
    return close(document, payment->amount);
}

EContext::Result PaymentCommands::payByCard(const QSharedPointer<Document>& document, const QString& typed)
{
    if (m_till.due() == Kopecks{0}) { // the card was charged before, and the document could not be saved then
        return close(document, Kopecks{0});
    }
    const auto cash = cashpayment::besideCard(m_till.due(), typed);
    if (!cash) {
        showNotice(cash.failure().text);
        return EContext::Stop;
    }
    return m_cards.chargeOrShow(document, m_till.due() - *cash) ? close(document, *cash) : EContext::Stop;
}

EContext::Result PaymentCommands::payOut(const QSharedPointer<Document>& document)
{
    return m_cards.refundOrShow(document) ? close(document, m_till.due()) : EContext::Stop;
}

/// False when the document or its place in the payment changed while a terminal or the cashier was waited for: a
/// plug-in works meanwhile.
bool PaymentCommands::isStillAtPaymentOrShow(const QSharedPointer<Document>& document) const
{
    if (showIfObstacle(m_till.obstacleToGoingOn(document)) || showIfObstacle(m_till.obstacleToPayment())) {
        return false;
    }
    if (m_till.phase() == Till::Phase::Payment) {
        return document->isReturn() || !showIfOvercharged(*document);
    }
    showNotice(tr::Tr(u"changedDuringPayment"_s, u"Чек № %1 изменился во время оплаты.\n"
                                                 "Проверьте позиции и перейдите к оплате ещё раз."_s)
                   .arg(QString::number(document->getNumber())));
    return false;
}

EContext::Result PaymentCommands::close(const QSharedPointer<Document>& document, Kopecks cash)
{
    if (!isStillAtPaymentOrShow(document) || showIfUnderpaid(m_till.due(), cash)) {
        return EContext::Stop;
    }
    const Kopecks byCard = document->isReturn() ? document->getRefunded() : document->getCharged();
    QList<Payment> payments;
    if (cash > Kopecks{0} || byCard == Kopecks{0}) {
        payments.append(Payment::cash(cash));
    }
    if (byCard > Kopecks{0}) {
        payments.append(Payment::card(byCard));
    }
    return m_till.close(payments) ? EContext::GoOn : EContext::Stop;
}

void PaymentCommands::settleRestored() const
{
    if (const QSharedPointer<Document> document = m_till.document()) {
        m_cards.settleOrShow(document);
    }
}
