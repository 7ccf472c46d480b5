// SPDX-License-Identifier: MIT
// The registry has carried out a request and the answer was lost. A dispense document has no mark by which the registry
// could recognize a repetition, so a repetition is another dispense. What the cashier does is in docs/reliability.md.

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
    /// The cashier got exactly one message: this text, as an error.
    static void expectMessage(const QList<DialogDouble::Message>& shown, const QString& text)
    {
        ASSERT_EQ(shown.size(), 1);
        EXPECT_EQ(shown.first().text, text);
        EXPECT_EQ(shown.first().kind, 1);
    }

    Pharmacy pharmacy{std::get<Pharmacy::Over>(GetParam())};
};

using LostRegistration = LostAnswer;

TEST_P(LostRegistration, completeDispense_isBookedAndEveryRepetitionIsRefused)
{
    const QStringList due = pharmacy.options();
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(1));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    expectMessageOf(fault(), Endpoint::DispenseRegistration, pharmacy.takeMessages());
    ASSERT_EQ(pharmacy.dispensesOf(1).size(), 1);
    EXPECT_EQ(pharmacy.statusOfPrescription(1), emulator::prescriptionstatus::completed);

    for (int repetition = 0; repetition < 2; ++repetition) {
        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
        expectMessage(pharmacy.takeMessages(), u"Рецепт rx-full уже отпущен полностью"_s);
    }
    EXPECT_EQ(pharmacy.options(), due);
    EXPECT_EQ(pharmacy.dispensesOf(1).size(), 1);
    EXPECT_TRUE(pharmacy.dispensesOf(2).isEmpty());
    EXPECT_EQ(pharmacy.savedDocument(), QJsonObject());
}

TEST_P(LostRegistration, positionRemoved_othersAreRegistered)
{
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(1));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    pharmacy.forgetRequests();

    EXPECT_EQ(pharmacy.cancelPosition(1), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    pharmacy.removePosition(1);
    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    expectRegistered(pharmacy, 2);
    expectRegistered(pharmacy, 3);
    EXPECT_FALSE(pharmacy.soleDispenseOf(1).isCancelled);
}

TEST_P(LostRegistration, partialDispense_isBookedAgainByTheRepetition)
{
    order(fault(), pharmacy, Endpoint::DispenseRegistration, Occasion::nth(2));
    EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
    expectMessageOf(fault(), Endpoint::DispenseRegistration, pharmacy.takeMessages());
    EXPECT_EQ(pharmacy.dispensesOf(2).size(), 1);

    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
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

TEST_P(LostCancellation, nextSubtotal_goesOnThoughTheRegistryHasNoDispense)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    order(fault(), pharmacy, Endpoint::DispenseCancellation);
    EXPECT_EQ(pharmacy.cancelPosition(2), EContext::Stop);
    pharmacy.takeMessages();
    pharmacy.forgetRequests();

    EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
    EXPECT_TRUE(pharmacy.soleDispenseOf(2).isCancelled);
    EXPECT_EQ(pharmacy.optionsOf(2)[positionformat::status].toString(), positionformat::dispensed);
}

TEST_P(LostCancellation, dispense_isCancelledAndEveryRepetitionIsRefused)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    const QStringList registered = pharmacy.options();
    order(fault(), pharmacy, Endpoint::DispenseCancellation, Occasion::nth(2));
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
    expectMessageOf(fault(), Endpoint::DispenseCancellation, pharmacy.takeMessages());
    EXPECT_TRUE(pharmacy.soleDispenseOf(2).isCancelled);

    const QString stoppedaction = u"Отпуск %1 уже отменён"_s.arg(pharmacy.soleDispenseOf(2).id);
    EXPECT_EQ(pharmacy.cancelDocument(), EContext::Stop);
    expectMessage(pharmacy.takeMessages(), stoppedaction);
    EXPECT_EQ(pharmacy.cancelPosition(2), EContext::Stop);
    expectMessage(pharmacy.takeMessages(), stoppedaction);
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
