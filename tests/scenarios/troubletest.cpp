// SPDX-License-Identifier: MIT
#include "cashiersteps.h"
#include "pharmacy.h"
#include "postgresserver.h"
#include "serveridentity.h"

#include <QDir>
#include <QFile>

namespace
{

/// A fault of the registry, and a part of the message that the cashier gets.
struct Trouble {
    const char* name;
    const char* fault; ///< in the form of the admin port; empty: the registry is not running
    const char* shown;

    friend std::ostream& operator<<(std::ostream& stream, const Trouble& trouble) { return stream << trouble.name; }
};

const Trouble troubles[] = {
    {"registryDown", "", "Нет связи с сервером 127.0.0.1."},
    {"tokenRefused", R"({"fault": "status", "endpoint": "token", "status": 401, "issue": "Токен не выдан"})",
     "Токен не выдан"},
    {"tokenAnswerWithoutToken", R"({"fault": "body", "endpoint": "token", "body": "{}"})",
     "Ошибка при получении токена для авторизации"},
    {"forbiddenWithIssue", R"({"fault": "status", "endpoint": "by-card", "status": 403, "issue": "Нет доступа"})",
     "Нет доступа"},
    {"tooManyRequests", R"({"fault": "status", "endpoint": "by-card", "status": 429})",
     "Сервер 127.0.0.1 принял слишком много запросов (ответ 429)."},
    {"serverErrorWithoutIssue", R"({"fault": "status", "endpoint": "by-card", "status": 500})",
     "На сервере 127.0.0.1 произошла ошибка (ответ 500)."},
    {"html", R"({"fault": "html", "endpoint": "by-card"})", "Ошибка при получении списка рецептов"},
    {"halfJson", R"({"fault": "half-json", "endpoint": "by-card"})", "Ошибка при получении списка рецептов"},
    {"emptyBody", R"({"fault": "empty", "endpoint": "by-card"})", "Ошибка при получении списка рецептов"},
    {"wrongShape", R"({"fault": "body", "endpoint": "by-card", "body": "[1, 2]"})",
     "Ошибка при получении списка рецептов"},
    {"entryOfTextInsteadOfObjects",
     R"({"fault": "body", "endpoint": "by-card", "body": "{\"resourceType\": \"Bundle\", \"entry\": [\"x\"]}"})",
     "Ошибка при получении списка рецептов"},
    // More than once: a GET whose kept connection turns out dead is sent again.
    {"connectionClosed", R"({"fault": "close", "endpoint": "by-card", "times": 9})",
     "Связь с сервером 127.0.0.1 прервалась."},
    {"connectionReset", R"({"fault": "reset", "endpoint": "by-card", "times": 9})",
     "Связь с сервером 127.0.0.1 прервалась."},
    {"answerCutOff", R"({"fault": "cut", "endpoint": "by-card"})", "Связь с сервером 127.0.0.1 прервалась."},
    {"noAnswerWithinTheTimeout", R"({"fault": "never", "endpoint": "by-card"})",
     "Сервер 127.0.0.1 не ответил вовремя."},
};

class RegistryTrouble : public Pharmacy, public ::testing::WithParamInterface<Trouble>
{
};

} // namespace

