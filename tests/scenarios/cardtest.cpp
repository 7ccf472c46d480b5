// SPDX-License-Identifier: MIT
// Payments by card with the demo terminal: its answers, and crashes while it works.

#include "cashiersteps.h"
#include "patience.h"
#include "pharmacy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{

using ::testing::HasSubstr;

/// Sells for 12,40 up to the payment.
const QByteArray atThePayment = R"({"key": "F2"}, {"scan": "2990000000019"},
    {"contains": "Амоксидар", "in": "receiptTable"}, )" +
                                cashier::toThePayment + R"(, {"enabled": true, "in": "cardButton"})";
const QByteArray byCard = R"({"key": "F11"})";
const QByteArray readsAndGoesOn =
    R"({"wait": "messageForm"}, {"key": "Return"}, {"visible": false, "in": "messageForm"})";

class CardPayments : public Pharmacy
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        configure(u"DemoCardTerminal:enabled"_s, u"true"_s);
        configure(u"DemoCardTerminal:seconds"_s, u"0"_s);
    }
    void answer(const char* outcome) { configure(u"DemoCardTerminal:outcome"_s, QString::fromLatin1(outcome)); }
    static QStringList terminalPlugin() { return {u"--plugins"_s, QFileInfo(QString::fromUtf8(DEMO_TERMINAL)).path()}; }
    Outcome playWithTerminal(const QByteArrayList& steps) { return playSteps(steps, terminalPlugin()); }
    /// What the terminal took in all, in kopecks.
    qint64 taken() const
    {
        qint64 sum = 0;
        QFile journal(dataFolder() + u"/democardterminal.jsonl"_s);
        while (journal.isOpen() || journal.open(QIODevice::ReadOnly)) {
            const QByteArray line = journal.readLine();
            if (line.isEmpty()) {
                break;
            }
            const QJsonObject operation = QJsonDocument::fromJson(line).object();
            const qint64 kopecks = operation["kopecks"_L1].toInteger();
            sum += operation["kind"_L1] == u"refund"_s ? -kopecks : kopecks;
        }
        return sum;
    }
    bool waitUntilTheTerminalWorks() const
    {
        return QTest::qWaitFor([this] { return taken() > 0; }, patience);
    }
    /// The card operations of a document as "kind state", in order.
    static QStringList operations(const QJsonObject& document)
    {
        QStringList words;
        for (const QJsonValue& operation : document["cardOperations"_L1].toArray()) {
            words.append(operation["kind"_L1].toString() + u' ' + operation["state"_L1].toString());
        }
        return words;
    }
};

TEST_F(CardPayments, mixedSaleAndItsReturn_arePrintedAndTheCardGetsItsMoneyBack)
{
    expectPlayed(playWithTerminal({atThePayment, R"({"type": "10"})", byCard, cashier::isIdle}));
    EXPECT_EQ(taken(), 240);
    EXPECT_EQ(operations(finished(1)), QStringList(u"payment approved"_s));
    EXPECT_THAT(printed(1), HasSubstr("Получено наличными 10,00 Картой 2,40 Карта: **** 0000 Код авторизации: DEMO-"));

    expectPlayed(
        playWithTerminal({cashier::opensTheReturn, R"({"contains": "Возврат № 2", "in": "receiptNumberLabel"})",
                          R"({"key": "F12"}, {"expect": "На карту 2,40 BYN, наличными 10,00 BYN", "in": "chargedLabel"},
                                       {"key": "Return"})",
                          cashier::isIdle}));
    EXPECT_EQ(taken(), 0);
    EXPECT_EQ(finished(2)["state"_L1].toString(), u"closed"_s);
    EXPECT_THAT(printed(2), HasSubstr("Возвращено на карту 2,40"));
}

TEST_F(CardPayments, declinedAndBusy_cashierReadsItAndTakesCash)
{
    for (const char* outcome : {"decline", "busy"}) {
        answer(outcome);
        expectPlayed(playWithTerminal({atThePayment, byCard, readsAndGoesOn, R"({"key": "Return"})", cashier::isIdle}));
    }
    EXPECT_EQ(taken(), 0);
    for (const int number : {1, 2}) {
        EXPECT_EQ(finished(number)["state"_L1].toString(), u"closed"_s);
        EXPECT_FALSE(finished(number).contains("payments"_L1)) << "in cash alone";
    }
}

