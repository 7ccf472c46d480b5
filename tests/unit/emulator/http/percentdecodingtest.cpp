// SPDX-License-Identifier: MIT
#include "percentdecoding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::DecodedPairs;
using emulator::decodeForm;
using emulator::decodePercent;
using emulator::decodeQuery;

TEST(PercentDecoding, plusSignInPath_staysPlusSign)
{
    EXPECT_EQ(decodePercent("a+b%2Bc"), u"a+b+c"_s);
}

TEST(PercentDecoding, plusSignInQuery_staysPlusSign)
{
    EXPECT_EQ(decodeQuery("card=1+2"), (DecodedPairs{{u"card"_s, u"1+2"_s}}));
}

TEST(PercentDecoding, plusSignInForm_isSpace)
{
    EXPECT_EQ(decodeForm("a+b=c+d%2Be"), (DecodedPairs{{u"a b"_s, u"c d+e"_s}}));
}

TEST(PercentDecoding, encodedPercentSign_isDecodedOnce)
{
    EXPECT_EQ(decodePercent("%2541"), u"%41"_s);
}

TEST(PercentDecoding, hexadecimalDigitsOfBothCases_areDecoded)
{
    EXPECT_EQ(decodePercent("%D1%91%d0%af"), u"ёЯ"_s);
}

TEST(PercentDecoding, valueWithEqualsSign_beginsAfterTheFirstOne)
{
    EXPECT_EQ(decodeQuery("a=b=c"), (DecodedPairs{{u"a"_s, u"b=c"_s}}));
}

TEST(PercentDecoding, semicolon_separatesNothing)
{
    EXPECT_EQ(decodeQuery("a=1;b=2"), (DecodedPairs{{u"a"_s, u"1;b=2"_s}}));
}

TEST(PercentDecoding, emptyValueAndMissingEqualsSign_areEmptyTexts)
{
    EXPECT_EQ(decodeQuery("a=&b&&c=1"), (DecodedPairs{{u"a"_s, QString()}, {u"b"_s, QString()}, {u"c"_s, u"1"_s}}));
}

TEST(PercentDecoding, emptyQuery_hasNoPairs)
{
    EXPECT_EQ(decodeQuery(""), DecodedPairs());
}

struct Encoded {
    const char* name;
    const char* text;
};

class BadEncoding : public ::testing::TestWithParam<Encoded>
{
};

TEST_P(BadEncoding, isRefused)
{
    const QByteArray text = GetParam().text;
    EXPECT_EQ(decodePercent(text), std::nullopt);
    EXPECT_EQ(decodeQuery("a=" + text), std::nullopt);
    EXPECT_EQ(decodeForm(text + "=a"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(PercentDecoding, BadEncoding,
                         ::testing::Values(Encoded{"percentSignAlone", "%"}, Encoded{"oneDigit", "a%4"},
                                           Encoded{"letters", "%zz"}, Encoded{"letterAfterADigit", "%4g"},
                                           Encoded{"minusSign", "%-1"}, Encoded{"space", "% 1"},
                                           Encoded{"noUtf8", "%FF"}, Encoded{"halfALetter", "%D1"},
                                           Encoded{"surrogate", "%ED%A0%80"}),
                         [](const auto& row) { return std::string(row.param.name); });
