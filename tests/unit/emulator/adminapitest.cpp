// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{
class AdminApiTest : public EmulatorTest
{
protected:
    RawAnswer admin(const QByteArray& method, const QByteArray& path, const QByteArray& body = {})
    {
        RawConnection connection(m_emulator->adminUrl());
        connection.request(method, path, {}, body);
        return connection.answer().value_or(RawAnswer());
    }

    QJsonArray requests() { return admin("GET", "/journal").json().value(QStringLiteral("requests")).toArray(); }

    static QString error(const RawAnswer& answer) { return answer.json().value(QStringLiteral("error")).toString(); }
};
} // namespace

TEST_F(AdminApiTest, journal_holdsRegistryRequestsOnly)
{
    askForToken(goodForm());
    const QJsonArray journal = requests();
    ASSERT_EQ(journal.size(), 1);
    const QJsonObject request = journal.first().toObject();
    EXPECT_EQ(request.value(QStringLiteral("number")).toInt(), 1);
    EXPECT_EQ(request.value(QStringLiteral("connection")).toInt(), 1);
    EXPECT_EQ(request.value(QStringLiteral("endpoint")).toString(), QStringLiteral("token"));
    EXPECT_EQ(request.value(QStringLiteral("method")).toString(), QStringLiteral("POST"));
    EXPECT_EQ(request.value(QStringLiteral("path")).toString(), QStringLiteral("/connect/token"));
    EXPECT_EQ(request.value(QStringLiteral("target")).toString(), QStringLiteral("/connect/token"));
    EXPECT_EQ(request.value(QStringLiteral("body")).toString().toUtf8(), goodForm());
    EXPECT_EQ(request.value(QStringLiteral("status")).toInt(), 200);
    EXPECT_EQ(request.value(QStringLiteral("answeredWhole")), QJsonValue(true));
    const QJsonObject header = request.value(QStringLiteral("headers")).toArray().at(1).toObject();
    EXPECT_EQ(header.value(QStringLiteral("name")).toString(), QStringLiteral("Content-Type"));
    EXPECT_EQ(header.value(QStringLiteral("value")).toString(), QStringLiteral("application/x-www-form-urlencoded"));
}

TEST_F(AdminApiTest, deletedJournal_isEmpty)
{
    askForToken(goodForm());
    EXPECT_EQ(admin("DELETE", "/journal").status, 200);
    EXPECT_TRUE(requests().isEmpty());
}

TEST_F(AdminApiTest, orderedFault_isPendingThenMeetsItsRequest)
{
    EXPECT_EQ(admin("POST", "/faults", R"({"fault": "status", "endpoint": "token", "status": 429})").status, 200);
    const QJsonArray pending = admin("GET", "/faults").json().value(QStringLiteral("faults")).toArray();
    ASSERT_EQ(pending.size(), 1);
    EXPECT_EQ(pending.first().toObject().value(QStringLiteral("fault")).toString(), QStringLiteral("status"));
    EXPECT_EQ(askForToken(goodForm()).status, 429);
    EXPECT_EQ(askForToken(goodForm()).status, 200);
    EXPECT_EQ(requests().first().toObject().value(QStringLiteral("fault")).toString(), QStringLiteral("status"));
}

TEST_F(AdminApiTest, deletedFaults_meetNothing)
{
    admin("POST", "/faults", R"({"fault": "close", "times": 0})");
    EXPECT_EQ(admin("DELETE", "/faults").status, 200);
    EXPECT_EQ(askForToken(goodForm()).status, 200);
}

TEST_F(AdminApiTest, mistakenFault_isRefusedWithItsPlace)
{
    const RawAnswer answer = admin("POST", "/faults", R"({"fault": "close", "endpoint": "moon"})");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(error(answer),
              QStringLiteral("endpoint: one of these is expected: token, by-card, register, cancel, any, unknown"));
    EXPECT_TRUE(m_emulator->faults().pending().isEmpty());
}

