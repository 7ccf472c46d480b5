// SPDX-License-Identifier: MIT
#pragma once

#include "documentarchive.h"
#include "positionmarks.h"
#include "receipt.h"

#include <QString>

/// Prints closed receipts, as text and as PDF, into the folder `printed` of the data folder.
class ReceiptPrinter
{
public:
    /// @param marks not owned: what plug-ins want told of their positions
    ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks);

    /// Writes `printed/<number>.txt` and `printed/<number>.pdf`, the number in eight digits, each whole or not at all.
    /// They tell who bought which medicine, so they are readable by their owner alone. A failure is told to the
    /// cashier, who can print again from the list of documents.
    /// @return false when one of them could not be written
    bool print(const Receipt& receipt) const;

    /// Prints the receipt that was closed last when the register ended before that was done.
    void printInterrupted(const DocumentArchive& archive) const;

private:
    bool isPrinted(const Receipt& receipt) const;

    QString m_folder;
    const PositionMarks& m_marks;
};
