// SPDX-License-Identifier: MIT
#include "percentdecoding.h"

#include <gtest/gtest.h>

using emulator::DecodedPairs;
using emulator::decodeForm;
using emulator::decodePercent;
using emulator::decodeQuery;

TEST(PercentDecoding, plusSignInPath_staysPlusSign)
{
    EXPECT_EQ(decodePercent("a+b%2Bc"), QStringLiteral("a+b+c"));
}

TEST(PercentDecoding, plusSignInQuery_staysPlusSign)
{
    EXPECT_EQ(decodeQuery("card=1+2"), (DecodedPairs{{QStringLiteral("card"), QStringLiteral("1+2")}}));
}

TEST(PercentDecoding, plusSignInForm_isSpace)
{
    EXPECT_EQ(decodeForm("a+b=c+d%2Be"), (DecodedPairs{{QStringLiteral("a b"), QStringLiteral("c d+e")}}));
}

TEST(PercentDecoding, encodedPercentSign_isDecodedOnce)
{
    EXPECT_EQ(decodePercent("%2541"), QStringLiteral("%41"));
}

TEST(PercentDecoding, bothCasesOfHexadecimalDigits_giveCyrillic)
{
    EXPECT_EQ(decodePercent("%D1%91%d0%af"), QStringLiteral("ёЯ"));
}

TEST(PercentDecoding, valueWithEqualsSign_isPartedAtFirstOne)
{
    EXPECT_EQ(decodeQuery("a=b=c"), (DecodedPairs{{QStringLiteral("a"), QStringLiteral("b=c")}}));
}

TEST(PercentDecoding, semicolon_partsNothing)
{
    EXPECT_EQ(decodeQuery("a=1;b=2"), (DecodedPairs{{QStringLiteral("a"), QStringLiteral("1;b=2")}}));
}

TEST(PercentDecoding, emptyValueAndMissingEqualsSign_areEmptyTexts)
{
    EXPECT_EQ(decodeQuery("a=&b&&c=1"), (DecodedPairs{{QStringLiteral("a"), QString()},
                                                      {QStringLiteral("b"), QString()},
                                                      {QStringLiteral("c"), QStringLiteral("1")}}));
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
