// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cardtransfers.h"
#include "receiptprinter.h"
#include "till.h"

#include <QSharedPointer>

#include <functional>
#include <optional>

/// What the register does with documents that are not open: resuming, returning, voiding, printing again.
class StoredDocumentCommands
{
public:
    /// @param till, printer, marks not owned
    StoredDocumentCommands(Till& till, const ReceiptPrinter& printer, const PositionMarks& marks);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

    /// At the start: finds out about the card operations whose answers were lost, such as a refund of a sale that was
    /// being voided. Asks the terminal, and the cashier when that cannot say.
    void settleRestored() const;

private:
    EContext::Result showDocuments(control::Action& action);
    EContext::Result returnSale(control::Action& action);
    EContext::Result voidByNumber(control::Action& action);
    EContext::Result voidFrame(const control::Action& action, const std::function<EContext::Result()>& course);

    EContext::Result resume(int number);
    /// The positions of the sale that come back; empty when the cashier cancels.
    QSet<int> choosePositions(const Document& sale) const;
    EContext::Result voidDocument(const QSharedPointer<Document>& document);
    EContext::Result voidCurrent(const QSharedPointer<Document>& document,
                                 const std::function<EContext::Result()>& course);
    /// True when the saved document is not this one any more: a plug-in worked while the cashier was waited for.
    bool showIfChanged(const Document& document) const;
    /// The message for the cashier; nothing after a failure was shown.
    std::optional<QString> print(const Document& document) const;

    Till& m_till;
    CardTransfers m_cards;
    const ReceiptPrinter& m_printer;
    const PositionMarks& m_marks;
    bool m_isVoiding = false; ///< meanwhile the plug-ins' triggers cannot change any stored document
};
