// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "till.h"

/// The way from the positions to the closed document: subtotal, payment.
class PaymentCommands
{
public:
    /// @param till not owned
    explicit PaymentCommands(Till& till);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result subtotal(control::Action& action);
    EContext::Result subtotalAndPayment(control::Action& action);
    EContext::Result backToPositions(control::Action& action);
    EContext::Result pay(control::Action& action);
    EContext::Result goOnTo(Till::Phase phase);

    Till& m_till;
};
