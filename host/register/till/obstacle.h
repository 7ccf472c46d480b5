// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

/// Why the till cannot do something now, in the cashier's words.
struct Obstacle {
    tr::Tr text;       ///< what is in the way and, where there is something to do, what to do next
    tr::Tr brief = {}; ///< the same in a few words, for a menu entry or beside an amount; may be empty

    /// `brief`, or `text` when there is no brief form.
    const tr::Tr& shortest() const { return brief.text().isEmpty() ? text : brief; }
};
