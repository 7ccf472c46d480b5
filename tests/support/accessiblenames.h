// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QStringList>

#include <string>

/// Whether a screen reader needs the widget's name: it can be clicked, typed into or reached by Tab. Parts that Qt
/// makes within a widget (a table's corner and headers, a line's clear button) belong to that widget.
inline bool isControl(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    if (qobject_cast<const QLineEdit*>(parent) || qobject_cast<const QAbstractItemView*>(parent)) {
        return false;
    }
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           widget.focusPolicy() & Qt::TabFocus;
}

/// The object names of a form's controls without an accessible name, hidden controls too; empty when each has one.
inline std::string controlsWithoutName(const QWidget& form)
{
    QStringList nameless;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (isControl(*widget) && widget->accessibleName().trimmed().isEmpty()) {
            nameless += widget->objectName().isEmpty() ? widget->metaObject()->className() : widget->objectName();
        }
    }
    return nameless.join(u' ').toStdString();
}
