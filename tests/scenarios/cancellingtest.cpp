// SPDX-License-Identifier: MIT
// Registered dispenses are cancelled before the document is paid: of one position, and of the whole document.

#include "cashiersteps.h"
#include "pharmacy.h"
#include "request.h"

namespace
{

class Cancelling : public Pharmacy
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }

    /// The document is cancelled, and each of its dispenses was cancelled once.
    void expectAllCancelled()
    {
        EXPECT_EQ(finished(1)["state"].toString(), "cancelled");
        EXPECT_EQ(finished(1)["positions"].toArray().size(), 3);
        EXPECT_TRUE(savedDocument().isEmpty());
        EXPECT_EQ(registry.dispenses().size(), 3);
        EXPECT_EQ(validDispenses(), QStringList());
        EXPECT_EQ(registeredBy(finished(1)), QStringList());
        EXPECT_EQ(registry.requestsTo("cancel"), 3);
        EXPECT_EQ(registry.statusOf("rx-2001"), "active");
    }
};

TEST_F(Cancelling, registeredPosition_isRemovedAndItsDispenseCancelled)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::removesTheFirst,
                            R"({"receipt": {"positions": [{"number": 2}, {"number": 3}]}},
                             {"visible": false, "in": "paymentPanel"})"}));

    const auto dispenses = registry.dispensesOf("rx-2001");
    ASSERT_EQ(dispenses.size(), 1);
    EXPECT_TRUE(dispenses[0].cancelled);
    EXPECT_EQ(registry.statusOf("rx-2001"), "active");
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
    const QJsonObject request = registry.journal().last().toObject();
    EXPECT_EQ(request["method"].toString(), "POST");
    EXPECT_EQ(request["target"].toString(), "/MedicationDispense/" + dispenses[0].id + "/$set-as-error");
    EXPECT_EQ(QJsonDocument::fromJson(request["body"].toString().toUtf8()), QJsonDocument(QJsonObject()));
    EXPECT_EQ(header(request, "Content-Type"), "application/json; charset=utf-8");
    EXPECT_TRUE(header(request, "Authorization").startsWith("Bearer "));
}

TEST_F(Cancelling, positionNotYetRegistered_isRemovedWithoutARequest)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::removesTheFirst,
                            R"({"receipt": {"positions": [{"number": 2}, {"number": 3}]}})"}));
    EXPECT_EQ(registry.requestedPaths(), QStringList());
}

TEST_F(Cancelling, cashierSaysNo_everythingStaysAsItWas)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal,
                            R"({"key": "F9"}, {"wait": "questionForm"}, {"key": "Return"},
                             {"visible": false, "in": "questionForm"}, {"key": "F8"}, {"wait": "questionForm"},
                             {"key": "Esc"}, {"visible": false, "in": "questionForm"})",
                            cashier::findsTheDocument}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(Cancelling, documentByItsKey_everyDispenseIsCancelled)
{
    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::cancelsTheDocument, cashier::isIdle}));
    expectAllCancelled();
}

TEST_F(Cancelling, documentAtItsPayment_everyDispenseIsCancelled)
{
    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::toThePayment, cashier::cancelsTheDocument, cashier::isIdle}));
    expectAllCancelled();
}

TEST_F(Cancelling, documentFromTheMenu_everyDispenseIsCancelled)
{
    expectPlayed(playSteps(
        {cashier::findsTheDocument, cashier::subtotal, cashier::cancelsTheDocumentFromTheMenu, cashier::isIdle}));
    expectAllCancelled();
}

TEST_F(Cancelling, registryFailsAtTheSecond_documentStaysAndTheNextSubtotalRegistersTheFirstAgain)
{
    registry.orderFault(
        {{"endpoint", "cancel"}, {"nth", 2}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal,
                            cashier::tries(cashier::cancelsTheDocument, "Идут работы"),
                            R"({"contains": "1,49 | отпуск отменён", "in": "receiptTable"},
                             {"contains": "0,46 | зарегистрирован", "in": "receiptTable"})"}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 2);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.dispenses().size(), 4);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Cancelling, registryFailsAtTheSecondDuringThePayment_nothingIsSoldUnregistered)
{
    registry.orderFault(
        {{"endpoint", "cancel"}, {"nth", 2}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::toThePayment,
                   cashier::tries(cashier::cancelsTheDocument, "Идут работы"), R"({"key": "Return", "times": 3})",
                   R"({"visible": false, "in": "payButton"}, {"receipt": {"state": "open"}})"}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 2);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::pays}));
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Cancelling, positionRefusedByTheRegistry_staysAndIsStillRegistered)
{
    registry.orderFault({{"endpoint", "cancel"}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal,
                            cashier::tries(cashier::removesTheFirst, "Идут работы"),
                            R"({"contains": "Удаление позиции не выполнено", "in": "statusMessageLabel"})"}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

} // namespace
