// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Text for paper: names and papers may hold anything.
namespace printedtext
{

/// The text's printable characters on one line: line breaks and control characters become blanks, what would turn the
/// direction of writing is left out.
QString printable(const QString& text);

/// The printable text in lines of at most `columns` characters, broken at blanks, and within a word that is longer than
/// a line. What belongs to one character as it is read, such as its accents, stays together, and so does a "№" with its
/// number. Empty for no text.
QStringList wrapped(const QString& text, int columns);

} // namespace printedtext
