// SPDX-License-Identifier: MIT
#pragma once

#include "accessiblenames.h"
#include "registerstyle.h"
#include "wrappedlabel.h"

#include <QAbstractButton>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QStringList>
#include <QStyleOptionFrame>
#include <QTableView>

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

/// Where a field shows its text, in its own coordinates.
inline QRect textRoom(const QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    QRect room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    for (const auto* button : field.findChildren<QAbstractButton*>()) { // clears it
        if (button->isVisible()) {
            room.setRight(std::min(room.right(), button->x()));
        }
    }
    constexpr int margin = 2; // on either side, within the contents
    return room.adjusted(margin, 0, -margin, 0);
}

/// Whether a hint in an empty field, or a password's height, has no room. A text that is typed scrolls.
inline bool isCut(const QLineEdit& field)
{
    const QFontMetrics metrics = field.fontMetrics();
    const QString hint = field.text().isEmpty() ? field.placeholderText() : QString();
    return textRoom(field).width() < metrics.horizontalAdvance(hint) || textRoom(field).height() < metrics.height();
}

/// A label that gives way to others shows its whole text in a tool tip, or beside it.
inline bool mayBeElided(const QWidget& widget)
{
    return widget.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
}

inline bool isCut(const QLabel& label)
{
    if (const auto* wrapped = qobject_cast<const WrappedLabel*>(&label)) {
        return wrapped->isCut() && !mayBeElided(label);
    }
    const QSize least = label.wordWrap() ? QSize(0, label.heightForWidth(label.width())) : label.minimumSizeHint();
    return (label.width() < least.width() && !mayBeElided(label)) || label.height() < least.height();
}

inline bool isCut(const QAbstractButton& button)
{
    const QSize least = button.minimumSizeHint();
    return button.width() < least.width() || button.height() < least.height();
}

/// Labels, buttons and fields that are smaller than their texts, or reach beyond their parents.
inline QStringList cutOff(const QWidget& screen)
{
    QStringList found;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        if (!isSeen(*widget) || !(label || button || field)) {
            continue;
        }
        const bool hasNoRoom = (label && isCut(*label)) || (button && isCut(*button)) || (field && isCut(*field));
        if (hasNoRoom || !widget->parentWidget()->rect().contains(widget->geometry())) {
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

/// A text in sight, on a picture of its window.
struct ShownText {
    QString name; ///< for a failure
    QRect place;
};

inline ShownText shownText(const QString& name, const QWidget& widget, const QRect& place)
{
    return {name, QRect(widget.mapTo(widget.window(), place.topLeft()), place.size())};
}

/// The texts of the sections of a header that are wholly in sight.
inline QList<ShownText> textsOf(const QHeaderView& header)
{
    using namespace Qt::StringLiterals;
    constexpr int line = 3; // between two sections
    QList<ShownText> texts;
    for (int section = 0; section < header.count(); ++section) {
        const QString text = header.model()->headerData(section, header.orientation()).toString().trimmed();
        const QRect place(header.sectionViewportPosition(section), 0, header.sectionSize(section), header.height());
        const QRect inside = place.adjusted(line, line, -line, -line);
        if (!text.isEmpty() && !header.isSectionHidden(section) && header.viewport()->rect().contains(inside)) {
            texts.append(shownText(nameOf(*header.parentWidget()) + u" header "_s + text, *header.viewport(), inside));
        }
    }
    return texts;
}

/// The texts of the cells that are wholly in sight.
inline QList<ShownText> textsOf(const QTableView& table)
{
    using namespace Qt::StringLiterals;
    constexpr int line = 2; // between two cells
    QList<ShownText> texts =
        table.horizontalHeader()->isVisible() ? textsOf(*table.horizontalHeader()) : QList<ShownText>();
    for (int row = 0; table.model() && row < table.model()->rowCount(); ++row) {
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            const QModelIndex index = table.model()->index(row, column);
            const QString text = index.data().toString().trimmed();
            const QRect inside = table.visualRect(index).adjusted(line, line, -line, -line);
            if (!text.isEmpty() && !inside.isEmpty() && table.viewport()->rect().contains(inside)) {
                texts.append(shownText(nameOf(table) + u" cell "_s + text, *table.viewport(), inside));
            }
        }
    }
    return texts;
}

/// The texts of labels, buttons, fields, cells and headers. Disabled and selected ones are among them.
inline QList<ShownText> textsInSight(const QWidget& screen)
{
    using namespace Qt::StringLiterals;
    constexpr int frame = 4; // of a button; has colours of its own
    QList<ShownText> texts;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (!isSeen(*widget)) {
            continue;
        }
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && !label->text().isEmpty()) {
            texts.append(shownText(nameOf(*label), *label, label->rect()));
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget);
                   button && !button->text().isEmpty()) {
            texts.append(shownText(nameOf(*button), *button, button->rect().adjusted(frame, frame, -frame, -frame)));
        } else if (const auto* field = qobject_cast<const QLineEdit*>(widget);
                   field && !(field->text() + field->placeholderText()).isEmpty()) {
            texts.append(shownText(nameOf(*field), *field, textRoom(*field)));
        } else if (const auto* table = qobject_cast<const QTableView*>(widget)) {
            texts.append(textsOf(*table));
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
        const auto* pixel = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const auto* const end = pixel + picture.width();
        while (pixel != end) {
            const auto* const next = std::find_if(pixel, end, [pixel](QRgb colour) { return colour != *pixel; });
            counts[*pixel] += int(next - pixel);
            pixel = next;
        }
    }
    const auto commonest = std::max_element(counts.cbegin(), counts.cend());
    const QColor ground(commonest.key());
    double most = 1;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour) {
        most = std::max(most, RegisterColours::contrast(ground, QColor(colour.key())));
    }
    return most;
}

