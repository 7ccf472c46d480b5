// SPDX-License-Identifier: MIT
// The power fails while a document is closed, suspended, resumed, returned or voided.

#include "powercuttest.h"

namespace
{

using At = PowerFailure::At;

const QByteArray registers = cashier::findsTheDocument + ", " + cashier::subtotal;
const QByteArray sells = registers + ", " + cashier::pays;

class PowerCutAtADocument : public PowerCutTest
{
protected:
    /// There is one open document, number 1, and no other document.
    void expectOpenAlone()
    {
        EXPECT_EQ(savedDocument()["number"].toInt(), 1);
        EXPECT_EQ(savedDocument()["state"].toString(), "open");
        EXPECT_EQ(savedPositions().size(), 3);
        EXPECT_EQ(files("putaside") + files("finished"), QStringList());
    }
};

TEST_F(PowerCutAtADocument, closingNotYetSaved_documentIsOpenAndIsPaidWithoutARequest)
{
    playUntil({"", At::BeforeSave, 4}, {sells});
    expectOpenAlone();
    registry.forgetRequests();

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.requestedPaths(), QStringList());
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    expectRegisteredOnce(finished(1));
    EXPECT_FALSE(printed(1).empty());
}

TEST_F(PowerCutAtADocument, closingSaved_documentIsClosedAndPrintedAtTheNextStart)
{
    playUntil({"", At::AfterSave, 4}, {sells});
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_TRUE(printed(1).empty());

    expectPlayed(playSteps({cashier::isIdle, cashier::opensADocument}));
    EXPECT_EQ(files("finished"), QStringList("00000001.json"));
    expectRegisteredOnce(finished(1));
    EXPECT_FALSE(printed(1).empty());
    EXPECT_EQ(savedDocument()["number"].toInt(), 2);
}

TEST_F(PowerCutAtADocument, suspendingNotYetSaved_documentIsOpen)
{
    playUntil({"", At::BeforeSave, 1}, {cashier::findsTheDocument, cashier::suspends});
    expectOpenAlone();

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::suspends}));
    EXPECT_EQ(suspended(1)["positions"].toArray().size(), 3);
    EXPECT_TRUE(savedDocument().isEmpty());
}

TEST_F(PowerCutAtADocument, suspendingSaved_documentIsOpenAndNotSuspendedAsWell)
{
    playUntil({"", At::AfterSave, 1}, {cashier::findsTheDocument, cashier::suspends});

    expectPlayed(playSteps({cashier::findsTheDocument}));
    expectOpenAlone();
}

TEST_F(PowerCutAtADocument, resumingNotYetSaved_documentStaysSuspended)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::suspends}));
    playUntil({"", At::BeforeSave, 1}, {cashier::resumes});
    EXPECT_TRUE(savedDocument().isEmpty());

    expectPlayed(playSteps({cashier::resumes}));
    expectOpenAlone();
}

TEST_F(PowerCutAtADocument, resumingSaved_documentIsOpenAndNotSuspendedAsWell)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::suspends}));
    playUntil({"", At::AfterSave, 1}, {cashier::resumes});

    expectPlayed(playSteps({cashier::findsTheDocument}));
    expectOpenAlone();
}

class PowerCutAtAReturn : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    void SetUp() override
    {
        PowerCutTest::SetUp();
        expectPlayed(playSteps({sells}));
        expectRegisteredOnce(finished(1));
    }

    /// The sale was returned once, by that document, and the registry holds no dispense of it.
    void expectReturnedBy(int number)
    {
        EXPECT_EQ(finished(1)["takenBackBy"].toInt(), number);
        EXPECT_EQ(finished(number)["takesBack"].toInt(), 1);
        EXPECT_EQ(finished(number)["state"].toString(), "closed");
        EXPECT_EQ(files("finished").size(), 2);
        EXPECT_TRUE(savedDocument().isEmpty());
        expectNothingRegistered();
        expectInStep(finished(1));
        expectInStep(finished(number));
        EXPECT_EQ(registry.dispenses().size(), 3);
    }
};

