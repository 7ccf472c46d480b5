// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "documentarchive.h"
#include "positionmarks.h"
#include "receiptlayout.h"

#include <QString>

/// Prints closed documents, as text and as PDF, into the folder `printed` of the data folder.
class ReceiptPrinter
{
public:
    /// @param marks not owned: what plug-ins want told of their positions
    ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks);

    /// Writes `printed/<number>.txt` and `printed/<number>.pdf`, the number in eight digits, each whole or not at all.
    /// They tell who bought which medicine, so they are readable by their owner alone. A failure is told to the
    /// cashier, who can print again from the list of documents.
    /// @return false when one of them could not be written
    bool print(const Document& document) const;

    /// Prints a copy, headed as such, into `printed/<number>-copy.txt` and `.pdf`; what was never printed whole is
    /// printed now as by print().
    /// @return the PDF, relative to the data folder; empty when a file could not be written, which has been told
    QString printAgain(const Document& document) const;

    /// Prints the document that was closed last when the register ended before that was done. A copy does not
    /// count as that print.
    void printInterrupted(const DocumentArchive& archive) const;

private:
    bool write(const Document& document, const QString& name, const QList<PrintedLine>& lines) const;
    bool isPrinted(const Document& document) const;

    QString m_folder;
    const PositionMarks& m_marks;
};
