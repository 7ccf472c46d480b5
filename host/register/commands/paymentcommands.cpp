// SPDX-License-Identifier: MIT
#include "paymentcommands.h"

#include "cashpayment.h"
#include "commandtable.h"
#include "obstaclenotice.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

PaymentCommands::PaymentCommands(Till& till)
    : m_till(till)
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
    if (m_till.phase() != Till::Phase::Payment) {
        return EContext::Stop;
    }
    const Document& document = *m_till.document();
    // A return pays out exactly its sum, whatever is typed.
    const QString typed = document.isReturn() ? QString() : action.value(u"received"_s).toString();
    const auto payment = cashpayment::received(document.getSum(), typed);
    if (!payment) {
        showNotice(payment.failure().text);
        return EContext::Stop;
    }
    return m_till.close({*payment}) ? EContext::GoOn : EContext::Stop;
}