TEST_P(RegistryTrouble, cardAskedFor_messageIsShownAndTheDocumentStaysAsItWas)
{
    const Trouble trouble = GetParam();
    configure("ElectronicPrescription:timeout", "2");
    if (*trouble.fault) {
        registry.orderFault(QJsonDocument::fromJson(trouble.fault).object());
    } else {
        registry.stop();
    }

    const Outcome outcome = play("trouble-told.json");
    EXPECT_EQ(outcome.exitCode, 0) << qPrintable(outcome.output);
    EXPECT_TRUE(outcome.output.contains(QString::fromUtf8(trouble.shown))) << qPrintable(outcome.output);
    EXPECT_EQ(savedPositions().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Registry, RegistryTrouble, ::testing::ValuesIn(troubles),
                         [](const auto& trouble) { return std::string(trouble.param.name); });

class PharmacyTrouble : public Pharmacy
{
};

TEST_F(PharmacyTrouble, layoutMissing_isShownByNameAndTheRegisterGoesOn)
{
    const QDir plugins(QString::fromUtf8(PLUGIN_FOLDER));
    const QDir own(dataFolder() + "/plugins");
    ASSERT_TRUE(QDir().mkpath(own.filePath("electronicprescription")));
    for (const char* file : {"libelectronicprescription.so", "electronicprescription/electronicprescription.ui"}) {
        ASSERT_TRUE(QFile::copy(plugins.filePath(file), own.filePath(file)));
    }

    const Outcome outcome = play("trouble-told.json", {"--plugins", own.path()});
    EXPECT_EQ(outcome.exitCode, 0) << qPrintable(outcome.output);
    EXPECT_TRUE(outcome.output.contains("electronicprescriptionchoice.ui")) << qPrintable(outcome.output);
    EXPECT_EQ(savedPositions().size(), 1);
}

TEST_F(PharmacyTrouble, certificateOfAnUnknownAuthority_isShownAndNothingIsSent)
{
    const TestAuthority unknown;
    const ServerIdentity identity(unknown);
    restartRegistry({"--tls-certificate", identity.certificateFile(), "--tls-key", identity.keyFile()});

    const Outcome outcome = play("trouble-told.json");
    EXPECT_EQ(outcome.exitCode, 0) << qPrintable(outcome.output);
    EXPECT_TRUE(outcome.output.contains("Сертификат сервера 127.0.0.1 не прошёл проверку"))
        << qPrintable(outcome.output);
    EXPECT_EQ(savedPositions().size(), 1);
    EXPECT_TRUE(registry.journal().isEmpty());
}

TEST_F(PharmacyTrouble, certificateOfAKnownAuthority_cardIsServed)
{
    const TestAuthority known;
    const ServerIdentity identity(known);
    restartRegistry({"--tls-certificate", identity.certificateFile(), "--tls-key", identity.keyFile()});
    configure("RestClient:caFile", known.certificateFile());

    expectPlayed(play("served-by-keyboard.json"));
    EXPECT_EQ(savedPositions().size(), 1);
}

TEST_F(PharmacyTrouble, unknownCard_registrysTextIsShownAndAnotherCardAskedFor)
{
    expectPlayed(playSteps({R"({"key": "F2"}, {"key": "F5"}, {"wait": "inputLineEdit"}, {"type": "9999"},
                              {"key": "Return"}, {"wait": "messageForm"},
                              {"expect": "Карта не найдена в реестре", "in": "messageLabel"}, {"key": "Return"},
                              {"visible": false, "in": "messageForm"}, {"visible": false, "in": "busyScreen"},
                              {"receipt": {"positions": []}}, {"key": "F5"}, {"wait": "inputLineEdit"})"}));
    EXPECT_EQ(registry.requestsTo("by-card"), 1);
}

TEST_F(PharmacyTrouble, timeoutIsNoNumber_registerRunsWithTheDefault)
{
    configure("ElectronicPrescription:timeout", "soon");
    expectPlayed(play("served-by-keyboard.json"));
}

TEST_F(PharmacyTrouble, goodsDatabaseWithoutItsTables_isShownAndNothingIsServed)
{
    QFile empty(dataFolder() + "/empty.sqlite");
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    empty.close();
    configure("Register:demoData", "false");
    configure("Database:name", empty.fileName());
    expectPlayed(play("goods-database-without-tables.json"));
    EXPECT_TRUE(savedPositions().isEmpty());
}

TEST_F(PharmacyTrouble, goodsServerNeverAnswers_registerStartsSaysSoAndGoesOnWithoutGoods)
{
    PostgresServer server;
    const Expected<void> started = server.start();
    ASSERT_TRUE(started) << started.failure().detail.toStdString();
    server.pause();
    configure("Register:demoData", "false");
    configure("Database:driver", "QPSQL");
    configure("Database:host", server.host());
    configure("Database:name", server.database());
    configure("Database:user", server.user());
    configure("Database:timeout", "2");

    const Outcome outcome = playSteps({R"({"wait": "messageForm"},
            {"contains": "Справочник товаров недоступен: connection to server", "in": "messageLabel"}, {"key": "Return"},
            {"visible": false, "in": "messageForm"}, {"key": "F2"}, {"scan": "2990000000019"}, {"wait": "busyScreen"},
            {"wait": "messageForm"},
            {"contains": "Справочник товаров недоступен: connection to server", "in": "messageLabel"}, {"key": "Return"},
            {"visible": false, "in": "messageForm"}, {"visible": false, "in": "busyScreen"},
            {"receipt": {"positions": []}})"});
    expectPlayed(outcome);
    EXPECT_FALSE(outcome.output.contains("QSql")) << qPrintable(outcome.output);
}

/// A widget that a layout lacks, and how the cashier gets to that form from the list of prescriptions.
struct LostWidget {
    const char* name;
    const char* layout;
    const char* widget;
    QByteArrayList way;

    friend std::ostream& operator<<(std::ostream& stream, const LostWidget& lost) { return stream << lost.name; }
};

const QByteArray entersTheCard = R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"type": "1100000000000001"},
                                    {"key": "Return"})";
const QByteArray choosesTheFirst = R"({"wait": "electronicPrescriptionsTableView"}, {"key": "Return"})";
const QByteArray choosesGoods = R"({"wait": "chooseButton"}, {"key": "Return"}, {"wait": "goodsTable"},
                                   {"key": "Return"}, {"wait": "inputLineEdit"}, {"type": "2"}, {"key": "Return"})";

class LayoutTrouble : public Pharmacy, public ::testing::WithParamInterface<LostWidget>
{
};

TEST_P(LayoutTrouble, widgetLost_isShownByNameAndTheCommandEndsWithTheDocumentAsItWas)
{
    const LostWidget& lost = GetParam();
    loseWidget(lost.layout, lost.widget);

    const QByteArray shown = QByteArray(R"({"wait": "messageForm"}, {"contains": "Не найден виджет )") + lost.widget +
                             R"(", "in": "messageLabel"}, {"key": "Return"}, {"visible": false, "in": "messageForm"},
                               {"visible": false, "in": "busyScreen"})";
    const QByteArray unharmed = R"({"receipt": {"positions": [{"tags": []}]}})";
    const QByteArrayList sellsByHand{R"({"key": "F2"}, {"scan": "2990000000019"})", unharmed};
    expectPlayed(playSteps(sellsByHand + QByteArrayList{entersTheCard} + lost.way +
                           QByteArrayList{shown, unharmed, R"({"key": "F5"}, {"wait": "inputLineEdit"})"}));
    EXPECT_EQ(savedPositions().size(), 1);
    EXPECT_EQ(registry.dispenses().size(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Layout, LayoutTrouble,
    ::testing::Values(LostWidget{"list", "electronicprescriptionchoice.ui", "electronicPrescriptionsTableView", {}},
                      LostWidget{"details", "electronicprescription.ui", "chooseButton", {choosesTheFirst}},
                      LostWidget{"confirmation",
                                 "electronicprescriptionconfirmdispense.ui",
                                 "partDispenseButton",
                                 {choosesTheFirst, choosesGoods}}),
    [](const auto& lost) { return std::string(lost.param.name); });
