// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

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
