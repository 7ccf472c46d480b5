// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QPushButton>
#include <QString>

/// A push button of a layout: one row of a form's table of buttons.
template <typename Form>
struct FormButton {
    QString name; ///< object name
    tr::Tr text;
    void (Form::*slot)();
};

/// Gives a button its text and connects it to the form's slot. A null one is passed over.
template <typename Form>
void setUp(QPushButton* button, const FormButton<Form>& row, Form* form)
{
    if (!button) {
        return;
    }
    QObject::connect(button, &QPushButton::clicked, form, row.slot);
    button->setText(row.text.ui());
    button->setAccessibleName(row.text.ui());
}
