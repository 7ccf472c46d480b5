// SPDX-License-Identifier: MIT
#include "centrounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace
{

struct Rounding {
    const char* name;
    double value;
    double rounded;
};

class CentRounding : public ::testing::TestWithParam<Rounding>
{
};

TEST_P(CentRounding, value_isRoundedHalfAwayFromZero)
{
    EXPECT_EQ(roundToCents(GetParam().value), GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(
    Values, CentRounding,
    ::testing::Values(Rounding{"zero", 0.0, 0.0}, Rounding{"whole", 7.0, 7.0}, Rounding{"exactCents", 12.34, 12.34},
                      Rounding{"below", 1.234, 1.23}, Rounding{"above", 1.236, 1.24}, Rounding{"half", 5.005, 5.01},
                      Rounding{"halfShortInBinary", 2.675, 2.68}, Rounding{"halfOfPercent", 12.345, 12.35},
                      Rounding{"negativeHalf", -1.005, -1.01}, Rounding{"negativeBelow", -1.234, -1.23},
                      Rounding{"halfCent", 0.005, 0.01}, Rounding{"lessThanHalfCent", 0.0049, 0.0},
                      Rounding{"negativeHalfCent", -0.005, -0.01}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CentRoundingLimits, negativeAmountRoundedToNothing_isPlainZero)
{
    EXPECT_EQ(roundToCents(-0.001), 0.0);
    EXPECT_FALSE(std::signbit(roundToCents(-0.001)));
    EXPECT_FALSE(std::signbit(roundToCents(-0.0)));
}

// The definition, with the integer that it names.
double byDefinition(double x)
{
    const double s = x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0);
    return double(static_cast<std::int64_t>((x + 0.005 * s) * 100.0 + 0.001 * s)) / 100.0;
}

TEST(CentRoundingLimits, anyAmountThatFits64Bits_isRoundedAsDefinedToTheLastBit)
{
    std::mt19937_64 generator(20240301);
    std::uniform_real_distribution<double> magnitude(-6.0, 16.9);
    std::bernoulli_distribution negative;
    for (int round = 0; round < 200000; ++round) {
        const double amount = std::pow(10.0, magnitude(generator)) * (negative(generator) ? -1.0 : 1.0);
        ASSERT_EQ(roundToCents(amount), byDefinition(amount)) << amount;
    }
    for (int thousandths = -200000; thousandths <= 200000; ++thousandths) {
        ASSERT_EQ(roundToCents(thousandths / 1000.0), byDefinition(thousandths / 1000.0)) << thousandths;
    }
}

TEST(CentRoundingLimits, valueTooLargeFor64Bits_staysWhatItIs)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(roundToCents(infinity), infinity);
    EXPECT_EQ(roundToCents(-infinity), -infinity);
    EXPECT_TRUE(std::isnan(roundToCents(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_DOUBLE_EQ(roundToCents(1e300), 1e300);
    EXPECT_DOUBLE_EQ(roundToCents(-1e20), -1e20);
}

} // namespace
