// SPDX-License-Identifier: MIT
#include "wrappedlabel.h"

#include "directionmarks.h"
#include "plaintooltip.h"
#include "registerstyle.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QToolTip>
#include <QtMath>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// Lines longer than this, in pixels of the smallest window, are hard to read, and wider than the narrowest dialog.
constexpr int widestLine = 640;
/// A scroll area tries many widths until its scroll bar fits. The lines for all of them are remembered.
constexpr int rememberedWidths = 64;
constexpr int longestLabelToolTip = 1000;
/// No language has longer words.
constexpr qsizetype longestWord = 100;

/// The text with a place to break after each letter of a word that is too long to be one. Without these places
/// QTextLayout reads such a word to its end for each of its lines.
QString withBreaksInLongWords(const QString& text)
{
    QString broken;
    broken.reserve(text.size());
    qsizetype wordBegin = 0;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    qsizetype begin = 0;
    for (qsizetype end = letters.toNextBoundary(); end != -1; begin = end, end = letters.toNextBoundary()) {
        broken += QStringView(text).sliced(begin, end - begin);
        if (text[begin].isSpace()) {
            wordBegin = end;
        } else if (end - wordBegin > longestWord) {
            broken += QChar(0x200b); // zero width space
        }
    }
    return broken;
}

} // namespace

WrappedLabel::WrappedLabel(QWidget* parent)
    : QLabel(parent)
    , m_lines(rememberedWidths)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int WrappedLabel::heightForWidth(int width) const
{
    const QSize frame = frameRoom();
    return qCeil(lines(width - frame.width()).size.height()) + frame.height();
}

QSize WrappedLabel::sizeHint() const
{
    const QSizeF text = lines(scaledPixels(widestLine)).size;
    return QSize(qCeil(text.width()), qCeil(text.height())) + frameRoom();
}

QSize WrappedLabel::minimumSizeHint() const
{
    return QSize(fontMetrics().averageCharWidth(), fontMetrics().lineSpacing()) + frameRoom();
}

bool WrappedLabel::isCut() const
{
    const Lines& broken = lines(textRoom().width());
    return linesWithRoom(broken) < broken.layout.lineCount();
}

bool WrappedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) {
        return QLabel::event(event);
    }
    const QString whole = isCut() ? text().left(longestLabelToolTip) : QString();
    // Only rich text is wrapped.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(whole), this);
    return true;
}

void WrappedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, foregroundRole()));
    const Lines& broken = lines(textRoom().width());
    const int shown = linesWithRoom(broken);
    if (shown == broken.layout.lineCount()) {
        broken.layout.draw(&painter, textRoom().topLeft());
        return;
    }
    for (int line = 0; line < shown - 1; ++line) {
        broken.layout.lineAt(line).draw(&painter, textRoom().topLeft());
    }
    drawLastLine(painter, broken.layout.lineAt(shown - 1));
}

void WrappedLabel::drawLastLine(QPainter& painter, const QTextLine& line) const
{
    const QRect room = textRoom();
    const QString ellipsis = u"…"_s;
    const QString text = m_brokenText.mid(line.textStart(), line.textLength()).trimmed() + ellipsis;
    const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, room.width());
    painter.drawText(QPointF(room.left(), room.top() + line.y() + line.ascent()), shown);
}

QSizeF WrappedLabel::breakIntoLines(QTextLayout& layout, int width) const
{
    QSizeF size(0, 0);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(qMax(width, 1));
        line.setPosition({0, size.height()});
        size = {qMax(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
}

const WrappedLabel::Lines& WrappedLabel::lines(int width) const
{
    if (m_wholeText != text() || m_brokenFont != font()) {
        m_lines.clear();
        m_wholeText = text();
        m_brokenText = withBreaksInLongWords(withoutDirectionMarks(m_wholeText));
        m_brokenFont = font();
    }
    if (const Lines* known = m_lines.object(width)) {
        return *known;
    }

    auto broken = std::make_unique<Lines>();
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    broken->layout.setTextOption(option);
    broken->layout.setFont(m_brokenFont);
    broken->layout.setText(QString(m_brokenText).replace(u'\n', QChar::LineSeparator));
    broken->size = breakIntoLines(broken->layout, width);
    m_lines.insert(width, broken.release());
    return *m_lines.object(width);
}

int WrappedLabel::linesWithRoom(const Lines& lines) const
{
    int count = lines.layout.lineCount();
    while (count > 1 && qFloor(lines.layout.lineAt(count - 1).rect().bottom()) > textRoom().height()) {
        --count;
    }
    return count;
}

QRect WrappedLabel::textRoom() const
{
    return contentsRect().marginsRemoved(QMargins(margin(), margin(), margin(), margin()));
}

QSize WrappedLabel::frameRoom() const
{
    const QMargins room = contentsMargins() + QMargins(margin(), margin(), margin(), margin());
    return {room.left() + room.right(), room.top() + room.bottom()};
}
