// SPDX-License-Identifier: MIT
// The power fails while the three prescriptions of a document are registered.

#include "powercuttest.h"

using namespace Qt::StringLiterals;

namespace
{

using At = PowerFailure::At;

class PowerCutAtTheSubtotal : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
};

/// The saved document holds the outcome of every request that the registry has carried out.
const PowerFailure nothingUnderWay[] = {
    {"beforeAnyRequest", At::LongWork, 1},          {"tokenAskedFor", At::RequestLost, 1, "token"},
    {"firstSent", At::RequestLost, 1, "register"},  {"firstSaved", At::AfterSave, 1},
    {"secondSent", At::RequestLost, 2, "register"}, {"secondSaved", At::AfterSave, 2},
    {"thirdSent", At::RequestLost, 3, "register"},  {"thirdSaved", At::AfterSave, 3},
};

using WithNothingUnderWay = PowerCutAtTheSubtotal;

TEST_P(WithNothingUnderWay, nextSubtotal_registersWhatIsMissing)
{
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    const QJsonObject left = savedDocument();
    expectInStep(left);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    const QJsonObject closed = finished(1);
    EXPECT_EQ(closed["state"].toString(), "closed");
    EXPECT_EQ(closed["number"], left["number"]);
    expectRegisteredOnce(closed);
    EXPECT_TRUE(savedDocument().isEmpty());
    EXPECT_EQ(files("finished").size(), 1);
}

INSTANTIATE_TEST_SUITE_P(At, WithNothingUnderWay, ::testing::ValuesIn(nothingUnderWay), nameOf);

/// The registry has booked a dispense, and the saved document does not hold it.
const PowerFailure firstUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "register"},
    {"firstToBeSaved", At::BeforeSave, 1},
};

using WithACompleteDispenseUnsaved = PowerCutAtTheSubtotal;

TEST_P(WithACompleteDispenseUnsaved, nextSubtotal_isRefusedUntilThePositionIsRemoved)
{
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    EXPECT_EQ(registeredBy(savedDocument()), QStringList());
    ASSERT_EQ(registry.dispenses().size(), 1);

    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", "rx-2001 уже отпущен полностью"),
                   cashier::removesTheFirst, cashier::twoPositionsAreLeft, cashier::subtotal, cashier::pays}));
    const QJsonObject closed = finished(1);
    EXPECT_EQ(closed["positions"].toArray().size(), 2);
    QStringList known = registeredBy(closed);
    EXPECT_EQ(known.size(), 2);
    const auto lost = registry.dispensesOf("rx-2001");
    ASSERT_EQ(lost.size(), 1);
    EXPECT_FALSE(lost[0].cancelled);
    EXPECT_EQ(validDispenses().mid(1), known);
}

TEST_P(WithACompleteDispenseUnsaved, documentCorrected_isSoldWithTheDispense)
{
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    correct("receipt.json");

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectRegisteredOnce(finished(1));
}

INSTANTIATE_TEST_SUITE_P(At, WithACompleteDispenseUnsaved, ::testing::ValuesIn(firstUnsaved), nameOf);

const PowerFailure partUnsaved[] = {
    {"secondAnswered", At::AnswerLost, 2, "register"},
    {"secondToBeSaved", At::BeforeSave, 2},
    {"thirdAnswered", At::AnswerLost, 3, "register"},
    {"thirdToBeSaved", At::BeforeSave, 3},
};

using WithAPartialDispenseUnsaved = PowerCutAtTheSubtotal;

TEST_P(WithAPartialDispenseUnsaved, nextSubtotal_booksItAgainAndTheDocumentHoldsTheSecond)
{
    const QString prescription = u"rx-200%1"_s.arg(GetParam().nth);
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    EXPECT_EQ(registeredBy(savedDocument()).size(), GetParam().nth - 1);
    EXPECT_EQ(registry.dispenses().size(), GetParam().nth);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    const QStringList known = registeredBy(finished(1));
    EXPECT_EQ(known.size(), 3);
    const auto booked = registry.dispensesOf(prescription);
    ASSERT_EQ(booked.size(), 2);
    QStringList standing = validDispenses();
    EXPECT_EQ(standing.size(), 4);
    standing.removeIf([&](const QString& line) { return line.endsWith(booked[0].id); });
    EXPECT_EQ(standing, known);
}

TEST_P(WithAPartialDispenseUnsaved, documentCorrected_isSoldWithoutASecondBooking)
{
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    correct("receipt.json");

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectRegisteredOnce(finished(1));
}

INSTANTIATE_TEST_SUITE_P(At, WithAPartialDispenseUnsaved, ::testing::ValuesIn(partUnsaved), nameOf);

} // namespace
