// SPDX-License-Identifier: MIT
#include "columndelegate_p.h"

#include "directionmarks.h"
#include "plaintooltip.h"
#include "registerstyle.h"

#include <QAbstractItemView>
#include <QBrush>
#include <QHelpEvent>
#include <QRegularExpression>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace
{

/// A column that fits its contents becomes no wider, in pixels of the smallest window. A longer text is whole in its
/// tool tip.
constexpr int widestFit = 280;
constexpr int longestCellToolTip = 1000;
constexpr double readableContrast = 4.5;

/// True for a number with decimals, such as "12.000". A whole number may be a code.
bool isDecimal(const QString& text)
{
    static const QRegularExpression decimal(u"\\A-?\\d+[.,]\\d+\\z"_s);
    return decimal.match(text).hasMatch();
}

/// The colour, darkened until it can be read on the ground.
QColor readableOn(const QColor& ground, QColor colour)
{
    constexpr int slightlyDarker = 110; // per cent
    while (RegisterColours::contrast(colour, ground) < readableContrast && colour.value() > 0) {
        colour = colour.darker(slightlyDarker);
    }
    return colour;
}

} // namespace

QSize ColumnDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index).boundedTo(QSize(scaledPixels(widestFit), QWIDGETSIZE_MAX));
}

bool ColumnDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || index.data(Qt::ToolTipRole).isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }

    const bool isCut = QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width();
    const QString text = isCut ? index.data().toString().left(longestCellToolTip) : QString();
    // Only rich text is wrapped.
    QToolTip::showText(event->globalPos(), plainToolTip(text), view);
    return true;
}

void ColumnDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = withoutDirectionMarks(option->text);
    option->text.replace(u'\n', u' ').replace(QChar::LineSeparator, u' ');
    option->textElideMode = Qt::ElideRight;
    if (const QVariant foreground = index.data(Qt::ForegroundRole); foreground.canConvert<QBrush>()) {
        option->palette.setColor(QPalette::HighlightedText,
                                 readableOn(RegisterColours().selection, foreground.value<QBrush>().color()));
    }
    if (const auto alignment = m_alignments.constFind(index.column()); alignment != m_alignments.cend()) {
        option->displayAlignment = *alignment;
    }
    if (!(option->displayAlignment & Qt::AlignHorizontal_Mask)) {
        option->displayAlignment |= isDecimal(option->text) ? Qt::AlignRight : Qt::AlignLeft;
    }
}
