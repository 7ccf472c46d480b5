// SPDX-License-Identifier: MIT
#pragma once

#include "archivefolder.h"
#include "document.h"
#include "positionmarks.h"
#include "receiptlayout.h"

#include <QString>

#include <optional>

/// Prints the receipts of closed documents, as text and as PDF, into the folder `printed` of the data folder.
class ReceiptPrinter
{
public:
    /// @param marks not owned
    ReceiptPrinter(const QString& dataFolder, const PositionMarks& marks);

    /// Writes `printed/<number>.txt` and `printed/<number>.pdf` with the number in eight digits, each whole or not at
    /// all. Only their owner can read them, since they say who bought which medicine. The cashier can print again from
    /// the list of documents.
    /// @return false after a failure was shown
    bool printOrShow(const Document& document) const;

    /// Prints a copy with a heading that says so, into `printed/<number>-copy.txt` and `.pdf`. Prints the receipt
    /// itself when one of its files is missing.
    /// @return the PDF, relative to the data folder; nothing after a failure was shown
    std::optional<QString> printAgainOrShow(const Document& document) const;

    /// The document that was closed last, when one of its receipt's files is missing: the register ended before it was
    /// written. A copy does not count. Null: its receipt is there, or no document was closed.
    QSharedPointer<Document> interrupted(const ArchiveFolder& archive) const;

private:
    bool writeOrShow(const Document& document, const QString& name, const QList<PrintedLine>& lines) const;
    bool isPrinted(const Document& document) const;

    QString m_folder;
    const PositionMarks& m_marks;
};
