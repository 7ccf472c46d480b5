// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "positionmarks.h"

#include <QList>
#include <QString>

/// A line of the printed document.
struct PrintedLine {
    QString left;
    QString right = {}; ///< ends at the right edge
    bool isStrong = false;
};

/// A document on paper, line by line.
namespace receiptlayout
{

/// The paper's width in characters, all of them equally wide.
inline constexpr int columns = 40;

/// Such as "ЧЕК № 7".
QString title(const Document& document);

/// What is printed of a document: the pharmacy as it is configured, the positions with their benefits and with what
/// `marks` tells of them, the total, and the money.
QList<PrintedLine> lines(const Document& document, const PositionMarks& marks);

/// As lines(), headed as a copy.
QList<PrintedLine> copyLines(const Document& document, const PositionMarks& marks);

/// The lines as plain text, each ended by a line break.
QString text(const QList<PrintedLine>& lines);

} // namespace receiptlayout
