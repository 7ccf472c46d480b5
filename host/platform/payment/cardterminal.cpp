// SPDX-License-Identifier: MIT
#include "cardterminal.h"

CardTerminal::CardTerminal() = default;

CardTerminal::~CardTerminal() = default;
