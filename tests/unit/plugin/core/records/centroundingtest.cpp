// SPDX-License-Identifier: MIT
#include "centrounding.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

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

/// The definition with the product and the sum fused.
double roundFused(double x)
{
    const double s = x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0);
    return std::trunc(std::fma(x + 0.005 * s, 100.0, 0.001 * s)) / 100.0;
}

class CentRoundingOnAnyProcessor : public ::testing::TestWithParam<Rounding>
{
};

TEST_P(CentRoundingOnAnyProcessor, fusingWouldGiveOtherCents_amountIsTheDefinedOne)
{
    EXPECT_EQ(roundToCents(GetParam().value), GetParam().rounded);
    EXPECT_NE(roundFused(GetParam().value), GetParam().rounded) << "the row does not show it";
}

INSTANTIATE_TEST_SUITE_P(Values, CentRoundingOnAnyProcessor,
                         ::testing::Values(Rounding{"down", 0.12499, 0.12}, Rounding{"up", 0.05499, 0.06},
                                           Rounding{"negativeDown", -0.12499, -0.12},
                                           Rounding{"negativeUp", -0.05499, -0.06},
                                           Rounding{"shareOfAPrice", 0.009 * 6.11, 0.06},
                                           Rounding{"smallShareOfAPrice", 0.001 * 94.99, 0.09}),
                         [](const auto& row) { return std::string(row.param.name); });

/// The instructions that multiply and add in one step; empty when there are none.
QStringList fusedInstructions(const QString& objectFile)
{
    QProcess disassembler;
    disassembler.start(DISASSEMBLER, {"-d", "--no-show-raw-insn", objectFile});
    EXPECT_TRUE(disassembler.waitForFinished()) << qPrintable(disassembler.errorString());
    EXPECT_EQ(disassembler.exitCode(), 0);
    const QString code = QString::fromLocal8Bit(disassembler.readAllStandardOutput());
    EXPECT_TRUE(code.contains("roundToCents")) << code.toStdString();
    static const QRegularExpression fused(u"\\bv?fn?m(add|sub)\\w*"_s);
    QStringList found;
    auto match = fused.globalMatch(code);
    while (match.hasNext()) {
        found << match.next().captured();
    }
    return found;
}

TEST(CentRoundingBuilt, forAProcessorThatCanFuse_fusesNothing)
{
    EXPECT_EQ(fusedInstructions(ROUNDING_AS_BUILT), QStringList());
    EXPECT_NE(fusedInstructions(ROUNDING_FUSED), QStringList()) << "the disassembler would not show it";
}

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
