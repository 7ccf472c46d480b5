// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// What a person reads on a widget: a label's, a button's or an input's text; of a table its rows, one a line, the
/// cells of its visible columns parted by " | ". No-break spaces are plain ones. Empty for other widgets.
QString widgetText(const QWidget& widget);
