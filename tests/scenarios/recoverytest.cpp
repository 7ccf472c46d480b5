// SPDX-License-Identifier: MIT
// An answer of the registry was lost. The plug-in that settles lost answers brings register and registry together, or
// the cashier decides.

#include "powercuttest.h"

#include <QDir>
#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{

using At = PowerFailure::At;

const QByteArray registers = cashier::findsTheDocument + ", " + cashier::subtotal;
const QByteArray sells = registers + ", " + cashier::pays;
const QByteArray registeredLine = "Отпуск записан в реестре под номером";
const QByteArray cancelledLine = "Отпуск в реестре отменён";

/// A last step that outlasts the register.
const QByteArray untilTheEnd = R"({"wait": "neverThere", "seconds": 50})";

using cashier::reads;

const QByteArray findsTheMark = R"({"contains": "состояние неизвестно", "in": "receiptTable"})";
const QByteArray seesTheList = R"({"wait": "dispenseChoiceForm"}, {"enabled": false, "in": "chooseButton"})";
/// Two keys: one for the row, one to confirm it.
const QByteArray choosesTheFirst = seesTheList + R"(, {"key": "Down"}, {"key": "Return"},
                                                   {"visible": false, "in": "dispenseChoiceForm"})";
const QByteArray decidesLater = seesTheList + R"(, {"key": "Esc"}, {"visible": false, "in": "dispenseChoiceForm"})";
const QByteArrayList suspendsAndServesTheNext{cashier::suspends, cashier::opensADocument,
                                              R"({"type": "2990000000019", "into": "searchLineEdit"}, {"key": "Return"},
       {"contains": "Амоксидар", "in": "receiptTable"})",
                                              cashier::toThePayment, cashier::pays};
/// The last entry of the menu.
const QByteArray reconciles = R"({"key": "F10"}, {"wait": "menuForm"}, {"click": "reconciliationEntry"})";

class Recovering : public PowerCutTest, public ::testing::WithParamInterface<PowerFailure>
{
protected:
    void SetUp() override
    {
        PowerCutTest::SetUp();
        configure("RestClient:journal", "*/MedicationDispense/*");
        configure("FunctionKey.reconciliationEntry:text", "Сверка с реестром");
        configure("FunctionKey.reconciliationEntry:action", "2001");
        configure("Menu:entries", "putAsideEntry,documentsEntry,takeBackEntry,annulEntry,cancelReceiptEntry,"
                                  "reconciliationEntry,lockEntry,helpEntry");
        install(PLUGIN_FOLDER "/libelectronicprescription.so");
        install(RECOVERY_PLUGIN);
    }

    Outcome playsRecovering(const QByteArrayList& steps) { return playSteps(steps, {"--plugins", pluginFolder()}); }
    void startsRecovering(const QByteArrayList& steps)
    {
        startSteps(steps + QByteArrayList{untilTheEnd}, {"--plugins", pluginFolder()});
    }

    /// The prescriptions are registered once each, and the sale is closed.
    void expectSold()
    {
        EXPECT_EQ(finished(1)["state"].toString(), "closed");
        expectRegisteredOnce(finished(1));
        EXPECT_TRUE(savedDocument().isEmpty());
    }
    /// Each prescription was registered and cancelled once, and the document says so.
    void expectAllCancelled(const QJsonObject& document, const QString& state)
    {
        EXPECT_EQ(document["state"].toString(), state);
        EXPECT_EQ(registry.dispenses().size(), 3);
        expectNothingRegistered();
        expectInStep(document);
    }
    QString report() const
    {
        for (const QString& name : files("printed")) {
            if (name.startsWith("report-") && name.endsWith(".txt")) {
                QFile file(dataFolder() + "/printed/" + name);
                return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).simplified() : QString();
            }
        }
        return {};
    }
};

