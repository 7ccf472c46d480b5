// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

/// Why the till cannot do something now, in the cashier's words.
struct Obstacle {
    tr::Tr text;       ///< what is in the way and what to do next; a message of its own
    tr::Tr brief = {}; ///< the same in a few words, for a menu entry or beside an amount; may be empty
};
