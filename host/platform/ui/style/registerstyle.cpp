// SPDX-License-Identifier: MIT
#include "registerstyle.h"

#include "touchmode.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// How much larger than ordinary text some type is, in points.
constexpr std::pair<const char*, int> sizesAboveText[] = {
    {"@titleSize", 4},
    {"@amountSize", 8},
    {"@sumSize", 16},
};

/// A window of this size has the smallest text. The text of a larger one grows less than the window: there is more to
/// see, too.
constexpr QSize smallestWindow(1024, 600);
constexpr int smallestText = 11;
constexpr int largestText = 24;
/// Text in a window of twice the size is larger by this, in points.
constexpr double pointsPerScale = 8;

/// A page of details has room to spare in a large window.
int detailSize(int textSize)
{
    return textSize + (textSize - smallestText) / 2;
}

/// The size of ordinary text since applyRegisterStyle(), in points.
int& appliedTextSize()
{
    static int size = smallestText;
    return size;
}

/// The relative luminance of WCAG 2.1 (https://www.w3.org/TR/WCAG21/#dfn-relative-luminance).
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QString readSheet(const QString& name)
{
    QFile file(u":/style/"_s + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QPalette paletteOf(const RegisterColours& colours)
{
    QPalette palette(colours.raised, colours.ground);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.mutedText);
    palette.setColor(QPalette::Base, colours.panel);
    palette.setColor(QPalette::AlternateBase, colours.alternate);
    palette.setColor(QPalette::Highlight, colours.selection);
    palette.setColor(QPalette::HighlightedText, colours.text);
    palette.setColor(QPalette::Link, colours.accent);
    palette.setColor(QPalette::Mid, colours.line);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colours.mutedText);
    }
    return palette;
}

} // namespace

QList<RegisterColours::Pair> RegisterColours::textPairs() const
{
    return {
        {text, ground},     {text, panel},      {text, raised},       {text, pressed}, {text, selection},
        {text, alternate},  {mutedText, panel}, {mutedText, ground},  {error, panel},  {error, ground},
        {onAccent, accent}, {accent, panel},    {onWaiting, waiting},
    };
}

double RegisterColours::contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

void setStyleProperty(QWidget& widget, const QString& name, const QVariant& value)
{
    widget.setProperty(name.toUtf8().constData(), value);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    QEvent changed(QEvent::StyleChange); // without it a frame keeps its former padding
    QApplication::sendEvent(&widget, &changed);
}

int registerTextSize(const QSize& window)
{
    const double scale =
        std::min(double(window.width()) / smallestWindow.width(), double(window.height()) / smallestWindow.height());
    const int size = smallestText + int(std::floor((scale - 1) * pointsPerScale));
    return std::clamp(size, smallestText, largestText);
}

int scaledPixels(int pixels)
{
    return pixels * appliedTextSize() / smallestText;
}

QString registerStyleSheet(bool touch, int textSize)
{
    const RegisterColours colours;
    const std::pair<const char*, QColor> names[] = {
        {"@mutedText", colours.mutedText}, {"@onAccent", colours.onAccent},   {"@onWaiting", colours.onWaiting},
        {"@selection", colours.selection}, {"@alternate", colours.alternate}, {"@pressed", colours.pressed},
        {"@waiting", colours.waiting},     {"@ground", colours.ground},       {"@raised", colours.raised},
        {"@accent", colours.accent},       {"@panel", colours.panel},         {"@error", colours.error},
        {"@text", colours.text},           {"@line", colours.line},
    };
    QString sheet = readSheet(u"style.qss"_s);
    if (touch) {
        sheet += readSheet(u"touch.qss"_s);
    }
    for (const auto& [name, above] : sizesAboveText) {
        sheet.replace(QLatin1StringView(name), QString::number(textSize + above) + u"pt"_s);
    }
    sheet.replace("@detailSize"_L1, QString::number(detailSize(textSize)) + u"pt"_s);
    for (const auto& [name, colour] : names) {
        sheet.replace(QLatin1StringView(name), colour.name());
    }
    return sheet;
}

void applyRegisterStyle(QApplication& application, const QSize& window)
{
    const int textSize = registerTextSize(window);
    appliedTextSize() = textSize;
    application.setStyle(QStyleFactory::create(u"Fusion"_s));
    application.setPalette(paletteOf(RegisterColours()));
    QFont font = application.font();
    font.setPointSize(textSize);
    application.setFont(font);
    application.setStyleSheet(registerStyleSheet(isTouchMode(), textSize));
}
