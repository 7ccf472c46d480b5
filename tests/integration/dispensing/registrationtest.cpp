// SPDX-License-Identifier: MIT
#include "fault.h"
#include "positionformat.h"
#include "prescriptionstatus.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using namespace emulator::prescriptionstatus;

TEST(Registration, subtotal_registersCompleteAndPartialDispensesAndSaves)
{
    Pharmacy pharmacy;
    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);

    for (const int position : everyPosition) {
        expectRegistered(pharmacy, position);
    }
    const emulator::Dispense complete = pharmacy.soleDispenseOf(1);
    EXPECT_EQ(complete.quantity, 20.0);
    EXPECT_TRUE(complete.isFinal);
    EXPECT_EQ(complete.pharmacy, u"17"_s);
    EXPECT_EQ(pharmacy.statusOfPrescription(1), completed);
    const emulator::Dispense partial = pharmacy.soleDispenseOf(2);
    EXPECT_EQ(partial.quantity, 10.0);
    EXPECT_FALSE(partial.isFinal);
    EXPECT_EQ(pharmacy.statusOfPrescription(2), active);
    EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
    EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
    EXPECT_EQ(pharmacy.takeEvents(), (QList<Pharmacy::HeardEvent>{{72, 0}, {73, 0}}));
}

TEST(Registration, claim_isSentExactlyWhenSomebodyElsePaysAPart)
{
    Pharmacy pharmacy;
    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);

    const auto claimedFor = [&](int position) {
        const QByteArray claim = pharmacy.soleDispenseOf(position).claim;
        return QJsonDocument::fromJson(claim).object()["item"_L1][0];
    };
    EXPECT_TRUE(pharmacy.soleDispenseOf(1).claim.isEmpty());
    const QJsonValue half = claimedFor(2);
    EXPECT_EQ(half["unitPrice"_L1]["value"_L1].toDouble(), 20.0);
    EXPECT_EQ(half["factor"_L1].toDouble(), 0.5);
    EXPECT_EQ(half["net"_L1]["value"_L1].toDouble(), 10.0);
    const QJsonValue all = claimedFor(3);
    EXPECT_EQ(all["unitPrice"_L1]["value"_L1].toDouble(), 10.05);
    EXPECT_EQ(all["factor"_L1].toDouble(), 1.0);
    EXPECT_EQ(all["net"_L1]["value"_L1].toDouble(), 10.05);
}

TEST(Registration, secondSubtotal_sendsNoRequest)
{
    Pharmacy pharmacy;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    pharmacy.forgetRequests();
    const QStringList registered = pharmacy.options();
    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    EXPECT_EQ(pharmacy.options(), registered);
}

TEST(Registration, subtotalAfterACancellation_registersAgainUnderNewIds)
{
    Pharmacy pharmacy;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectCancelled(pharmacy, position);
    }
    EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());

    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    for (const int position : everyPosition) {
        const auto dispenses = pharmacy.dispensesOf(position);
        ASSERT_EQ(dispenses.size(), 2);
        EXPECT_TRUE(dispenses[0].isCancelled);
        EXPECT_FALSE(dispenses[1].isCancelled);
        EXPECT_NE(dispenses[1].id, dispenses[0].id);
        EXPECT_EQ(pharmacy.optionsOf(position)[positionformat::medicationDispenseId].toString(), dispenses[1].id);
        EXPECT_EQ(pharmacy.optionsOf(position)[positionformat::status].toString(), positionformat::dispensed);
    }
    EXPECT_EQ(pharmacy.statusOfPrescription(1), completed);
    EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
}

TEST(Registration, cancellationOfOnePosition_cancelsItsDispenseAloneAndSaves)
{
    Pharmacy pharmacy;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_EQ(pharmacy.cancelPosition(2), EContext::GoOn);
    expectRegistered(pharmacy, 1);
    expectCancelled(pharmacy, 2);
    expectRegistered(pharmacy, 3);
    EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
}

TEST(Registration, secondCancellation_sendsNoRequest)
{
    Pharmacy pharmacy;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    ASSERT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    pharmacy.forgetRequests();
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
}

// For example a document restored from before its cancellation.
TEST(Registration, dispenseAlreadyCancelledAtTheRegistry_isRefusedAndTheCancellationStops)
{
    Pharmacy pharmacy;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    const QStringList registered = pharmacy.options();
    ASSERT_EQ(pharmacy.cancelPosition(2), EContext::GoOn);
    pharmacy.setOptions(2, registered[1]);

    EXPECT_EQ(pharmacy.cancelPosition(2), EContext::Stop);
    const auto shown = pharmacy.takeMessages();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0].text, u"Отпуск %1 уже отменён"_s.arg(pharmacy.soleDispenseOf(2).id));
    EXPECT_EQ(shown[0].kind, 1);
    EXPECT_EQ(pharmacy.options(), registered);
}

} // namespace
