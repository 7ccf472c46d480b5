// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

/// Where a form's input may come from.
struct EInput {
    enum Source : int {
        Keyboard = 1, ///< keys and touch
        Scanner = 2,
    };
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QFlags<EInput::Source>)
