// SPDX-License-Identifier: MIT
// Documents are suspended, resumed and voided, and sales are returned.

#include "cashiersteps.h"
#include "pharmacy.h"

#include <gmock/gmock.h>

namespace
{

const QByteArray registers = cashier::findsTheDocument + ", " + cashier::subtotal;
const QByteArray sells = registers + ", " + cashier::pays;

class Documents : public Pharmacy
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }

    /// Document number 1 is voided and each of its dispenses cancelled.
    void expectVoided()
    {
        EXPECT_EQ(finished(1)["state"].toString(), "annulled");
        EXPECT_EQ(files("putaside"), QStringList());
        EXPECT_EQ(registry.dispenses().size(), 3);
        EXPECT_EQ(validDispenses(), QStringList());
        EXPECT_EQ(registeredBy(finished(1)), QStringList());
    }
};

using Suspended = Documents;

TEST_F(Suspended, resumed_nextPrescriptionIsServedWithoutAskingForTheCard)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::suspends, cashier::opensADocument, cashier::suspends,
                            R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "2"}, {"wait": "documentTable"},
                             {"row": 1, "in": "documentTable"}, {"key": "Return"})",
                            cashier::findsTheDocument, R"({"contains": "1100000000000002", "in": "documentInfoLabel"})",
                            cashier::servesTheNext, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["positions"].toArray().size(), 4);
    EXPECT_EQ(registeredBy(finished(1)).size(), 4);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
    EXPECT_EQ(files("putaside"), QStringList("00000002.json"));
}

TEST_F(Suspended, registeredAndResumed_isNotSentAgain)
{
    expectPlayed(playSteps({registers, cashier::suspends, cashier::resumes, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.requestsTo("register"), 3);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

using Voiding = Documents;

TEST_F(Voiding, suspendedFromTheList_cancelsItsDispenses)
{
    expectPlayed(playSteps({registers, cashier::suspends, cashier::opensTheDocuments,
                            R"({"row": 0, "in": "documentTable"}, {"click": "annulButton"}, {"click": "yesButton"},
                             {"contains": "Аннулирован", "in": "documentTable"}, {"key": "Esc"})",
                            cashier::isIdle}));
    expectVoided();
}

TEST_F(Voiding, suspendedByNumberBetweenDocuments_cancelsItsDispenses)
{
    expectPlayed(playSteps({registers, cashier::suspends, cashier::voids, cashier::isIdle}));
    expectVoided();
}

TEST_F(Voiding, suspendedWhileAnotherIsOpen_cancelsItsDispensesAndLeavesTheOther)
{
    expectPlayed(playSteps({registers, cashier::suspends, cashier::servesAnotherCard, cashier::subtotal, cashier::voids,
                            R"({"contains": "Амоксидар", "in": "receiptTable"},
                             {"contains": "1100000000000001", "in": "documentInfoLabel"},
                             {"receipt": {"number": 2, "positions": [{"extendedOptions": {"status": "dispensed"}}]}})",
                            cashier::removesTheFirst, R"({"receipt": {"number": 2, "positions": []}})"}));
    EXPECT_EQ(finished(1)["state"].toString(), "annulled");
    EXPECT_EQ(registeredBy(finished(1)), QStringList());
    EXPECT_EQ(registry.dispenses().size(), 4);
    EXPECT_EQ(validDispenses(), QStringList());
}

TEST_F(Voiding, closedSale_cancelsItsDispensesAndCannotBeReturnedAfterwards)
{
    expectPlayed(playSteps({sells, cashier::voids, R"({"contains": "аннулирован", "in": "statusMessageLabel"})",
                            cashier::tries(cashier::opensTheReturn, "нельзя вернуть")}));
    expectVoided();
}

TEST_F(Voiding, registryFailsAtTheSecond_documentKeepsWhatIsCancelledAndTheNextAttemptCancelsTheRest)
{
    registry.orderFault(
        {{"endpoint", "cancel"}, {"nth", 2}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(playSteps({sells, cashier::tries(cashier::voids, "Идут работы"), cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), 2);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));

    expectPlayed(playSteps({cashier::isIdle, cashier::voids, cashier::isIdle}));
    expectVoided();
}

using Return = Documents;

TEST_F(Return, closedSale_isPaidOutAndPrintedOnceAndItsDispensesAreCancelled)
{
    expectPlayed(playSteps(
        {sells, cashier::opensTheWholeReturn, R"({"contains": "Возврат № 2", "in": "receiptNumberLabel"})",
         cashier::findsTheDocument, cashier::subtotal, R"({"contains": "отпуск отменён", "in": "receiptTable"})",
         cashier::paysOut, cashier::tries(cashier::opensTheReturn, "уже возвращена документом № 2")}));
    const QJsonObject document = finished(2);
    EXPECT_EQ(document["type"].toInt(), 25);
    EXPECT_EQ(document["state"].toString(), "closed");
    EXPECT_EQ(document["takesBack"].toInt(), 1);
    EXPECT_EQ(finished(1)["takenBackBy"].toInt(), 2);
    EXPECT_EQ(registry.dispenses().size(), 3);
    EXPECT_EQ(validDispenses(), QStringList());
    EXPECT_EQ(registeredBy(finished(1)), QStringList());
    EXPECT_THAT(printed(2), ::testing::HasSubstr("по чеку № 1"));
    EXPECT_TRUE(savedDocument().isEmpty());
}

TEST_F(Return, cancelledBeforeItsSubtotal_leavesTheSaleAsItWas)
{
    expectPlayed(playSteps({sells}));
    const QJsonArray sold = finished(1)["positions"].toArray();
    expectPlayed(playSteps({cashier::isIdle, cashier::opensTheWholeReturn, cashier::findsTheDocument,
                            cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(2)["state"].toString(), "cancelled");
    EXPECT_EQ(finished(1)["positions"].toArray(), sold);
    EXPECT_EQ(registry.requestsTo("cancel"), 0);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Return, cancelledAfterTheRegistryFailedAtTheSecond_saleKeepsWhatIsCancelledAndTheNextReturnCancelsTheRest)
{
    registry.orderFault(
        {{"endpoint", "cancel"}, {"nth", 2}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(
        playSteps({sells, cashier::opensTheWholeReturn, cashier::findsTheDocument,
                   cashier::tries(R"({"key": "F6"})", "Идут работы"), cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), 2);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));

    expectPlayed(playSteps({cashier::isIdle, cashier::opensTheWholeReturn, cashier::findsTheDocument, cashier::subtotal,
                            cashier::paysOut}));
    EXPECT_EQ(finished(1)["takenBackBy"].toInt(), 3);
    EXPECT_EQ(validDispenses(), QStringList());
    EXPECT_EQ(registry.requestsTo("cancel"), 4);
}

} // namespace
