// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QLabel>
#include <QPushButton>
#include <QString>

/// The text of a widget of a layout: one row of a form's table of texts.
struct WidgetText {
    QString widget; ///< object name
    tr::Tr text;
};

/// A push button of a layout with what it does: one row of a form's table of buttons.
template <typename Form>
struct WidgetButton {
    QString widget; ///< object name
    tr::Tr text;
    void (Form::*slot)();
};

/// Gives a label its text; a null one is passed over.
inline void setUp(QLabel* label, const tr::Tr& text)
{
    if (label) {
        label->setText(text.ui());
    }
}

/// Gives a button its text and has it call the form's slot; a null one is passed over.
template <typename Form>
void setUp(QPushButton* button, const WidgetButton<Form>& row, Form* form)
{
    if (!button) {
        return;
    }
    QObject::connect(button, &QPushButton::clicked, form, row.slot);
    button->setText(row.text.ui());
    button->setAccessibleName(row.text.ui());
}
