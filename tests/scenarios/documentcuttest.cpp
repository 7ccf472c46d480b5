// SPDX-License-Identifier: MIT
// The power goes while a document changes its place: closed, put aside, taken up, taken back, annulled.

#include "powercuttest.h"

namespace
{

using At = PowerFailure::At;

const QByteArray registers = cashier::findsTheReceipt + ", " + cashier::subtotal;
const QByteArray sells = registers + ", " + cashier::pays;

class PowerCutAtADocument : public PowerCutTest
{
protected:
    /// There is one open receipt, number 1, and no other document.
    void expectOpenAlone()
    {
        EXPECT_EQ(savedReceipt()["number"].toInt(), 1);
        EXPECT_EQ(savedReceipt()["state"].toString(), "open");
        EXPECT_EQ(savedPositions().size(), 3);
        EXPECT_EQ(files("putaside") + files("finished"), QStringList());
    }
};

TEST_F(PowerCutAtADocument, closingToBeSaved_receiptIsOpenAndIsPaidAgainWithoutAskingTheRegistry)
{
    playUntil({"", At::BeforeSave, 4}, {sells});
    expectOpenAlone();
    registry.forgetRequests();

    expectHeld(playSteps({cashier::findsTheReceipt, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.requestedPaths(), QStringList());
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    expectRegisteredOnce(finished(1));
    EXPECT_FALSE(printed(1).empty());
}

TEST_F(PowerCutAtADocument, closingSaved_receiptIsClosedPrintedAndNotOpenAgain)
{
    playUntil({"", At::AfterSave, 4}, {sells});
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_TRUE(printed(1).empty());

    expectHeld(playSteps({cashier::isIdle, cashier::opensAReceipt}));
    EXPECT_EQ(files("finished"), QStringList("00000001.json"));
    expectRegisteredOnce(finished(1));
    EXPECT_FALSE(printed(1).empty());
    EXPECT_EQ(savedReceipt()["number"].toInt(), 2);
}

TEST_F(PowerCutAtADocument, puttingAsideToBeSaved_receiptIsOpen)
{
    playUntil({"", At::BeforeSave, 1}, {cashier::findsTheReceipt, cashier::putsAside});
    expectOpenAlone();

    expectHeld(playSteps({cashier::findsTheReceipt, cashier::putsAside}));
    EXPECT_EQ(putAside(1)["positions"].toArray().size(), 3);
    EXPECT_TRUE(savedReceipt().isEmpty());
}

TEST_F(PowerCutAtADocument, puttingAsideSaved_receiptIsOpenAndNotPutAsideAsWell)
{
    playUntil({"", At::AfterSave, 1}, {cashier::findsTheReceipt, cashier::putsAside});

    expectHeld(playSteps({cashier::findsTheReceipt}));
    expectOpenAlone();
}

TEST_F(PowerCutAtADocument, takingUpToBeSaved_receiptStaysPutAside)
{
    expectHeld(playSteps({cashier::findsTheReceipt, cashier::putsAside}));
    playUntil({"", At::BeforeSave, 1}, {cashier::takesUp});
    EXPECT_TRUE(savedReceipt().isEmpty());

    expectHeld(playSteps({cashier::takesUp}));
    expectOpenAlone();
}

TEST_F(PowerCutAtADocument, takingUpSaved_receiptIsOpenAndNotPutAsideAsWell)
{
    expectHeld(playSteps({cashier::findsTheReceipt, cashier::putsAside}));
    playUntil({"", At::AfterSave, 1}, {cashier::takesUp});

    expectHeld(playSteps({cashier::findsTheReceipt}));
    expectOpenAlone();
}

class PowerCutAtATakeBack : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    void SetUp() override
    {
        PowerCutTest::SetUp();
        expectHeld(playSteps({sells}));
        expectRegisteredOnce(finished(1));
    }

    /// The sale is taken back once: by that document, with nothing left at the registry.
    void expectTakenBackBy(int number)
    {
        EXPECT_EQ(finished(1)["takenBackBy"].toInt(), number);
        EXPECT_EQ(finished(number)["takesBack"].toInt(), 1);
        EXPECT_EQ(finished(number)["state"].toString(), "closed");
        EXPECT_EQ(files("finished").size(), 2);
        EXPECT_TRUE(savedReceipt().isEmpty());
        expectNothingRegistered();
        expectInStep(finished(1));
        expectInStep(finished(number));
        EXPECT_EQ(registry.dispenses().size(), 3);
    }
};

const QByteArray takesBack =
    cashier::opensTheTakeBack + ", " + cashier::findsTheReceipt + ", " + cashier::subtotal + ", " + cashier::paysOut;

const PowerFailure notOpenYet[] = {
    {"saleToBeSaved", At::BeforeSave, 1},
    {"saleSaved", At::AfterSave, 1},
    {"documentToBeSaved", At::BeforeSave, 2},
};

using OpeningATakeBack = PowerCutAtATakeBack;

TEST_P(OpeningATakeBack, hasNotHappenedAndIsDoneUnderTheNextNumber)
{
    playUntil(GetParam(), {takesBack});
    EXPECT_TRUE(savedReceipt().isEmpty());
    expectRegisteredOnce(finished(1));

    expectHeld(playSteps({cashier::isIdle, takesBack}));
    expectTakenBackBy(3);
}

INSTANTIATE_TEST_SUITE_P(At, OpeningATakeBack, ::testing::ValuesIn(notOpenYet), nameOf);

const PowerFailure takeBackOpen[] = {
    {"opened", At::AfterSave, 2},
    {"beforeAnyRequest", At::LongWork, 1},
    {"firstSent", At::RequestLost, 1, "cancel"},
    {"firstSaved", At::AfterSave, 3},
    {"secondSent", At::RequestLost, 2, "cancel"},
    {"secondSaved", At::AfterSave, 4},
    {"thirdSent", At::RequestLost, 3, "cancel"},
    {"thirdSaved", At::AfterSave, 5},
    {"saleToBeSaved", At::BeforeSave, 6},
    {"saleSaved", At::AfterSave, 6},
    {"endToBeSaved", At::BeforeSave, 7},
};

using OpenTakeBack = PowerCutAtATakeBack;

TEST_P(OpenTakeBack, isOpenAfterwardsAndIsFinishedOnce)
{
    playUntil(GetParam(), {takesBack});
    EXPECT_EQ(savedReceipt()["type"].toInt(), 25);
    expectInStep(savedReceipt());

    expectHeld(playSteps({cashier::findsTheReceipt, cashier::subtotal, cashier::paysOut,
                          cashier::tries(cashier::opensTheTakeBack, "уже возвращена")}));
    expectTakenBackBy(2);
}

INSTANTIATE_TEST_SUITE_P(At, OpenTakeBack, ::testing::ValuesIn(takeBackOpen), nameOf);

TEST_F(PowerCutAtATakeBack, endSaved_isFinishedAndNotOpenAgain)
{
    playUntil({"", At::AfterSave, 7}, {takesBack});

    expectHeld(playSteps({cashier::isIdle, cashier::tries(cashier::opensTheTakeBack, "уже возвращена")}));
    expectTakenBackBy(2);
    EXPECT_FALSE(printed(2).empty());
}

const PowerFailure takeBackUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "cancel"},  {"firstToBeSaved", At::BeforeSave, 3},
    {"secondAnswered", At::AnswerLost, 2, "cancel"}, {"secondToBeSaved", At::BeforeSave, 4},
    {"thirdAnswered", At::AnswerLost, 3, "cancel"},  {"thirdToBeSaved", At::BeforeSave, 5},
};