const QByteArray returns = cashier::opensTheWholeReturn + ", " + cashier::findsTheDocument + ", " + cashier::subtotal +
                           ", " + cashier::paysOut;

const PowerFailure notOpenYet[] = {
    {"saleToBeSaved", At::BeforeSave, 1},
    {"saleSaved", At::AfterSave, 1},
    {"documentToBeSaved", At::BeforeSave, 2},
};

using OpeningAReturn = PowerCutAtAReturn;

TEST_P(OpeningAReturn, powerFails_saleIsUnchangedAndTheNextAttemptReturnsItUnderTheNextNumber)
{
    playUntil(GetParam(), {returns});
    EXPECT_TRUE(savedDocument().isEmpty());
    expectRegisteredOnce(finished(1));

    expectPlayed(playSteps({cashier::isIdle, returns}));
    expectReturnedBy(3);
}

INSTANTIATE_TEST_SUITE_P(At, OpeningAReturn, ::testing::ValuesIn(notOpenYet), nameOf);

const PowerFailure returnOpen[] = {
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

using OpenReturn = PowerCutAtAReturn;

TEST_P(OpenReturn, powerFails_returnIsOpenAndIsFinishedOnce)
{
    playUntil(GetParam(), {returns});
    EXPECT_EQ(savedDocument()["type"].toInt(), 25);
    expectInStep(savedDocument());

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::paysOut,
                            cashier::tries(cashier::opensTheReturn, "уже возвращена")}));
    expectReturnedBy(2);
}

INSTANTIATE_TEST_SUITE_P(At, OpenReturn, ::testing::ValuesIn(returnOpen), nameOf);

TEST_F(PowerCutAtAReturn, endSaved_returnIsFinishedAndNotOpenAgain)
{
    playUntil({"", At::AfterSave, 7}, {returns});

    expectPlayed(playSteps({cashier::isIdle, cashier::tries(cashier::opensTheReturn, "уже возвращена")}));
    expectReturnedBy(2);
    EXPECT_FALSE(printed(2).empty());
}

const PowerFailure returnUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "cancel"},  {"firstToBeSaved", At::BeforeSave, 3},
    {"secondAnswered", At::AnswerLost, 2, "cancel"}, {"secondToBeSaved", At::BeforeSave, 4},
    {"thirdAnswered", At::AnswerLost, 3, "cancel"},  {"thirdToBeSaved", At::BeforeSave, 5},
};

using ReturnWithOneUnsaved = PowerCutAtAReturn;

TEST_P(ReturnWithOneUnsaved, nextSubtotal_isRefusedByTheRegistryUntilTheDocumentIsCorrected)
{
    playUntil(GetParam(), {returns});
    EXPECT_EQ(registeredBy(savedDocument()).size(), validDispenses().size() + 1);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", "уже отменён"),
                            cashier::tries(R"({"key": "F6"})", "уже отменён")}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), validDispenses().size() + 1);

    correct("receipt.json");
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::paysOut}));
    expectReturnedBy(2);
}

TEST_P(ReturnWithOneUnsaved, cancelled_saleStaysClosed)
{
    playUntil(GetParam(), {returns});

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(2)["state"].toString(), "cancelled");
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), validDispenses().size() + 1);
}

INSTANTIATE_TEST_SUITE_P(At, ReturnWithOneUnsaved, ::testing::ValuesIn(returnUnsaved), nameOf);

class PowerCutAtAVoiding : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    void expectVoided()
    {
        EXPECT_EQ(finished(1)["state"].toString(), "annulled");
        EXPECT_EQ(files("putaside"), QStringList());
        EXPECT_EQ(registry.dispenses().size(), 3);
        expectNothingRegistered();
        expectInStep(finished(1));
    }
};

