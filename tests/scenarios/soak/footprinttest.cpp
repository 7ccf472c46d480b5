// SPDX-License-Identifier: MIT
#include "footprint.h"
#include "qtprinting.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using soak::Footprint;

/// Nine samples: three windows of three.
QList<Footprint> samples(qint64 memoryAtLast, qint64 descriptorsAtLast)
{
    QList<Footprint> samples(9, {.memory = 1000, .descriptors = 30, .isComparable = true});
    for (qsizetype sample = 6; sample < samples.size(); ++sample) {
        samples[sample].memory = memoryAtLast;
        samples[sample].descriptors = descriptorsAtLast;
    }
    return samples;
}

QStringList growth(const QList<Footprint>& samples)
{
    return soak::growthIn(soak::windowsOf(samples, 3));
}

TEST(SoakFootprint, flat_isNoGrowth)
{
    EXPECT_EQ(growth(samples(1100, 30)), QStringList());
}

TEST(SoakFootprint, memoryMoreThanATenthAbove_isGrowth)
{
    EXPECT_EQ(growth(samples(1101, 30)), QStringList(u"memory grew from 1000 to 1101 KiB"_s));
}

TEST(SoakFootprint, oneDescriptorMore_isGrowth)
{
    EXPECT_EQ(growth(samples(1000, 31)), QStringList(u"open descriptors grew from 30 to 31"_s));
}

TEST(SoakFootprint, oneDescriptorLessForAWhile_isNoGrowth)
{
    QList<Footprint> some = samples(1000, 30);
    some[4].descriptors = some[7].descriptors = 29;
    EXPECT_EQ(growth(some), QStringList());
    some[8].descriptors = 31;
    EXPECT_EQ(growth(some).size(), 1);
}

TEST(SoakFootprint, firstWindowSmaller_isNoGrowth)
{
    QList<Footprint> warming = samples(1000, 30);
    warming[0] = warming[1] = warming[2] = {.memory = 500, .descriptors = 10, .isComparable = true};
    EXPECT_EQ(growth(warming), QStringList());
}

TEST(SoakFootprint, windowWithoutAComparableSample_isNotTakenForFlat)
{
    QList<Footprint> incomparable = samples(1000, 30);
    for (Footprint& sample : incomparable) {
        sample.isComparable = false;
    }
    EXPECT_EQ(growth(incomparable).size(), 1);
}

/// Prescription sales whose steps take `first` milliseconds in the first quarter, and `last` in the last one.
QList<Footprint> sales(int count, double first, double last)
{
    QList<Footprint> samples;
    for (int sale = 0; sale < count; ++sale) {
        const bool isEarly = sale < count / 4;
        const bool isLate = sale >= count - count / 4;
        samples.append(Footprint{.stepTime = isEarly ? first : isLate ? last : 5, .isComparable = true});
        samples.append(Footprint{.stepTime = 1000}); // one with a fault
    }
    return samples;
}

TEST(SoakFootprint, stepsThreeTimesAsLong_areNoSlowdown)
{
    EXPECT_EQ(soak::slowdownIn(sales(80, 5, 15)), QStringList());
    EXPECT_EQ(soak::slowdownIn(sales(80, 15, 5)), QStringList());
}

TEST(SoakFootprint, stepsMoreThanThreeTimesAsLong_areASlowdown)
{
    EXPECT_EQ(soak::slowdownIn(sales(80, 5, 15.5)), QStringList(u"a step took 5 ms at first and 15.5 ms at the end"_s));
}

TEST(SoakFootprint, fewSales_areNotTimed)
{
    EXPECT_EQ(soak::slowdownIn(sales(79, 5, 500)), QStringList());
}

TEST(SoakFootprint, timeThatGrowsWithEachSale_isASlowdown)
{
    QList<Footprint> samples;
    for (int sale = 1; sale <= 400; ++sale) {
        samples.append(Footprint{.stepTime = double(sale), .isComparable = true});
    }
    EXPECT_EQ(soak::slowdownIn(samples).size(), 1);
}

TEST(SoakFootprint, ownProcess_hasMemoryAndDescriptors)
{
    const Footprint own = soak::footprintOf(QCoreApplication::applicationPid());
    EXPECT_GT(own.memory, 1000);
    EXPECT_GE(own.descriptors, 3);
}

} // namespace
