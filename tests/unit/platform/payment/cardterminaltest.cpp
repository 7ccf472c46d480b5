// SPDX-License-Identifier: MIT
#include "cardterminal.h"

#include <gtest/gtest.h>

namespace
{

/// What every terminal has to say, and nothing else.
class PlainTerminal : public CardTerminal
{
public:
    CardAnswer pay(const CardRequest&) override { return CardAnswer::busy(); }
    CardAnswer refund(const CardRequest&) override { return CardAnswer::busy(); }
    CardAnswer find(const QString&) override { return CardAnswer::busy(); }
};

} // namespace

TEST(CardTerminal, terminalThatDoesNotSay_hasNoKnownTimeLimit)
{
    EXPECT_FALSE(PlainTerminal().timeLimit());
}