using TakeBackWithOneUnsaved = PowerCutAtATakeBack;

TEST_P(TakeBackWithOneUnsaved, isRefusedByTheRegistryUntilTheDocumentIsCorrected)
{
    playUntil(GetParam(), {takesBack});
    EXPECT_EQ(registeredBy(savedReceipt()).size(), standingDispenses().size() + 1);

    expectHeld(playSteps({cashier::findsTheReceipt, cashier::tries(R"({"key": "F6"})", "уже отменён"),
                          cashier::tries(R"({"key": "F6"})", "уже отменён")}));
    EXPECT_EQ(registeredBy(savedReceipt()).size(), standingDispenses().size() + 1);

    correct("receipt.json");
    expectHeld(playSteps({cashier::findsTheReceipt, cashier::subtotal, cashier::paysOut}));
    expectTakenBackBy(2);
}

TEST_P(TakeBackWithOneUnsaved, canBeGivenUpAndTheSaleStaysSold)
{
    playUntil(GetParam(), {takesBack});

    expectHeld(playSteps({cashier::findsTheReceipt, cashier::cancelsTheReceipt, cashier::isIdle}));
    EXPECT_EQ(finished(2)["state"].toString(), "cancelled");
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), standingDispenses().size() + 1);
}

INSTANTIATE_TEST_SUITE_P(At, TakeBackWithOneUnsaved, ::testing::ValuesIn(takeBackUnsaved), nameOf);

