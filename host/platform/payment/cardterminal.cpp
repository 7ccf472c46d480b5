// SPDX-License-Identifier: MIT
#include "cardterminal.h"

CardTerminal::CardTerminal() = default;

CardTerminal::~CardTerminal() = default;

std::optional<std::chrono::seconds> CardTerminal::timeLimit() const
{
    return std::nullopt;
}
