// SPDX-License-Identifier: MIT
#include "fault.h"

#include <gtest/gtest.h>

using emulator::Endpoint;
using emulator::Occasion;

namespace
{

constexpr int shortestTimeout = 1;

TEST(TimeoutAtSubtotal, registryNeverAnswers_nextSubtotalRegistersTheRest)
{
    for (const Endpoint endpoint : {Endpoint::Token, Endpoint::DispenseRegistration}) {
        Pharmacy pharmacy(Pharmacy::Over::Http, shortestTimeout);
        const QStringList due = pharmacy.options();
        order(noAnswer(), pharmacy, endpoint, Occasion::nth(2));

        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
        expectMessageOf(noAnswer(), endpoint, pharmacy.takeMessages());
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
        expectRegistered(pharmacy, 1);
        EXPECT_EQ(pharmacy.options().mid(1), due.mid(1));

        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
        EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
        for (const int position : everyPosition) {
            expectRegistered(pharmacy, position);
        }
    }
}

TEST(TimeoutAtSubtotal, answerTooLateOrTooSlow_isGivenUpThoughTheRegistryHasBooked)
{
    for (const Fault& fault : {lateAnswer(), drippingAnswer()}) {
        Pharmacy pharmacy(Pharmacy::Over::Https, shortestTimeout);
        const QStringList due = pharmacy.options();
        order(fault, pharmacy, Endpoint::DispenseRegistration, Occasion::nth(2));

        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop) << fault.name;
        expectMessageOf(fault, Endpoint::DispenseRegistration, pharmacy.takeMessages());
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
        expectRegistered(pharmacy, 1);
        EXPECT_EQ(pharmacy.options().mid(1), due.mid(1));
        EXPECT_EQ(pharmacy.dispensesOf(2).size(), 1);
        EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), 2);
    }
}

TEST(TimeoutAtCancellation, registryNeverAnswers_nextCancellationCancelsTheRest)
{
    Pharmacy pharmacy(Pharmacy::Over::Http, shortestTimeout);
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    const QStringList registered = pharmacy.options();
    pharmacy.takeEvents();
    order(noAnswer(), pharmacy, Endpoint::DispenseCancellation, Occasion::nth(2));

    EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
    expectMessageOf(noAnswer(), Endpoint::DispenseCancellation, pharmacy.takeMessages());
    EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 1}}));
    expectCancelled(pharmacy, 1);
    EXPECT_EQ(pharmacy.options().mid(1), registered.mid(1));

    EXPECT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectCancelled(pharmacy, position);
    }
}

} // namespace