TEST_F(AdminApiTest, state_showsPrescriptionsWithTheirDispenses)
{
    const QString id = idOfDispense(registerDispense(halfPriceDispense()));
    cancelDispense(id.toUtf8());
    const QJsonArray patients = admin("GET", "/state").json().value(QStringLiteral("patients")).toArray();
    ASSERT_EQ(patients.size(), 3);
    EXPECT_EQ(patients.at(0).toObject().value(QStringLiteral("card")).toString(), QStringLiteral("11+0 %41;ё"));
    const QJsonObject patient = patients.at(1).toObject();
    EXPECT_EQ(patient.value(QStringLiteral("card")).toString(), QStringLiteral("1100"));
    const QJsonObject prescription = patient.value(QStringLiteral("prescriptions")).toArray().at(1).toObject();
    EXPECT_EQ(prescription.value(QStringLiteral("id")).toString(), QStringLiteral("rx-half"));
    EXPECT_EQ(prescription.value(QStringLiteral("status")).toString(), QStringLiteral("active"));
    EXPECT_EQ(prescription.value(QStringLiteral("dispensed")).toDouble(), 30);
    const QJsonArray dispenses = prescription.value(QStringLiteral("dispenses")).toArray();
    ASSERT_EQ(dispenses.size(), 3);
    const QJsonObject last = dispenses.at(2).toObject();
    EXPECT_EQ(last.value(QStringLiteral("id")).toString(), id);
    EXPECT_EQ(last.value(QStringLiteral("cancelled")), QJsonValue(true));
    EXPECT_EQ(last.value(QStringLiteral("claim")).toObject().value(QStringLiteral("resourceType")).toString(),
              QStringLiteral("Claim"));
}

TEST_F(AdminApiTest, seed_replacesState)
{
    EXPECT_EQ(admin("POST", "/seed", R"({"patients": [{"id": "n", "card": "7", "family": "Новая",
                                         "birthDate": "2001-01-01"}]})")
                  .status,
              200);
    EXPECT_EQ(m_emulator->store().cards(), QStringList{QStringLiteral("7")});
}

TEST_F(AdminApiTest, mistakenSeed_isRefusedWithItsPlace)
{
    const RawAnswer answer = admin("POST", "/seed", R"({"patients": [{}]})");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(error(answer), QStringLiteral("patients[0].id: a text is expected"));
    EXPECT_EQ(m_emulator->store().cards().size(), 3);
}

TEST_F(AdminApiTest, reset_takesDispensesBack)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(admin("POST", "/reset").status, 200);
    EXPECT_TRUE(m_emulator->store().dispensesOf(QStringLiteral("rx-full")).isEmpty());
}

TEST_F(AdminApiTest, fill_putsPrescriptionsOnCard)
{
    EXPECT_EQ(admin("POST", "/fill", R"({"card": "1100999", "count": 1000})").status, 200);
    EXPECT_EQ(m_emulator->store().prescriptionsOfCard(QStringLiteral("1100999")).size(), 1000);
    EXPECT_EQ(error(admin("POST", "/fill", R"({"card": "1"})")),
              QStringLiteral("count: a whole number up to 100000 is expected"));
}

TEST_F(AdminApiTest, rules_areChangedOneByOne)
{
    const RawAnswer answer = admin("POST", "/rules", R"({"tokenLifetime": 2})");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(askForToken(goodForm()).json().value(QStringLiteral("expires_in")).toInt(), 2);
    admin("POST", "/rules", R"({"oaisToken": "o"})");
    const QJsonObject rules = admin("GET", "/rules").json();
    EXPECT_EQ(rules.value(QStringLiteral("tokenLifetime")).toInt(), 2);
    EXPECT_EQ(rules.value(QStringLiteral("oaisToken")).toString(), QStringLiteral("o"));
}

TEST_F(AdminApiTest, deletedTokens_areExpired)
{
    const auto headers = admitted();
    EXPECT_EQ(admin("DELETE", "/tokens").status, 200);
    EXPECT_EQ(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers).issue(),
              QStringLiteral("Срок действия токена авторизации истёк"));
}

TEST_F(AdminApiTest, unknownPathMethodOrGarbage_isRefused)
{
    EXPECT_EQ(admin("GET", "/x").status, 404);
    const RawAnswer answer = admin("PUT", "/faults", "{}");
    EXPECT_EQ(answer.status, 405);
    EXPECT_EQ(answer.header("Allow"), "GET, POST, DELETE");
    EXPECT_EQ(admin("POST", "/faults", "{").status, 400);
    EXPECT_EQ(admin("POST", "/fill", "[]").status, 400);
    RawConnection connection(m_emulator->adminUrl());
    connection.send("garbage\r\n\r\n");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 400);
}
