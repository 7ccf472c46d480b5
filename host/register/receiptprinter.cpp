// SPDX-License-Identifier: MIT
#include "receiptprinter.h"

ReceiptPrinter::ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks)
    : m_folder(dataFolder)
    , m_marks(marks)
{
}

bool ReceiptPrinter::print(const Receipt&) const
{
    return true;
}

void ReceiptPrinter::printInterrupted(const DocumentArchive&) const {}
