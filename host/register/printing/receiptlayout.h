// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "positionmarks.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// A line of a printed receipt.
struct PrintedLine {
    QString left;
    QString right = {}; ///< ends at the right edge
    bool isStrong = false;
};

/// The receipt of a document, line by line.
namespace receiptlayout
{

/// The width of the paper in characters of a monospaced font.
inline constexpr int columns = 40;

/// For example "ЧЕК № 7".
QString title(const Document& document);

/// The lines of the receipt: the configured pharmacy, the positions with their benefits and their lines from `marks`,
/// the total, and the money.
QList<PrintedLine> lines(const Document& document, const PositionMarks& marks);

/// Like lines(), with the heading of a copy.
QList<PrintedLine> copyLines(const Document& document, const PositionMarks& marks);

/// The lines of a report of a plug-in: the configured pharmacy, the title, the time, and the texts, which go on in
/// further lines where they are too wide. Blanks at the beginning of a text indent the whole of it.
QList<PrintedLine> reportLines(const QString& title, const QDateTime& printed, const QStringList& texts);

/// The lines as plain text, each with a line break at its end.
QString text(const QList<PrintedLine>& lines);

} // namespace receiptlayout
