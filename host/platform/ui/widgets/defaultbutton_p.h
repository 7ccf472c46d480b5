// SPDX-License-Identifier: MIT
#pragma once

class QPushButton;
class QWidget;

/// The button of a form that Return presses; null when there is none that can be seen and pressed.
QPushButton* defaultButton(const QWidget& root);
