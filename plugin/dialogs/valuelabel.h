// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QLabel;

/// Shows a value that comes from outside. The tool tip holds it too, for a word that is wider than the label; it is
/// escaped there, so that a name such as "<b>x</b>" is read as it is. Null labels are passed over.
void showValue(QLabel* label, const QString& text);
