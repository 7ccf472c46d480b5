// SPDX-License-Identifier: MIT
// The registry has done what was asked and the answer was lost. Nothing in a dispense document tells the registry that
// it is the same one again, so that a repetition is another dispense; docs/reliability.md tells what the cashier does.

#include "fault.h"
#include "positionformat.h"
#include "prescriptionstatus.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::Occasion;

namespace
{

using LostAnswerCase = std::tuple<Pharmacy::Over, Fault>;

class LostAnswer : public testing::TestWithParam<LostAnswerCase>
{
protected:
    static const Fault& fault() { return std::get<Fault>(GetParam()); }
    /// The cashier was told that text, once and as an error.
    static void expectShown(const QList<DialogDouble::Message>& shown, const QString& text)
    {
        ASSERT_EQ(shown.size(), 1);
        EXPECT_EQ(shown.first().text, text);
        EXPECT_EQ(shown.first().kind, 1);
    }

    Pharmacy pharmacy{std::get<Pharmacy::Over>(GetParam())};
};

using LostRegistration = LostAnswer;

TEST_P(LostRegistration, completeDispense_isBookedAndEveryRepetitionRefused)
{
    const QStringList due = pharmacy.options();
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(1));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    expectShownOf(fault(), Endpoint::DispenseRegistration, pharmacy.takeShown());
    ASSERT_EQ(pharmacy.dispensesOf(1).size(), 1);
    EXPECT_EQ(pharmacy.statusOfPrescription(1), emulator::prescriptionstatus::completed);

    for (int repetition = 0; repetition < 2; ++repetition) {
        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
        expectShown(pharmacy.takeShown(), u"Рецепт rx-full уже отпущен полностью"_s);
    }
    EXPECT_EQ(pharmacy.options(), due);
    EXPECT_EQ(pharmacy.dispensesOf(1).size(), 1);
    EXPECT_TRUE(pharmacy.dispensesOf(2).isEmpty());
    EXPECT_EQ(pharmacy.savedDocument(), QJsonObject());
}

TEST_P(LostRegistration, positionTakenOffTheDocument_letsTheOthersBeRegistered)
{
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(1));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    pharmacy.forgetRequests();

    EXPECT_EQ(pharmacy.cancellation(1), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    pharmacy.takeOff(1);
    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    expectRegistered(pharmacy, 2);
    expectRegistered(pharmacy, 3);
    EXPECT_FALSE(pharmacy.onlyDispenseOf(1).isCancelled);
}

TEST_P(LostRegistration, partialDispense_isBookedOnceMoreByTheRepetition)
{
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(2));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    expectShownOf(fault(), Endpoint::DispenseRegistration, pharmacy.takeShown());
    EXPECT_EQ(pharmacy.dispensesOf(2).size(), 1);

    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.takeShown().isEmpty());
    const auto booked = pharmacy.dispensesOf(2);
    ASSERT_EQ(booked.size(), 2);
    EXPECT_EQ(booked[0].quantity + booked[1].quantity, 20.0);
    EXPECT_EQ(pharmacy.optionsOf(2)[positionformat::medicationDispenseId].toString(), booked[1].id);

    EXPECT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    const auto cancelled = pharmacy.dispensesOf(2);
    ASSERT_EQ(cancelled.size(), 2);
    EXPECT_FALSE(cancelled[0].isCancelled);
    EXPECT_TRUE(cancelled[1].isCancelled);
}

using LostCancellation = LostAnswer;

TEST_P(LostCancellation, subtotalAfterwards_goesOnThoughTheRegistryHoldsNoDispense)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    order(fault(), pharmacy, Endpoint::DispenseCancellation);
    EXPECT_EQ(pharmacy.cancellation(2), EContext::Stop);
    pharmacy.takeShown();
    pharmacy.forgetRequests();

    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    EXPECT_TRUE(pharmacy.takeShown().isEmpty());
    EXPECT_TRUE(pharmacy.onlyDispenseOf(2).isCancelled);
    EXPECT_EQ(pharmacy.optionsOf(2)[positionformat::status].toString(), positionformat::dispensed);
}

TEST_P(LostCancellation, dispense_isCancelledAndEveryRepetitionRefused)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    const QStringList registered = pharmacy.options();
    order(fault(), pharmacy, Endpoint::DispenseCancellation, Occasion::nth(2));
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
    expectShownOf(fault(), Endpoint::DispenseCancellation, pharmacy.takeShown());
    EXPECT_TRUE(pharmacy.onlyDispenseOf(2).isCancelled);

    const QString stoppedaction = u"Отпуск %1 уже отменён"_s.arg(pharmacy.onlyDispenseOf(2).id);
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
    expectShown(pharmacy.takeShown(), stoppedaction);
    EXPECT_EQ(pharmacy.cancellation(2), EContext::Stop);
    expectShown(pharmacy.takeShown(), stoppedaction);
    expectCancelled(pharmacy, 1);
    EXPECT_EQ(pharmacy.options().mid(1), registered.mid(1));
    expectRegistered(pharmacy, 3);
}

std::string nameOfCase(const testing::TestParamInfo<LostAnswerCase>& instance)
{
    const auto& [over, fault] = instance.param;
    return (over == Pharmacy::Over::Http ? "Http" : "Https") + fault.name;
}

const auto everyLostAnswer =
    testing::Combine(testing::Values(Pharmacy::Over::Http, Pharmacy::Over::Https), testing::ValuesIn(lostAnswers()));
INSTANTIATE_TEST_SUITE_P(After, LostRegistration, everyLostAnswer, nameOfCase);
INSTANTIATE_TEST_SUITE_P(After, LostCancellation, everyLostAnswer, nameOfCase);

} // namespace
