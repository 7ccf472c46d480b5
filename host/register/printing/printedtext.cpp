// SPDX-License-Identifier: MIT
#include "printedtext.h"

#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace printedtext
{

namespace
{

QStringList graphemes(const QString& word)
{
    QStringList found;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    for (qsizetype begin = 0; finder.toNextBoundary() > 0; begin = finder.position()) {
        found.append(word.mid(begin, finder.position() - begin));
    }
    return found;
}

} // namespace

QString printable(const QString& text)
{
    QString result;
    for (const char32_t character : text.toUcs4()) {
        switch (QChar::category(character)) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
        case QChar::Separator_Space:
            result += u' ';
            break;
        case QChar::Other_Format:
        case QChar::Other_PrivateUse:
        case QChar::Other_NotAssigned:
            break;
        default:
            result += QChar::fromUcs4(character);
        }
    }
    return result.simplified();
}

QStringList wrapped(const QString& text, int columns)
{
    QStringList lines;
    QString line;
    qsizetype width = 0;
    const auto finishLine = [&] {
        if (width > 0) {
            lines.append(line);
        }
        line.clear();
        width = 0;
    };
    const QString glued = printable(text).replace(u"№ "_s, u"№"_s + QChar::Nbsp);
    for (const QString& word : glued.split(u' ', Qt::SkipEmptyParts)) {
        const QStringList letters = graphemes(word);
        if (width + 1 + letters.size() > columns) {
            finishLine();
        }
        if (width > 0) {
            line += u' ';
            ++width;
        }
        for (const QString& letter : letters) {
            if (width == columns) {
                finishLine();
            }
            line += letter == QChar::Nbsp ? u" "_s : letter;
            ++width;
        }
    }
    finishLine();
    return lines;
}

} // namespace printedtext
