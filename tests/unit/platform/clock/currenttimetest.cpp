// SPDX-License-Identifier: MIT
#include "clockdouble.h"

#include <gtest/gtest.h>

TEST(CurrentTime, current_isNowInLocalTime)
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = CurrentTime::create()->current();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
    EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
}

TEST(CurrentTime, mocked_givesTheTestsTime)
{
    const ClockDouble clock(QDateTime({2024, 2, 29}, {12, 0}));
    EXPECT_EQ(CurrentTime::create()->current(), QDateTime({2024, 2, 29}, {12, 0}));
}
