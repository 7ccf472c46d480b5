// SPDX-License-Identifier: MIT
// The power fails while registered dispenses are cancelled: of one position, and of the whole document.

#include "powercuttest.h"

namespace
{

using At = PowerFailure::At;

/// Registers the document's three prescriptions: three saves and the first long work.
const QByteArray registers = cashier::findsTheDocument + ", " + cashier::subtotal;

class PowerCutAtACancellation : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    QList<bool> cancelled()
    {
        QList<bool> states;
        for (const char* prescription : {"rx-2001", "rx-2002", "rx-2003"}) {
            const auto dispenses = registry.dispensesOf(prescription);
            EXPECT_EQ(dispenses.size(), 1) << prescription;
            states += !dispenses.isEmpty() && dispenses.first().cancelled;
        }
        return states;
    }
};

const PowerFailure positionStillThere[] = {
    {"beforeAnyRequest", At::LongWork, 2},
    {"sent", At::RequestLost, 1, "cancel"},
    {"saved", At::AfterSave, 4},
    {"removalToBeSaved", At::BeforeSave, 5},
};

using RemovingOnePosition = PowerCutAtACancellation;

TEST_P(RemovingOnePosition, powerFails_positionStaysAndTheNextAttemptRemovesIt)
{
    playUntil(GetParam(), {registers, cashier::removesTheSecond});
    EXPECT_EQ(savedPositions().size(), 3);
    expectInStep(savedDocument());

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::removesTheSecond, cashier::twoPositionsAreLeft,
                            cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["positions"].toArray().size(), 2);
    expectInStep(finished(1));
    EXPECT_EQ(cancelled(), (QList<bool>{false, true, false}));
}

INSTANTIATE_TEST_SUITE_P(At, RemovingOnePosition, ::testing::ValuesIn(positionStillThere), nameOf);

using RemovedPosition = PowerCutAtACancellation;

TEST_P(RemovedPosition, powerFails_positionStaysRemoved)
{
    playUntil(GetParam(), {registers, cashier::removesTheSecond});
    EXPECT_EQ(savedPositions().size(), 2);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["positions"].toArray().size(), 2);
    expectInStep(finished(1));
    EXPECT_EQ(cancelled(), (QList<bool>{false, true, false}));
}

INSTANTIATE_TEST_SUITE_P(At, RemovedPosition, ::testing::Values(PowerFailure{"removalSaved", At::AfterSave, 5}),
                         nameOf);

const PowerFailure oneUnsaved[] = {
    {"answered", At::AnswerLost, 1, "cancel"},
    {"toBeSaved", At::BeforeSave, 4},
};

using RemovingWithTheCancellationUnsaved = PowerCutAtACancellation;

TEST_P(RemovingWithTheCancellationUnsaved, powerFails_nothingCanBeCancelledAndTheDocumentCanBePaid)
{
    playUntil(GetParam(), {registers, cashier::removesTheSecond});
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(cancelled(), (QList<bool>{false, true, false}));

    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::tries(cashier::removesTheSecond, "уже отменён"),
                   cashier::tries(cashier::cancelsTheDocument, "уже отменён"), cashier::subtotal, cashier::pays}));
    const QJsonObject closed = finished(1);
    EXPECT_EQ(closed["positions"].toArray().size(), 3);
    EXPECT_EQ(registeredBy(closed).size(), 3);
    EXPECT_EQ(validDispenses().size(), 2); // the first was cancelled with the document and registered again
    EXPECT_TRUE(registry.dispensesOf("rx-2002").first().cancelled);
}

INSTANTIATE_TEST_SUITE_P(At, RemovingWithTheCancellationUnsaved, ::testing::ValuesIn(oneUnsaved), nameOf);

const PowerFailure documentStillOpen[] = {
    {"beforeAnyRequest", At::LongWork, 2}, {"firstSent", At::RequestLost, 1, "cancel"},
    {"firstSaved", At::AfterSave, 4},      {"secondSent", At::RequestLost, 2, "cancel"},
    {"secondSaved", At::AfterSave, 5},     {"thirdSent", At::RequestLost, 3, "cancel"},
    {"thirdSaved", At::AfterSave, 6},      {"endToBeSaved", At::BeforeSave, 7},
};

using CancellingTheDocument = PowerCutAtACancellation;

TEST_P(CancellingTheDocument, powerFails_documentStaysOpenAndTheNextAttemptCancelsIt)
{
    playUntil(GetParam(), {registers, cashier::cancelsTheDocument});
    EXPECT_EQ(savedPositions().size(), 3);
    expectInStep(savedDocument());

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "cancelled");
    expectInStep(finished(1));
    EXPECT_EQ(cancelled(), (QList<bool>{true, true, true}));
    EXPECT_TRUE(savedDocument().isEmpty());
}

TEST_P(CancellingTheDocument, powerFails_documentCanBeSold)
{
    playUntil(GetParam(), {registers, cashier::cancelsTheDocument});

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    expectInStep(finished(1));
}

INSTANTIATE_TEST_SUITE_P(At, CancellingTheDocument, ::testing::ValuesIn(documentStillOpen), nameOf);

using CancelledDocument = PowerCutAtACancellation;

TEST_P(CancelledDocument, powerFails_documentStaysCancelledAndTheNextOneHasItsOwnNumber)
{
    playUntil(GetParam(), {registers, cashier::cancelsTheDocument});

    expectPlayed(playSteps({cashier::isIdle, cashier::opensADocument}));
    EXPECT_EQ(finished(1)["state"].toString(), "cancelled");
    EXPECT_EQ(cancelled(), (QList<bool>{true, true, true}));
    EXPECT_EQ(savedDocument()["number"].toInt(), 2);
}

INSTANTIATE_TEST_SUITE_P(At, CancelledDocument, ::testing::Values(PowerFailure{"endSaved", At::AfterSave, 7}), nameOf);

const PowerFailure cancellationUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "cancel"},  {"firstToBeSaved", At::BeforeSave, 4},
    {"secondAnswered", At::AnswerLost, 2, "cancel"}, {"secondToBeSaved", At::BeforeSave, 5},
    {"thirdAnswered", At::AnswerLost, 3, "cancel"},  {"thirdToBeSaved", At::BeforeSave, 6},
};

using CancellingWithOneUnsaved = PowerCutAtACancellation;

TEST_P(CancellingWithOneUnsaved, nextAttempt_isRefusedByTheRegistryUntilTheDocumentIsCorrected)
{
    playUntil(GetParam(), {registers, cashier::cancelsTheDocument});
    EXPECT_EQ(registeredBy(savedDocument()).size(), validDispenses().size() + 1);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::tries(cashier::cancelsTheDocument, "уже отменён"),
                            cashier::tries(cashier::cancelsTheDocument, "уже отменён"), cashier::suspends}));
    EXPECT_EQ(registeredBy(suspended(1)).size(), validDispenses().size() + 1);
    EXPECT_TRUE(savedDocument().isEmpty());

    correct("putaside/00000001.json");
    expectPlayed(playSteps({cashier::resumes, cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "cancelled");
    EXPECT_EQ(cancelled(), (QList<bool>{true, true, true}));
}

INSTANTIATE_TEST_SUITE_P(At, CancellingWithOneUnsaved, ::testing::ValuesIn(cancellationUnsaved), nameOf);

} // namespace