class PowerCutAtAnAnnulment : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    void expectAnnulled()
    {
        EXPECT_EQ(finished(1)["state"].toString(), "annulled");
        EXPECT_EQ(files("putaside"), QStringList());
        EXPECT_EQ(registry.dispenses().size(), 3);
        expectNothingRegistered();
        expectInStep(finished(1));
    }
};

const PowerFailure annulment[] = {
    {"firstSent", At::RequestLost, 1, "cancel"},  {"firstSaved", At::AfterSave, 5},
    {"secondSent", At::RequestLost, 2, "cancel"}, {"secondSaved", At::AfterSave, 6},
    {"thirdSent", At::RequestLost, 3, "cancel"},  {"thirdSaved", At::AfterSave, 7},
    {"endToBeSaved", At::BeforeSave, 8},
};

using AnnullingOnePutAside = PowerCutAtAnAnnulment;

TEST_P(AnnullingOnePutAside, isPutAsideAfterwardsAndIsAnnulledByTheNextAttempt)
{
    playUntil(GetParam(), {registers, cashier::putsAside, cashier::annuls});
    EXPECT_EQ(files("finished"), QStringList());
    expectInStep(putAside(1));

    expectHeld(playSteps({cashier::isIdle, cashier::annuls, cashier::isIdle}));
    expectAnnulled();
}

INSTANTIATE_TEST_SUITE_P(At, AnnullingOnePutAside, ::testing::ValuesIn(annulment), nameOf);
INSTANTIATE_TEST_SUITE_P(Before, AnnullingOnePutAside, ::testing::Values(PowerFailure{"anyRequest", At::LongWork, 2}),
                         nameOf);

TEST_F(PowerCutAtAnAnnulment, onePutAsideSaved_isAnnulledAndNotPutAsideAsWell)
{
    playUntil({"", At::AfterSave, 8}, {registers, cashier::putsAside, cashier::annuls});

    expectHeld(playSteps({cashier::isIdle, cashier::opensAReceipt}));
    expectAnnulled();
    EXPECT_EQ(savedReceipt()["number"].toInt(), 2);
}

using AnnullingASale = PowerCutAtAnAnnulment;

/// Saved at the same times as one that was put aside: there the fourth save is the putting aside, here the closing.
TEST_P(AnnullingASale, isClosedAfterwardsAndIsAnnulledByTheNextAttempt)
{
    playUntil(GetParam(), {sells, cashier::annuls});
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    expectInStep(finished(1));

    expectHeld(playSteps({cashier::isIdle, cashier::annuls, cashier::isIdle}));
    expectAnnulled();
}

INSTANTIATE_TEST_SUITE_P(At, AnnullingASale, ::testing::ValuesIn(annulment), nameOf);
INSTANTIATE_TEST_SUITE_P(Before, AnnullingASale, ::testing::Values(PowerFailure{"anyRequest", At::LongWork, 3}),
                         nameOf);

TEST_F(PowerCutAtAnAnnulment, saleSaved_isAnnulled)
{
    playUntil({"", At::AfterSave, 8}, {sells, cashier::annuls});

    expectHeld(playSteps({cashier::isIdle, cashier::opensAReceipt}));
    expectAnnulled();
}

const PowerFailure annulmentUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "cancel"},  {"firstToBeSaved", At::BeforeSave, 5},
    {"secondAnswered", At::AnswerLost, 2, "cancel"}, {"secondToBeSaved", At::BeforeSave, 6},
    {"thirdAnswered", At::AnswerLost, 3, "cancel"},  {"thirdToBeSaved", At::BeforeSave, 7},
};

using AnnullingASaleWithOneUnsaved = PowerCutAtAnAnnulment;

TEST_P(AnnullingASaleWithOneUnsaved, isRefusedByTheRegistryAndSoIsItsTakeBackUntilTheSaleIsCorrected)
{
    playUntil(GetParam(), {sells, cashier::annuls});
    EXPECT_EQ(registeredBy(finished(1)).size(), standingDispenses().size() + 1);

    expectHeld(playSteps({cashier::isIdle, cashier::tries(cashier::annuls, "уже отменён"), cashier::opensTheTakeBack,
                          cashier::findsTheReceipt, cashier::tries(R"({"key": "F6"})", "уже отменён"),
                          cashier::cancelsTheReceipt, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");

    correct("finished/00000001.json");
    expectHeld(playSteps({cashier::isIdle, cashier::annuls, cashier::isIdle}));
    expectAnnulled();
}

INSTANTIATE_TEST_SUITE_P(At, AnnullingASaleWithOneUnsaved, ::testing::ValuesIn(annulmentUnsaved), nameOf);

} // namespace
