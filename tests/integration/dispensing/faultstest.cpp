// SPDX-License-Identifier: MIT
#include "fault.h"

#include <gtest/gtest.h>

#include <tuple>

using emulator::Endpoint;
using emulator::Occasion;

namespace
{

using FaultCase = std::tuple<Endpoint, Fault>;

std::string nameOfCase(const testing::TestParamInfo<FaultCase>& instance)
{
    return nameOf(std::get<Endpoint>(instance.param)) + std::get<Fault>(instance.param).name;
}

class FaultAtSubtotal : public testing::TestWithParam<FaultCase>
{
};

TEST_P(FaultAtSubtotal, atEachPosition_earlierOnesAreRegisteredAndTheNextSubtotalRegistersTheRest)
{
    const auto& [endpoint, fault] = GetParam();
    for (const int faulty : everyPosition) {
        SCOPED_TRACE("position " + std::to_string(faulty));
        Pharmacy pharmacy;
        const QStringList due = pharmacy.options();
        order(fault, pharmacy, endpoint, Occasion::nth(faulty));

        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
        expectMessageOf(fault, endpoint, pharmacy.takeMessages());
        for (const int position : everyPosition) {
            if (position < faulty) {
                expectRegistered(pharmacy, position);
            } else {
                EXPECT_EQ(pharmacy.options()[position - 1], due[position - 1]);
                EXPECT_TRUE(pharmacy.dispensesOf(position).isEmpty());
            }
        }
        EXPECT_EQ(pharmacy.savedDocument(), faulty == 1 ? QJsonObject() : pharmacy.documentAsJson());
        EXPECT_EQ(pharmacy.asked(Endpoint::Token), faulty);

        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
        EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
        for (const int position : everyPosition) {
            expectRegistered(pharmacy, position);
        }
        EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
        EXPECT_EQ(pharmacy.asked(Endpoint::Token), 4);
        EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), endpoint == Endpoint::Token ? 3 : 4);
    }
}

class FaultAtCancellation : public testing::TestWithParam<FaultCase>
{
};

TEST_P(FaultAtCancellation, atEachPosition_earlierOnesAreCancelledAndTheNextCancellationCancelsTheRest)
{
    const auto& [endpoint, fault] = GetParam();
    for (const int faulty : everyPosition) {
        SCOPED_TRACE("position " + std::to_string(faulty));
        Pharmacy pharmacy;
        ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
        const QStringList registered = pharmacy.options();
        pharmacy.takeEvents();
        pharmacy.forgetRequests();
        order(fault, pharmacy, endpoint, Occasion::nth(faulty));

        EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 1}}));
        expectMessageOf(fault, endpoint, pharmacy.takeMessages());
        for (const int position : everyPosition) {
            if (position < faulty) {
                expectCancelled(pharmacy, position);
            } else {
                EXPECT_EQ(pharmacy.options()[position - 1], registered[position - 1]);
                expectRegistered(pharmacy, position);
            }
        }
        EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
        EXPECT_EQ(pharmacy.asked(Endpoint::Token), faulty);

        EXPECT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
        EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
        EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
        for (const int position : everyPosition) {
            expectCancelled(pharmacy, position);
        }
        EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
        EXPECT_EQ(pharmacy.asked(Endpoint::Token), 4);
        EXPECT_EQ(pharmacy.asked(Endpoint::DispenseCancellation), endpoint == Endpoint::Token ? 3 : 4);
        EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(At, FaultAtSubtotal,
                         testing::Combine(testing::Values(Endpoint::Token, Endpoint::DispenseRegistration),
                                          testing::ValuesIn(faultsWithoutEffect())),
                         nameOfCase);
INSTANTIATE_TEST_SUITE_P(At, FaultAtCancellation,
                         testing::Combine(testing::Values(Endpoint::Token, Endpoint::DispenseCancellation),
                                          testing::ValuesIn(faultsWithoutEffect())),
                         nameOfCase);

// A lost token changes nothing at the registry.
INSTANTIATE_TEST_SUITE_P(LostAt, FaultAtSubtotal,
                         testing::Combine(testing::Values(Endpoint::Token), testing::ValuesIn(lostAnswers())),
                         nameOfCase);
INSTANTIATE_TEST_SUITE_P(LostAt, FaultAtCancellation,
                         testing::Combine(testing::Values(Endpoint::Token), testing::ValuesIn(lostAnswers())),
                         nameOfCase);

} // namespace
