// SPDX-License-Identifier: MIT
#pragma once

#include "accessiblenames.h"
#include "registerstyle.h"

#include <QAbstractButton>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

/// What a cashier could not read or hit on a screen that is shown: one line for each widget, empty when all is well.
namespace looks
{

inline QString nameOf(const QWidget& widget)
{
    using namespace Qt::StringLiterals;
    const QString name =
        widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : widget.objectName();
    return name + u' ' + QString::number(widget.width()) + u'x' + QString::number(widget.height());
}

/// A part of a form, not one that Qt makes within another widget, and in sight.
inline bool isSeen(const QWidget& widget)
{
    return widget.isVisible() && !widget.visibleRegion().isEmpty() &&
           !qobject_cast<const QLineEdit*>(widget.parentWidget());
}

/// Labels and buttons that are smaller than their texts, or reach beyond their parents.
inline QStringList cutOff(const QWidget& screen)
{
    QStringList found;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (!isSeen(*widget) || !(label || button)) {
            continue;
        }
        const bool isElided = widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const QSize least =
            label && label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : widget->minimumSizeHint();
        const bool fits = (isElided || widget->width() >= least.width()) && widget->height() >= least.height();
        if (!fits || !widget->parentWidget()->rect().contains(widget->geometry())) {
            found.append(nameOf(*widget));
        }
    }
    return found;
}

/// Texts that name a key of the keyboard. The keys of a keyboard on the screen have such names.
inline QStringList namesOfKeys(const QStringList& texts)
{
    using namespace Qt::StringLiterals;
    static const QRegularExpression key(u"\\bF\\d+\\b|\\bEsc\\b|\\bCtrl\\b|\\bTab\\b|Ввод —|«Ввод»|Пробел —|"
                                        "\\b(?:Enter|Space|Return):|press (?:Enter|Return)"_s);
    return texts.filter(key);
}

/// Every text of a screen: what is shown, what a screen reader reads, and the tool tips.
inline QStringList textsOn(const QWidget& screen)
{
    QStringList texts;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        texts << widget->accessibleName() << widget->accessibleDescription() << widget->toolTip();
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            texts << label->text();
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            texts << button->text();
        } else if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
            texts << field->placeholderText();
        }
    }
    return texts;
}

/// The contrast between the commonest colour of a picture and the one that differs most from it.
/// @param picture of 32 bits a pixel
inline double contrastWithin(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        std::for_each(line, line + picture.width(), [&counts](QRgb colour) { ++counts[colour]; });
    }
    const auto commonest = std::max_element(counts.cbegin(), counts.cend());
    const QColor ground(commonest.key());
    double most = 1;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour) {
        most = std::max(most, RegisterColours::contrast(ground, QColor(colour.key())));
    }
    return most;
}

/// Labels, buttons and fields whose text has less contrast to its ground than WCAG 2.1 asks for (4.5).
inline QStringList faint(const QWidget& screen)
{
    QStringList found;
    QWidget* window = screen.window();
    const QImage whole = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool hasText = (label && !label->text().isEmpty()) || (button && !button->text().isEmpty());
        if (!isSeen(*widget) || !hasText) {
            continue;
        }
        constexpr int frame = 4; // has colours of its own
        const QRect inside = button ? widget->rect().adjusted(frame, frame, -frame, -frame) : widget->rect();
        const QImage picture = whole.copy(QRect(widget->mapTo(window, inside.topLeft()), inside.size()));
        if (const double contrast = contrastWithin(picture); contrast < 4.5) {
            found.append(nameOf(*widget) + QString::fromLatin1(" contrast ") + QString::number(contrast));
        }
    }
    return found;
}

/// Buttons and fields that are too small for a finger, or too near to one another: less than 44 and 8 pixels.
inline QStringList hardToHit(const QWidget& screen)
{
    constexpr int smallest = 44;
    constexpr int nearest = 8;
    QList<std::pair<const QWidget*, QRect>> targets;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (isSeen(*widget) &&
            (qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget)) &&
            isControl(*widget)) {
            targets.append({widget, QRect(widget->mapTo(&screen, QPoint()), widget->size())});
        }
    }
    QStringList found;
    for (qsizetype i = 0; i < targets.size(); ++i) {
        const auto& [widget, place] = targets[i];
        if (std::min(place.width(), place.height()) < smallest) {
            found.append(nameOf(*widget));
        }
        for (qsizetype j = 0; j < i; ++j) {
            constexpr int least = nearest - 1;
            if (place.adjusted(-least, -least, least, least).intersects(targets[j].second)) {
                found.append(nameOf(*widget) + QString::fromLatin1(" near ") + nameOf(*targets[j].first));
            }
        }
    }
    return found;
}

} // namespace looks
