// SPDX-License-Identifier: MIT
#include "currenttime.h"
#include "finally.h"

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
    struct Noon : CurrentTime {
        QDateTime current() const override { return QDateTime({2024, 2, 29}, {12, 0}); }
    };
    MockFactory<CurrentTime>::mocked = [] { return QSharedPointer<Noon>::create(); };
    const Finally restoring([] { MockFactory<CurrentTime>::mocked = nullptr; });
    EXPECT_EQ(CurrentTime::create()->current(), QDateTime({2024, 2, 29}, {12, 0}));
}
