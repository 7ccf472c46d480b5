// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// The text that a widget shows: the text of a label, a button or an input; the rows of a table, one a line, with the
/// visible columns separated by " | ". No-break spaces are replaced by plain ones. Empty for other widgets.
QString widgetText(const QWidget& widget);
