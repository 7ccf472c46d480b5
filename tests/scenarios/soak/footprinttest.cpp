// SPDX-License-Identifier: MIT
#include "footprint.h"
#include "qtprinting.h"

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
    EXPECT_EQ(growth(samples(1000, 31)), QStringList(u"the count of open descriptors is not the same"_s));
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

TEST(SoakFootprint, ownProcess_hasMemoryAndDescriptors)
{
    const Footprint own = soak::footprintOf(QCoreApplication::applicationPid());
    EXPECT_GT(own.memory, 1000);
    EXPECT_GE(own.descriptors, 3);
}

} // namespace
