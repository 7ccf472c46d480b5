// SPDX-License-Identifier: MIT
#pragma once

#include "cardterminal.h"
#include "till.h"

#include <QSharedPointer>

/// Moves money between customers' cards and documents, through the card terminal of a plug-in.
///
/// Each operation is saved with its document before the terminal is asked and after it answered. One whose answer was
/// lost is settled before anything else moves: by asking the terminal for it, and when that cannot say, by asking the
/// cashier. So money is neither lost nor taken twice, whatever ends in between.
///
/// Failures are shown to the cashier.
class CardTransfers
{
public:
    /// @param till not owned
    explicit CardTransfers(Till& till);

    /// Finds out about the operations of the document whose answers were lost.
    /// @return false when one is still unsettled
    bool settleOrShow(const QSharedPointer<Document>& document) const;

    /// Takes the amount from a card. Operations before it have to be settled.
    /// @return true when the money is on the document, even when that could not be saved, which has been shown
    bool chargeOrShow(const QSharedPointer<Document>& document, Kopecks amount) const;

    /// Gives back to cards what the document owes them; see Till::owedToCards(). What a terminal does not give back is
    /// paid out in cash, when the cashier agrees.
    /// @return false when something is still owed
    bool refundOrShow(const QSharedPointer<Document>& document) const;

private:
    bool ask(const QSharedPointer<Document>& document, CardOperation& operation,
             const QString& authorizationCode = {}) const;
    bool refundOrShow(const QSharedPointer<Document>& document, const CardOperation& payment) const;
    bool settleOrShow(const QSharedPointer<Document>& document, CardOperation& operation) const;
    bool payInCash(const QSharedPointer<Document>& document, const CardOperation& payment) const;

    Till& m_till;
};
