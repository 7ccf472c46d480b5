// SPDX-License-Identifier: MIT
#include "loyaltysystemlayer.h"
#include "documentdouble.h"

#include <gtest/gtest.h>

TEST(LoyaltySystemLayer, noLayerOfTheHost_recalculationChangesNothing)
{
    const auto document = QSharedPointer<DocumentDouble>::create();
    const QJsonObject before = document->toJson();
    Singleton<LoyaltySystemLayer>::get()->recalculate(document);
    EXPECT_EQ(document->toJson(), before);
    EXPECT_NO_THROW(Singleton<LoyaltySystemLayer>::get()->recalculate(nullptr));
}
