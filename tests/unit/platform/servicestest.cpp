// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "documentdouble.h"
#include "loyaltysystemlayer.h"

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

TEST(LoyaltySystemLayer, recalculationSet_runsOnTheDocument)
{
    LoyaltySystemLayer layer;
    QList<AbstractDocument*> recalculated;
    layer.setRecalculation([&recalculated](AbstractDocument& document) { recalculated.append(&document); });
    const auto document = QSharedPointer<DocumentDouble>::create();
    layer.recalculate(document);
    EXPECT_EQ(recalculated, QList<AbstractDocument*>{document.data()});
}

TEST(LoyaltySystemLayer, nullDocumentOrNoRecalculation_doesNothing)
{
    LoyaltySystemLayer layer;
    EXPECT_NO_THROW(layer.recalculate(QSharedPointer<DocumentDouble>::create()));
    int runs = 0;
    layer.setRecalculation([&runs](AbstractDocument&) { ++runs; });
    layer.recalculate(nullptr);
    EXPECT_EQ(runs, 0);
}
