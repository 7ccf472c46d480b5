// SPDX-License-Identifier: MIT
#pragma once

class QPushButton;
class QWidget;

/// The button of a form that Return presses: visible and enabled. Null when there is none.
QPushButton* defaultButton(const QWidget& root);
