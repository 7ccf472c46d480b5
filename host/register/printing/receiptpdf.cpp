// SPDX-License-Identifier: MIT
#include "receiptpdf.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

// Lengths are in hundredths of a millimetre, which is one dot of the painter.
constexpr int dotsPerInch = 2540;
constexpr double paperWidth = 8000;
constexpr double margin = 400;
constexpr double lineHeight = 360;

constexpr double fontPoints = 8.47;       // 40 characters fill the width between the margins
constexpr qsizetype linesPerStrip = 1000; // a page of PDF is at most 5 metres long

QFont font(bool isStrong)
{
    QFont font(u"DejaVu Sans Mono"_s);
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(fontPoints);
    font.setBold(isStrong);
    return font;
}

QPageSize strip(qsizetype lines)
{
    const double length = 2 * margin + lineHeight * double(std::clamp<qsizetype>(lines, 1, linesPerStrip));
    return QPageSize(QSizeF(paperWidth, length) / 100.0, QPageSize::Millimeter, u"Receipt"_s, QPageSize::ExactMatch);
}

/// Squeezes a line that is too wide: characters that the font lacks come from another font and may be wider.
void drawLine(QPainter& painter, const PrintedLine& line, double baseline)
{
    constexpr double width = paperWidth - 2 * margin;
    painter.setFont(font(line.isStrong));
    const QFontMetricsF metrics(painter.font(), painter.device());
    painter.save();
    painter.translate(margin, baseline);
    painter.scale(std::min(1.0, width / std::max(metrics.horizontalAdvance(line.left), 1.0)), 1.0);
    painter.drawText(QPointF(), line.left);
    painter.restore();
    painter.drawText(QPointF(margin + width - metrics.horizontalAdvance(line.right), baseline), line.right);
}

} // namespace

QByteArray receiptPdf(const QList<PrintedLine>& lines, const QString& title)
{
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(strip(lines.size()));
    writer.setPageMargins({});

    QPainter painter(&writer);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const qsizetype row = i % linesPerStrip;
        if (i > 0 && row == 0) {
            writer.newPage();
        }
        drawLine(painter, lines.at(i), margin + lineHeight * double(row + 1));
    }
    painter.end();
    return pdf;
}
