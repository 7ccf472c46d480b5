// SPDX-License-Identifier: MIT
#include "wrappedlabel.h"

#include <QPainter>
#include <QTextLayout>
#include <QtMath>

namespace
{

/// Lines longer than this are hard to read, and wider than the narrowest dialog.
constexpr int widestLine = 640;

} // namespace

WrappedLabel::WrappedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int WrappedLabel::heightForWidth(int width) const
{
    QTextLayout layout;
    const QSize frame = frameRoom();
    return qCeil(layOut(layout, width - frame.width()).height()) + frame.height();
}

QSize WrappedLabel::sizeHint() const
{
    QTextLayout layout;
    const QSizeF text = layOut(layout, widestLine);
    return QSize(qCeil(text.width()), qCeil(text.height())) + frameRoom();
}

QSize WrappedLabel::minimumSizeHint() const
{
    return QSize(fontMetrics().averageCharWidth(), fontMetrics().lineSpacing()) + frameRoom();
}

void WrappedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect().marginsRemoved(QMargins(margin(), margin(), margin(), margin()));
    QTextLayout layout;
    layOut(layout, room.width());
    painter.setPen(palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, foregroundRole()));
    layout.draw(&painter, room.topLeft());
}

QSizeF WrappedLabel::layOut(QTextLayout& layout, qreal width) const
{
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setFont(font());
    layout.setText(text().replace(u'\n', QChar::LineSeparator));

    QSizeF size(0, 0);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(qMax(width, 1.0));
        line.setPosition({0, size.height()});
        size = {qMax(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
}

QSize WrappedLabel::frameRoom() const
{
    const QMargins room = contentsMargins() + QMargins(margin(), margin(), margin(), margin());
    return {room.left() + room.right(), room.top() + room.bottom()};
}
