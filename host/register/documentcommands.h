// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "receiptprinter.h"
#include "sale.h"

#include <QSharedPointer>

#include <functional>

/// What the register does with documents that are not open: taking up, taking back, annulling, printing again.
class DocumentCommands
{
public:
    /// @param sale, printer, marks not owned
    DocumentCommands(Sale& sale, const ReceiptPrinter& printer, const PositionMarks& marks);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result putAside();
    EContext::Result showDocuments();
    EContext::Result takeBack(const control::Action& action);
    EContext::Result annulByNumber(const control::Action& action);
    EContext::Result annulFrame(const control::Action& action, const std::function<EContext::Result()>& course);

    bool isReceiptInTheWay() const;
    EContext::Result takeUp(int number);
    EContext::Result annul(const QSharedPointer<Receipt>& document);
    /// What the cashier is told of it; empty when it failed, which has been told.
    QString print(const Receipt& document) const;
    bool canAnnul(const Receipt& document) const;

    Sale& m_sale;
    const ReceiptPrinter& m_printer;
    const PositionMarks& m_marks;
};
