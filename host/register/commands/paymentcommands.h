// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cardtransfers.h"
#include "till.h"

/// The way from the positions to the closed document: subtotal, payment.
class PaymentCommands
{
public:
    /// @param till not owned
    explicit PaymentCommands(Till& till);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

    /// Settles what a crash left open between the card terminal and the open document.
    void settleRestored() const;

private:
    EContext::Result subtotal(control::Action& action);
    EContext::Result subtotalAndPayment(control::Action& action);
    EContext::Result backToPositions(control::Action& action);
    EContext::Result pay(control::Action& action);
    EContext::Result goOnTo(Till::Phase phase);
    EContext::Result payInCash(const QSharedPointer<Document>& document, const QString& typed);
    EContext::Result payByCard(const QSharedPointer<Document>& document, const QString& typed);
    EContext::Result payOut(const QSharedPointer<Document>& document);
    EContext::Result close(const QSharedPointer<Document>& document, Kopecks cash);
    bool isStillAtPaymentOrShow(const QSharedPointer<Document>& document) const;

    Till& m_till;
    CardTransfers m_cards;
};
