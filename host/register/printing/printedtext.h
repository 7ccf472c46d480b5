// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Text for the printed receipt. Names and external documents may hold any characters.
namespace printedtext
{

/// The printable characters of the text on one line. Line breaks and control characters become blanks; characters that
/// turn the direction of writing are left out.
QString printable(const QString& text);

/// The printable text in lines of at most `columns` characters. Lines break at blanks, and within a word that is longer
/// than a line. A grapheme (Unicode Standard Annex 29) stays whole, and a "№" stays with its number. Empty for no text.
QStringList wrapped(const QString& text, int columns);

} // namespace printedtext