/// What the cashier reads after the restart.
QByteArray foundOf(const PowerFailure& failure)
{
    if (failure.at == At::RequestLost) {
        return *failure.endpoint == 'r' ? "Отпуска в реестре нет" : "Отпуск в реестре не отменён";
    }
    return failure.name[0] == 'c' ? cancelledLine : registeredLine;
}

using RecoveringASubtotal = Recovering;

TEST_P(RecoveringASubtotal, powerFails_nextStartFindsItAndTheSubtotalRegistersWhatIsMissing)
{
    playUntil(GetParam(), {cashier::findsTheDocument, cashier::subtotal});
    registry.forgetRequests();

    expectPlayed(
        playsRecovering({reads(foundOf(GetParam())), cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectSold();
    EXPECT_EQ(registry.requestsTo("by-card") > 0, GetParam().at != At::BeforeSave) << "an answer needs no network";
}

INSTANTIATE_TEST_SUITE_P(At, RecoveringASubtotal,
                         ::testing::Values(PowerFailure{"secondSent", At::RequestLost, 2, "register"},
                                           PowerFailure{"firstBooked", At::AnswerLost, 1, "register"},
                                           PowerFailure{"secondToBeSaved", At::BeforeSave, 2}),
                         nameOf);

const PowerFailure oneCancellation[] = {
    {"cancelAnswered", At::AnswerLost, 1, "cancel"},
    {"cancelToBeSaved", At::BeforeSave, 4},
};

using RecoveringARemoval = Recovering;

TEST_P(RecoveringARemoval, powerFails_nextStartFindsItAndThePositionIsRemoved)
{
    playUntil(GetParam(), {registers, cashier::removesTheSecond});

    expectPlayed(playsRecovering({reads(foundOf(GetParam())), cashier::findsTheDocument, cashier::removesTheSecond,
                                  cashier::twoPositionsAreLeft, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["positions"].toArray().size(), 2);
    expectInStep(finished(1));
    EXPECT_TRUE(registry.dispensesOf("rx-2002").value(0).cancelled);
}

INSTANTIATE_TEST_SUITE_P(At, RecoveringARemoval, ::testing::ValuesIn(oneCancellation), nameOf);

using RecoveringACancellation = Recovering;

TEST_P(RecoveringACancellation, powerFails_nextStartFindsItAndTheDocumentIsCancelled)
{
    playUntil(GetParam(), {registers, cashier::cancelsTheDocument});

    expectPlayed(playsRecovering(
        {reads(foundOf(GetParam())), cashier::findsTheDocument, cashier::cancelsTheDocument, cashier::isIdle}));
    expectAllCancelled(finished(1), "cancelled");
}

INSTANTIATE_TEST_SUITE_P(At, RecoveringACancellation,
                         ::testing::Values(PowerFailure{"secondSent", At::RequestLost, 2, "cancel"},
                                           PowerFailure{"cancelAnswered", At::AnswerLost, 2, "cancel"}),
                         nameOf);

using RecoveringAVoiding = Recovering;

TEST_P(RecoveringAVoiding, suspendedDocument_nextAttemptFindsItAndVoidsIt)
{
    playUntil(GetParam(), {registers, cashier::suspends, cashier::voids});

    expectPlayed(playsRecovering({cashier::isIdle, cashier::voids, reads(foundOf(GetParam())), cashier::isIdle}));
    expectAllCancelled(finished(1), "annulled");
}

TEST_P(RecoveringAVoiding, closedSale_nextAttemptFindsItAndVoidsIt)
{
    playUntil(GetParam(), {sells, cashier::voids});

    expectPlayed(playsRecovering({cashier::isIdle, cashier::voids, reads(foundOf(GetParam())), cashier::isIdle}));
    expectAllCancelled(finished(1), "annulled");
}

INSTANTIATE_TEST_SUITE_P(At, RecoveringAVoiding,
                         ::testing::Values(PowerFailure{"cancelAnswered", At::AnswerLost, 2, "cancel"}), nameOf);

using RecoveringAReturn = Recovering;

TEST_P(RecoveringAReturn, powerFails_nextStartFindsItAndTheReturnIsPaidOut)
{
    expectPlayed(playsRecovering({sells}));
    playUntil(GetParam(),
              {cashier::opensTheWholeReturn, cashier::findsTheDocument, cashier::subtotal, cashier::paysOut});

    expectPlayed(
        playsRecovering({reads(foundOf(GetParam())), cashier::findsTheDocument, cashier::subtotal, cashier::paysOut}));
    expectAllCancelled(finished(2), "closed");
    expectInStep(finished(1));
}

TEST_P(RecoveringAReturn, powerFailsAndTheReturnIsCancelled_saleSaysWhatTheRegistryHolds)
{
    expectPlayed(playsRecovering({sells}));
    playUntil(GetParam(),
              {cashier::opensTheWholeReturn, cashier::findsTheDocument, cashier::subtotal, cashier::paysOut});

    expectPlayed(playsRecovering(
        {reads(foundOf(GetParam())), cashier::findsTheDocument, cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), 1);
    expectInStep(finished(1));
}

INSTANTIATE_TEST_SUITE_P(At, RecoveringAReturn,
                         ::testing::Values(PowerFailure{"cancelAnswered", At::AnswerLost, 2, "cancel"},
                                           PowerFailure{"cancelToBeSaved", At::BeforeSave, 4}),
                         nameOf);

TEST_F(Recovering, undecidedReturnWhileTheRegistryIsDown_isSuspendedTheNextCustomerServedAndItIsPaidOutLater)
{
    restartRegistry({"--data", dataFolder() + "/registry.sqlite"});
    expectPlayed(playsRecovering({sells}));
    playUntil({"", At::AnswerLost, 2, "cancel"},
              {cashier::opensTheWholeReturn, cashier::findsTheDocument, R"({"key": "F6"})"});
    registry.stop();

    expectPlayed(
        playsRecovering(QByteArrayList{reads("Возврат можно отложить"), findsTheMark} + suspendsAndServesTheNext));
    EXPECT_EQ(finished(3)["state"].toString(), "closed");
    EXPECT_EQ(suspended(2)["positions"].toArray().size(), 3);

    restartRegistry({"--data", dataFolder() + "/registry.sqlite"});
    expectPlayed(
        playsRecovering({cashier::opensTheDocuments, R"({"row": 1, "in": "documentTable"}, {"click": "takeUpButton"})",
                         reads(cancelledLine), cashier::findsTheDocument, cashier::subtotal, cashier::paysOut}));
    expectAllCancelled(finished(2), "closed");
    expectInStep(finished(1));
}

TEST_F(Recovering, undecidedReturnIsCancelled_noPositionStaysUnknown)
{
    expectPlayed(playsRecovering({sells}));
    registry.orderFault({{"endpoint", "cancel"}, {"nth", 1}, {"fault", "close"}, {"carriedOut", true}});
    expectPlayed(playsRecovering(
        {cashier::opensTheWholeReturn, cashier::findsTheDocument, R"({"key": "F6"})",
         R"({"wait": "messageForm"}, {"key": "Return"}, {"visible": false, "in": "messageForm"})", findsTheMark,
         R"({"key": "F9"}, {"click": "yesButton"})", reads(cancelledLine), cashier::isIdle}));
    EXPECT_EQ(finished(2)["state"].toString(), "cancelled");
    for (const QJsonValue position : finished(2)["positions"].toArray()) {
        EXPECT_FALSE(optionsOf(position.toObject()).contains("recovery"));
    }
    expectInStep(finished(1));
}

/// The registry has booked the second registration, and the power failed before its answer came.
class Undecided : public Recovering
{
protected:
    void loseTheAnswer()
    {
        playUntil({"", At::AnswerLost, 2, "register"}, {cashier::findsTheDocument, cashier::subtotal});
        registry.forgetRequests();
    }
};

TEST_F(Undecided, registryIsDown_documentIsSuspendedTheNextCustomerServedAndResumingSettlesIt)
{
    restartRegistry({"--data", dataFolder() + "/registry.sqlite"});
    loseTheAnswer();
    registry.stop();

    expectPlayed(playsRecovering(
        QByteArrayList{reads("Касса не знает, что записано в реестре: рецепт БД 4100111"), findsTheMark} +
        suspendsAndServesTheNext));
    EXPECT_EQ(finished(2)["state"].toString(), "closed");
    EXPECT_EQ(suspended(1)["positions"].toArray().size(), 3);

    restartRegistry({"--data", dataFolder() + "/registry.sqlite"});
    expectPlayed(
        playsRecovering({cashier::opensTheDocuments, R"({"row": 1, "in": "documentTable"}, {"click": "takeUpButton"})",
                         reads(registeredLine), cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectSold();
}

TEST_F(Undecided, powerFailsAgainBeforeTheDecisionIsSaved_nextStartFindsItAgain)
{
    loseTheAnswer();
    playUntil({"", At::BeforeSave, 2}, {}); // the first save is that of the mark
    EXPECT_EQ(optionsOf(savedPositions()[1].toObject())["recovery"].toString(), "unknown");

    expectPlayed(playsRecovering({reads(registeredLine), cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectSold();
}

TEST_F(Undecided, registryTellsNoIds_cashierChoosesWithTwoKeysAndTheSaleCloses)
{
    registry.changeRules({{"showDispenseIds", false}});
    loseTheAnswer();

    expectPlayed(playsRecovering({choosesTheFirst, reads("Отпуск записан в реестре"), cashier::findsTheDocument,
                                  cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(registry.dispensesOf("rx-2002").size(), 1) << "nothing is booked twice";
}

TEST_F(Undecided, registryTellsNoIdsAndCashierDecidesLater_subtotalAsksAgain)
{
    registry.changeRules({{"showDispenseIds", false}});
    loseTheAnswer();

    expectPlayed(playsRecovering({decidesLater, findsTheMark, R"({"key": "F6"})", decidesLater, findsTheMark}));
    EXPECT_EQ(registry.requestsTo("register"), 0) << "nothing goes out before the decision";

    expectPlayed(playsRecovering({choosesTheFirst, reads("Отпуск записан в реестре"), cashier::findsTheDocument,
                                  cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.dispensesOf("rx-2002").size(), 1);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
}

TEST_F(Undecided, anotherTillDispensedTheSame_cashierChoosesFromBoth)
{
    loseTheAnswer();
    const RegistryProcess::Dispense ours = registry.dispensesOf("rx-2002").value(0);
    registry.dispenseElsewhere({{"prescription", "rx-2002"},
                                {"quantity", ours.quantity},
                                {"pharmacy", "100000017"},
                                {"pharmacyName", "Аптека № 17"}});
    ASSERT_EQ(registry.dispensesOf("rx-2002").size(), 2);

    expectPlayed(playsRecovering(
        {choosesTheFirst, reads(registeredLine), cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.dispensesOf("rx-2002").size(), 2);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
}

TEST_F(Undecided, pluginIsUninstalledBeforeTheDecision_nothingIsSentUntilItIsBack)
{
    registry.changeRules({{"showDispenseIds", false}});
    loseTheAnswer();
    expectPlayed(playsRecovering({decidesLater, findsTheMark}));
    EXPECT_EQ(savedPositions()[1].toObject()["undecided"].toArray(), QJsonArray{"dispenserecovery"});

    ASSERT_TRUE(QFile::remove(pluginFolder() + "/libdispenserecovery.so"));
    ASSERT_TRUE(QFile::remove(pluginFolder() + "/dispenserecovery"));
    const char* why = "позицию № 2 ведёт модуль «dispenserecovery», а он не работает";
    expectPlayed(playsRecovering({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", why),
                                  cashier::tries(R"({"key": "F12"})", why),
                                  cashier::tries(R"({"row": 1, "in": "receiptTable"}, {"key": "F8"})", why),
                                  cashier::tries(R"({"key": "F9"})", why), cashier::suspends, cashier::resumes,
                                  cashier::tries(R"({"key": "F6"})", why)}));
    EXPECT_EQ(registry.requestsTo("register"), 0);
    EXPECT_EQ(registry.requestsTo("cancel"), 0);

    install(RECOVERY_PLUGIN);
    expectPlayed(playsRecovering({choosesTheFirst, reads("Отпуск записан в реестре"), cashier::findsTheDocument,
                                  cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.dispensesOf("rx-2002").size(), 1) << "nothing is booked twice";
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_FALSE(finished(1)["positions"][1].toObject().contains("undecided"));
}

TEST_F(Undecided, endedWhileTheRegistryIsAsked_statusIsZeroAndTheNextStartFindsIt)
{
    loseTheAnswer();
    registry.orderFault({{"endpoint", "by-card"}, {"fault", "delay"}, {"delay", 1500}});
    startsRecovering({R"({"wait": "busyScreen"})"});
    ASSERT_TRUE(waitForRequests("by-card", 1));
    sendSignal(SIGTERM);
    expectPlayed(waitForEnd());
    EXPECT_EQ(savedPositions().size(), 3);

    expectPlayed(playsRecovering({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectSold();
}

TEST_F(Undecided, endedWhileTheListIsOpen_statusIsZeroAndTheNextStartAsksAgain)
{
    registry.changeRules({{"showDispenseIds", false}});
    loseTheAnswer();
    startsRecovering({seesTheList, R"({"say": "the list is open"})"});
    ASSERT_TRUE(waitForOutput("the list is open"));
    sendSignal(SIGTERM);
    expectPlayed(waitForEnd());
    EXPECT_EQ(registry.requestsTo("register"), 0);

    expectPlayed(playsRecovering({choosesTheFirst, reads("Отпуск записан в реестре"), cashier::findsTheDocument,
                                  cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(registry.dispensesOf("rx-2002").size(), 1);
}

using Reconciling = Undecided;

TEST_F(Reconciling, closedSuspendedAndOpenDocument_areComparedShownAndPrinted)
{
    expectPlayed(playsRecovering({sells, cashier::servesAnotherCard, cashier::suspends}));
    registry.dispenseElsewhere(
        {{"prescription", "rx-2003"}, {"quantity", 7}, {"pharmacy", "100000017"}, {"pharmacyName", "Аптека № 17"}});

    playUntil({"", At::AnswerLost, 1, "register"}, {cashier::servesAnotherCard, R"({"key": "F6"})"});
    registry.orderFault({{"endpoint", "by-card"}, {"fault", "status"}});

    expectPlayed(playsRecovering(
        {reads("Касса не знает"), findsTheMark, reconciles,
         R"({"wait": "messageForm"}, {"contains": "Документ 3. Отпуск записан в реестре под номером", "in": "messageLabel"},
          {"contains": "Документ 1. В реестре есть отпуск этой аптеки, которого нет в документах кассы: рецепт БД 4100148",
           "in": "messageLabel"})",
         reads("Сверка закончена. Сверено документов: 3"),
         R"({"contains": "зарегистрирован", "in": "receiptTable"})"}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 1);
    EXPECT_EQ(registeredBy(suspended(2)).size(), 0);
    EXPECT_TRUE(report().contains("Сверка с реестром")) << qPrintable(report());
    EXPECT_TRUE(report().contains("Документ 3. Отпуск записан в реестре под номером")) << qPrintable(report());
    EXPECT_TRUE(report().contains("Сверка закончена. Сверено документов: 3.")) << qPrintable(report());
}

const QByteArray statusIsEmpty = R"({"expect": "", "in": "statusMessageLabel"})";
/// What the register remarks on the keys of the power-cut plug-in is all that is left.
const QByteArray warningIsGone =
    R"({"expect": "Замечаний к настройкам: 2. Сообщите администратору: подробности в журнале.",
        "in": "statusMessageLabel"})";

QByteArray statusSays(const QByteArray& words)
{
    return R"({"contains": ")" + words + R"(", "in": "statusMessageLabel"})";
}

TEST_F(Reconciling, voidingOfAClosedSaleWasCutOff_theStartSaysSoAndTheComparisonDecides)
{
    playUntil({"", At::AnswerLost, 2, "cancel"}, {sells, cashier::voids});

    expectPlayed(playsRecovering(
        {statusSays("Не решено, что записано в реестре. Документы: 1. Дайте команду «Сверка с реестром»."), reconciles,
         R"({"wait": "messageForm"}, {"contains": "Документ 1. Отпуск в реестре отменён, а продажа закрыта",
             "in": "messageLabel"})",
         reads("Сверка закончена. Сверено документов: 1."), warningIsGone}));
    EXPECT_EQ(registeredBy(finished(1)).size(), 1);
    expectInStep(finished(1));
    expectPlayed(playsRecovering({cashier::isIdle, warningIsGone}));
}

TEST_F(Reconciling, documentIsLost_itsRequestIsReportedUntilTheCashierDecides)
{
    loseTheAnswer();
    ASSERT_TRUE(QFile::remove(dataFolder() + "/receipt.json"));
    const QByteArray showsTheRequest = R"({"wait": "messageForm"},
        {"contains": "Документа 1 на кассе нет. Запрос не решён: рецепт rx-2002", "in": "messageLabel"})";

    // Of the two registrations the first one was confirmed: it is reported once, the other one until it is decided.
    expectPlayed(playsRecovering({statusSays("Документы: 1."), reconciles, decidesLater, showsTheRequest,
                                  reads("Документа 1 на кассе нет. Отпуск записан в реестре: рецепт rx-2001"),
                                  statusSays("Документы: 1.")}));
    EXPECT_TRUE(report().contains("Документа 1 на кассе нет. Запрос не решён: рецепт rx-2002")) << qPrintable(report());
    expectPlayed(
        playsRecovering({statusSays("Документы: 1."), reconciles, choosesTheFirst,
                         reads("Документа 1 на кассе нет. Отпуск записан в реестре: рецепт rx-2002"), warningIsGone}));
}

TEST_F(Recovering, journalIsNotConfigured_theStatusLineSaysWhyNothingIsSettled)
{
    configure("RestClient:journal", "");
    expectPlayed(
        playsRecovering({cashier::findsTheDocument, R"({"key": "Up"})",
                         statusSays("Модуль не подключён: dispenserecovery: в настройке RestClient:journal")}));
}

TEST_F(Recovering, journalIsDamaged_theStatusLineSaysSoUntilAComparison)
{
    QFile journal(dataFolder() + "/requests.journal");
    ASSERT_TRUE(journal.open(QIODevice::WriteOnly));
    journal.write("no journal\n");
    journal.close();
    expectPlayed(
        playsRecovering({cashier::findsTheDocument, R"({"key": "Up"})", statusSays("Журнал запросов был повреждён"),
                         reconciles, reads("Сверка закончена."), statusIsEmpty}));
}

TEST_F(Reconciling, decisionIsPutOff_otherDocumentsAreComparedAllTheSame)
{
    expectPlayed(playsRecovering({sells}));
    registry.changeRules({{"showDispenseIds", false}});
    playUntil({"", At::AnswerLost, 1, "register"}, {cashier::servesAnotherCard, R"({"key": "F6"})"});

    expectPlayed(playsRecovering(
        {decidesLater, reconciles, decidesLater,
         R"({"wait": "messageForm"}, {"contains": "Документ 2. Не решено: рецепт БД 4100037", "in": "messageLabel"})",
         reads("Сверка закончена. Сверено документов: 1, не решено: 1."), findsTheMark}));
}

} // namespace
