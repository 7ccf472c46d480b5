// SPDX-License-Identifier: MIT
#include "directionmarks.h"

namespace
{

bool isDirectionMark(QChar character)
{
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirRLE:
    case QChar::DirLRO:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default: {
        constexpr char16_t arabicLetterMark = 0x061c;
        constexpr char16_t leftToRightMark = 0x200e;
        constexpr char16_t rightToLeftMark = 0x200f;
        return character == arabicLetterMark || character == leftToRightMark || character == rightToLeftMark;
    }
    }
}

} // namespace

QString withoutDirectionMarks(const QString& text)
{
    QString shown = text;
    shown.removeIf(isDirectionMark);
    return shown;
}