/// The window as it is shown, without the caret of the field that has the focus: it is darker than a pale text.
inline QImage pictureOf(QWidget& window)
{
    QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (const auto* field : window.findChildren<QLineEdit*>()) {
        if (field->isVisible() && field->hasFocus()) {
            const QRect caret = field->inputMethodQuery(Qt::ImCursorRectangle).toRect().adjusted(-1, 0, 1, 0);
            const QPoint ground = field->mapTo(&window, textRoom(*field).topRight());
            QPainter(&picture).fillRect(QRect(field->mapTo(&window, caret.topLeft()), caret.size()),
                                        picture.pixelColor(ground));
        }
    }
    return picture;
}

/// Texts that have less contrast to their grounds than WCAG 2.1 asks for (4.5).
inline QStringList faint(const QWidget& screen)
{
    QStringList found;
    const QImage picture = pictureOf(*screen.window());
    for (const ShownText& text : textsInSight(screen)) {
        if (const double contrast = contrastWithin(picture.copy(text.place)); contrast < 4.5) {
            found.append(text.name + QString::fromLatin1(" contrast ") + QString::number(contrast));
        }
    }
    return found;
}

/// What a finger hits: a button, a field, or a hint that stops the waiting.
inline bool isTarget(const QWidget& widget)
{
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->property("stopsWaiting").toBool()) {
        return !label->text().isEmpty();
    }
    return (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget)) &&
           isControl(widget);
}

/// A table whose rows are chosen by a tap.
inline bool hasTargets(const QWidget& widget)
{
    const auto* table = qobject_cast<const QTableView*>(&widget);
    return table && table->selectionMode() != QAbstractItemView::NoSelection && table->model() &&
           table->model()->rowCount() > 0;
}

/// Buttons, fields and rows that are too small for a finger, or buttons and fields that are too near to one another:
/// less than 44 and 8 pixels.
inline QStringList hardToHit(const QWidget& screen)
{
    constexpr int smallest = 44;
    constexpr int nearest = 8;
    QStringList found;
    QList<std::pair<const QWidget*, QRect>> targets;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (isSeen(*widget) && isTarget(*widget)) {
            targets.append({widget, QRect(widget->mapTo(&screen, QPoint()), widget->size())});
        }
        if (isSeen(*widget) && hasTargets(*widget) && static_cast<const QTableView*>(widget)->rowHeight(0) < smallest) {
            found.append(nameOf(*widget) + QString::fromLatin1(" rows"));
        }
    }
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