const PowerFailure voiding[] = {
    {"firstSent", At::RequestLost, 1, "cancel"},  {"firstSaved", At::AfterSave, 5},
    {"secondSent", At::RequestLost, 2, "cancel"}, {"secondSaved", At::AfterSave, 6},
    {"thirdSent", At::RequestLost, 3, "cancel"},  {"thirdSaved", At::AfterSave, 7},
    {"endToBeSaved", At::BeforeSave, 8},
};

using VoidingASuspendedDocument = PowerCutAtAVoiding;

TEST_P(VoidingASuspendedDocument, powerFails_documentStaysSuspendedAndTheNextAttemptVoidsIt)
{
    playUntil(GetParam(), {registers, cashier::suspends, cashier::voids});
    EXPECT_EQ(files("finished"), QStringList());
    expectInStep(suspended(1));

    expectPlayed(playSteps({cashier::isIdle, cashier::voids, cashier::isIdle}));
    expectVoided();
}

INSTANTIATE_TEST_SUITE_P(At, VoidingASuspendedDocument, ::testing::ValuesIn(voiding), nameOf);
INSTANTIATE_TEST_SUITE_P(Before, VoidingASuspendedDocument,
                         ::testing::Values(PowerFailure{"anyRequest", At::LongWork, 2}), nameOf);

TEST_F(PowerCutAtAVoiding, suspendedDocumentSaved_isVoidedAndNotSuspendedAsWell)
{
    playUntil({"", At::AfterSave, 8}, {registers, cashier::suspends, cashier::voids});

    expectPlayed(playSteps({cashier::isIdle, cashier::opensADocument}));
    expectVoided();
    EXPECT_EQ(savedDocument()["number"].toInt(), 2);
}

using VoidingASale = PowerCutAtAVoiding;

/// Fails at the same saves as the voiding of a suspended document: the fourth save is the closing instead of the
/// suspending.
TEST_P(VoidingASale, powerFails_saleStaysClosedAndTheNextAttemptVoidsIt)
{
    playUntil(GetParam(), {sells, cashier::voids});
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    expectInStep(finished(1));

    expectPlayed(playSteps({cashier::isIdle, cashier::voids, cashier::isIdle}));
    expectVoided();
}

INSTANTIATE_TEST_SUITE_P(At, VoidingASale, ::testing::ValuesIn(voiding), nameOf);
INSTANTIATE_TEST_SUITE_P(Before, VoidingASale, ::testing::Values(PowerFailure{"anyRequest", At::LongWork, 3}), nameOf);

TEST_F(PowerCutAtAVoiding, saleSaved_isVoided)
{
    playUntil({"", At::AfterSave, 8}, {sells, cashier::voids});

    expectPlayed(playSteps({cashier::isIdle, cashier::opensADocument}));
    expectVoided();
}

const PowerFailure voidingUnsaved[] = {
    {"firstAnswered", At::AnswerLost, 1, "cancel"},  {"firstToBeSaved", At::BeforeSave, 5},
    {"secondAnswered", At::AnswerLost, 2, "cancel"}, {"secondToBeSaved", At::BeforeSave, 6},
    {"thirdAnswered", At::AnswerLost, 3, "cancel"},  {"thirdToBeSaved", At::BeforeSave, 7},
};

using VoidingASaleWithOneUnsaved = PowerCutAtAVoiding;

TEST_P(VoidingASaleWithOneUnsaved, nextVoidingAndReturn_areRefusedByTheRegistryUntilTheSaleIsCorrected)
{
    playUntil(GetParam(), {sells, cashier::voids});
    EXPECT_EQ(registeredBy(finished(1)).size(), validDispenses().size() + 1);

    expectPlayed(
        playSteps({cashier::isIdle, cashier::tries(cashier::voids, "уже отменён"), cashier::opensTheWholeReturn,
                   cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", "уже отменён"),
                   cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");

    correct("finished/00000001.json");
    expectPlayed(playSteps({cashier::isIdle, cashier::voids, cashier::isIdle}));
    expectVoided();
}

INSTANTIATE_TEST_SUITE_P(At, VoidingASaleWithOneUnsaved, ::testing::ValuesIn(voidingUnsaved), nameOf);

} // namespace
