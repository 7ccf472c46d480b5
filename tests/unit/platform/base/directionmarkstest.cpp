// SPDX-License-Identifier: MIT
#include "directionmarks.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DirectionMarks, everyMark_isLeftOut)
{
    for (const QChar mark : u"\u061c\u200e\u200f\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069"_s) {
        EXPECT_EQ(withoutDirectionMarks(u"а"_s + mark + u"б"_s), u"аб"_s) << int(mark.unicode());
    }
}

TEST(DirectionMarks, lettersOfAnyDirectionAndOtherFormatCharacters_stay)
{
    const QString text = u"Ёлка, שלום سلام \u200b\u00ad 5 ≤ 7"_s;
    EXPECT_EQ(withoutDirectionMarks(text), text);
}