class LostAnswer : public CardPayments, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(LostAnswer, moneyWasTaken_isFoundAndTakenOnce)
{
    answer(GetParam());
    expectPlayed(playWithTerminal({atThePayment, byCard, readsAndGoesOn, cashier::isIdle}));
    EXPECT_EQ(taken(), 1240);
    EXPECT_EQ(operations(finished(1)), QStringList(u"payment approved"_s));
}

INSTANTIATE_TEST_SUITE_P(, LostAnswer, ::testing::Values("loseTaken", "throw"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(CardPayments, terminalNeverKnows_cashierSettlesItByTheSlip)
{
    answer("loseForGood");
    expectPlayed(playWithTerminal({atThePayment, byCard,
                                   R"({"contains": "неизвестно, списал ли терминал", "in": "messageLabel"})",
                                   R"({"click": "yesButton"})", readsAndGoesOn, cashier::isIdle}));
    EXPECT_EQ(taken(), 1240);
    EXPECT_EQ(finished(1)["state"_L1].toString(), u"closed"_s);
}

TEST_F(CardPayments, powerCutWhileTheTerminalWorks_moneyIsFoundAndTakenOnce)
{
    configure(u"DemoCardTerminal:seconds"_s, u"600"_s);
    startSteps({atThePayment, byCard, R"({"wait": "neverThere"})"}, terminalPlugin());
    ASSERT_TRUE(waitUntilTheTerminalWorks());
    kill();
    EXPECT_EQ(taken(), 1240);
    EXPECT_EQ(operations(savedDocument()), QStringList(u"payment asked"_s));

    configure(u"DemoCardTerminal:seconds"_s, u"0"_s);
    expectPlayed(playWithTerminal(
        {R"({"contains": "оплата картой 12,40 BYN прошла", "in": "messageLabel"})", readsAndGoesOn,
         R"({"key": "F12"}, {"expect": "0,00", "in": "paymentSumLabel"}, {"key": "Return"})", cashier::isIdle}));
    EXPECT_EQ(taken(), 1240);
    EXPECT_EQ(operations(finished(1)), QStringList(u"payment approved"_s));
}

TEST_F(CardPayments, askedToEndWhileTheTerminalWorks_paymentIsFinishedFirst)
{
    configure(u"DemoCardTerminal:seconds"_s, u"2"_s);
    startSteps({atThePayment, byCard, R"({"wait": "neverThere", "seconds": 60})"}, terminalPlugin());
    ASSERT_TRUE(waitUntilTheTerminalWorks());
    EXPECT_EQ(operations(savedDocument()), QStringList(u"payment asked"_s));
    sendSignal(SIGTERM);
    expectPlayed(waitForEnd());
    EXPECT_EQ(finished(1)["state"_L1].toString(), u"closed"_s);
    EXPECT_EQ(operations(finished(1)), QStringList(u"payment approved"_s));
    EXPECT_THAT(printed(1), HasSubstr("Картой 12,40"));
}

TEST_F(CardPayments, terminalGoneAfterThePowerCut_cashierIsAsked)
{
    configure(u"DemoCardTerminal:seconds"_s, u"600"_s);
    startSteps({atThePayment, byCard, R"({"wait": "neverThere"})"}, terminalPlugin());
    ASSERT_TRUE(waitUntilTheTerminalWorks());
    kill();
    expectPlayed(playSteps({R"({"contains": "неизвестно, списал ли терминал", "in": "messageLabel"},
                                {"click": "yesButton"})",
                            readsAndGoesOn, R"({"key": "F12"}, {"wait": "receivedLineEdit"}, {"key": "Return"})",
                            cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"_L1].toString(), u"closed"_s);
}

/// A document of three prescriptions, in a register that has the card terminal, and the plug-in of the prescriptions
/// until that is taken away.
class ChargedPrescriptions : public CardPayments
{
protected:
    void SetUp() override
    {
        CardPayments::SetUp();
        leaveOpen("three-prescriptions.json");
        ASSERT_TRUE(bothPlugins.isValid());
        const QStringList folders{QString::fromUtf8(PLUGIN_FOLDER), QFileInfo(QString::fromUtf8(DEMO_TERMINAL)).path()};
        for (const QString& folder : folders) {
            for (const QFileInfo& file : QDir(folder).entryInfoList({u"*.so"_s, u"*.json"_s, u"*.ui"_s}, QDir::Files)) {
                ASSERT_TRUE(QFile::link(file.absoluteFilePath(), bothPlugins.filePath(file.fileName())));
            }
        }
    }
    QStringList both() const { return {u"--plugins"_s, bothPlugins.path()}; }

    QTemporaryDir bothPlugins;
};

TEST_F(ChargedPrescriptions, powerCutAndThePluginIsMissing_tillServesTheNextAndNoMoneyIsLost)
{
    configure(u"DemoCardTerminal:seconds"_s, u"600"_s);
    startSteps({cashier::findsTheDocument, cashier::toThePayment, R"({"enabled": true, "in": "cardButton"})", byCard,
                R"({"wait": "neverThere"})"},
               both());
    ASSERT_TRUE(waitUntilTheTerminalWorks());
    kill();
    const qint64 charged = taken();
    EXPECT_EQ(operations(savedDocument()), QStringList(u"payment asked"_s));

    configure(u"DemoCardTerminal:seconds"_s, u"0"_s);
    const char* why = "ведёт модуль «electronicprescription», а он не работает";
    expectPlayed(playWithTerminal({R"({"contains": "прошла, она учтена в чеке", "in": "messageLabel"})", readsAndGoesOn,
                                   cashier::findsTheDocument, cashier::tries(R"({"key": "F12"})", why),
                                   cashier::tries(R"({"key": "F9"})", why), cashier::suspends, atThePayment,
                                   R"({"key": "Return"})", cashier::isIdle, cashier::opensTheDocuments,
                                   R"({"contains": "Отложен, есть оплата картой", "in": "documentTable"},
                                      {"key": "Esc"})"}));
    EXPECT_EQ(finished(2)["state"_L1].toString(), u"closed"_s);
    EXPECT_EQ(operations(suspended(1)), QStringList(u"payment approved"_s));

    expectPlayed(playSteps(
        {cashier::isIdle, cashier::opensTheDocuments, R"({"row": 1, "in": "documentTable"}, {"click": "takeUpButton"})",
         cashier::findsTheDocument, R"({"key": "F12"}, {"expect": "0,00", "in": "paymentSumLabel"}, {"key": "Return"})",
         cashier::isIdle},
        both()));
    EXPECT_EQ(finished(1)["state"_L1].toString(), u"closed"_s);
    EXPECT_EQ(qRound64(finished(1)["received"_L1].toDouble() * 100), charged);
    EXPECT_EQ(taken(), charged);
    EXPECT_EQ(registeredBy(finished(1)), validDispenses());
}

class PartialReturn : public Pharmacy
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }
};

TEST_F(PartialReturn, onePrescriptionComesBackThenTheOthers_eachIsCancelledOnce)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    ASSERT_EQ(validDispenses().size(), 3);
    expectPlayed(playSteps({cashier::opensTheReturn,
                            R"({"wait": "returnForm"}, {"key": "F4"}, {"key": "Down"}, {"key": "Space"},
                                {"contains": "Выбрано 1 из 3", "in": "hintLabel"}, {"key": "Return"},
                                {"receipt": {"type": 25, "positions": [{"number": 2}]}})",
                            cashier::subtotal, cashier::paysOut}));
    EXPECT_EQ(validDispenses().size(), 2);
    EXPECT_EQ(registeredBy(finished(1)), validDispenses()) << "the sale knows which dispense is left";

    expectPlayed(
        playSteps({cashier::opensTheWholeReturn, R"({"receipt": {"positions": [{"number": 1}, {"number": 3}]}})",
                   cashier::subtotal, cashier::paysOut,
                   cashier::tries(cashier::opensTheReturn, "уже возвращена документом № 3")}));
    EXPECT_EQ(validDispenses(), QStringList());
    EXPECT_EQ(registry.requestsTo("cancel"), 3);
}

} // namespace
