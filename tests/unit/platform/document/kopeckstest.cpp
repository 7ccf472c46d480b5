// SPDX-License-Identifier: MIT
#include "kopecks.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Kopecks, roubles_areRoundedHalfAwayFromZero)
{
    const std::pair<double, qint64> rows[] = {
        {10.01, 1001},
        {0.29, 29},
        {1.005, 101},
        {2.675, 268},
        {1.0049, 100},
        {-2.5, -250},
        {-1.005, -101},
        {-1.0049, -100},
        {1234567.89, 123456789},
        {1e13, 1'000'000'000'000'000},
    };
    for (const auto& [roubles, kopecks] : rows) {
        const auto amount = Kopecks::fromRoubles(roubles);
        ASSERT_TRUE(amount) << roubles;
        EXPECT_EQ(amount->count(), kopecks) << roubles;
    }
}

TEST(Kopecks, noAmountInRoubles_isRefused)
{
    for (const double roubles :
         {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1.1e13, -1.1e13, 1e300}) {
        EXPECT_FALSE(Kopecks::fromRoubles(roubles)) << roubles;
    }
}

TEST(Kopecks, toRoublesAndBack_isTheSame)
{
    for (const qint64 kopecks : {0LL, 1LL, -1LL, 29LL, 101LL, 9'999'999'999LL, 999'999'999'999'999LL}) {
        EXPECT_EQ(Kopecks::fromRoubles(Kopecks{kopecks}.toRoubles()), Kopecks{kopecks});
    }
    EXPECT_EQ(Kopecks{1001}.toRoubles(), 10.01);
}

TEST(Kopecks, arithmetic_isThatOfWholeNumbers)
{
    EXPECT_EQ(Kopecks{} + Kopecks{5}, Kopecks{5});
    EXPECT_EQ(Kopecks{5} - Kopecks{7}, -Kopecks{2});
    EXPECT_EQ(Kopecks{1001} * 999, Kopecks{999'999});
    EXPECT_EQ(Kopecks{10'000'000'000} * 100'000, Kopecks{1'000'000'000'000'000});
    EXPECT_LT(-Kopecks{1}, Kopecks{});
    EXPECT_GT(Kopecks{1}, Kopecks{});
}

TEST(Kopecks, packs_areRoundedHalfAwayFromZero)
{
    EXPECT_EQ(Kopecks{1001}.forPacks(3), Kopecks{3003});
    EXPECT_EQ(Kopecks{1001}.forPacks(0.5), Kopecks{501});
    EXPECT_EQ(Kopecks{-1001}.forPacks(0.5), Kopecks{-501});
    EXPECT_EQ(Kopecks{1001}.forPacks(-0.5), Kopecks{-501});
    EXPECT_EQ(Kopecks{1001}.forPacks(0.499), Kopecks{499});
    EXPECT_EQ(Kopecks{10'000'000'000}.forPacks(100'000), Kopecks{1'000'000'000'000'000});
}

TEST(Kopecks, doubles_areNoKopecks)
{
    EXPECT_FALSE((std::is_constructible_v<Kopecks, double>));
    EXPECT_FALSE((std::is_convertible_v<qint64, Kopecks>));
    EXPECT_FALSE((std::is_convertible_v<Kopecks, qint64>));
}

} // namespace
