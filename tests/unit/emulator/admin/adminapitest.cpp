// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
class AdminApiTest : public EmulatorTest
{
protected:
    RawAnswer admin(const QByteArray& method, const QByteArray& path, const QByteArray& body = {})
    {
        return send(RawConnection::requestBytes(method, path, {{"Content-Type", "application/json"}}, body));
    }

    RawAnswer send(const QByteArray& bytes)
    {
        RawConnection connection(m_emulator->adminUrl());
        connection.send(bytes);
        return connection.answer().value_or(RawAnswer());
    }

    QJsonArray requests() { return admin("GET", "/journal").json().value(u"requests"_s).toArray(); }

    static QString error(const RawAnswer& answer) { return answer.json().value(u"error"_s).toString(); }
};
} // namespace

TEST_F(AdminApiTest, journal_holdsRegistryRequestsOnly)
{
    askForToken(goodForm());
    const QJsonArray journal = requests();
    ASSERT_EQ(journal.size(), 1);
    const QJsonObject request = journal.first().toObject();
    EXPECT_EQ(request.value(u"number"_s).toInt(), 1);
    EXPECT_EQ(request.value(u"connection"_s).toInt(), 1);
    EXPECT_EQ(request.value(u"endpoint"_s).toString(), u"token"_s);
    EXPECT_EQ(request.value(u"method"_s).toString(), u"POST"_s);
    EXPECT_EQ(request.value(u"path"_s).toString(), u"/connect/token"_s);
    EXPECT_EQ(request.value(u"target"_s).toString(), u"/connect/token"_s);
    EXPECT_EQ(request.value(u"body"_s).toString().toUtf8(), goodForm());
    EXPECT_EQ(request.value(u"status"_s).toInt(), 200);
    EXPECT_EQ(request.value(u"answeredWhole"_s), QJsonValue(true));
    const QJsonObject header = request.value(u"headers"_s).toArray().at(1).toObject();
    EXPECT_EQ(header.value(u"name"_s).toString(), u"Content-Type"_s);
    EXPECT_EQ(header.value(u"value"_s).toString(), u"application/x-www-form-urlencoded"_s);
}

TEST_F(AdminApiTest, deletedJournal_isEmpty)
{
    askForToken(goodForm());
    EXPECT_EQ(admin("DELETE", "/journal").status, 200);
    EXPECT_TRUE(requests().isEmpty());
}

TEST_F(AdminApiTest, orderedFault_isPendingUntilItHitsItsRequest)
{
    EXPECT_EQ(admin("POST", "/faults", R"({"fault": "status", "endpoint": "token", "status": 429})").status, 200);
    const QJsonArray pending = admin("GET", "/faults").json().value(u"faults"_s).toArray();
    ASSERT_EQ(pending.size(), 1);
    EXPECT_EQ(pending.first().toObject().value(u"fault"_s).toString(), u"status"_s);
    EXPECT_EQ(askForToken(goodForm()).status, 429);
    EXPECT_EQ(askForToken(goodForm()).status, 200);
    EXPECT_EQ(requests().first().toObject().value(u"fault"_s).toString(), u"status"_s);
}

TEST_F(AdminApiTest, deletedFaults_hitNothing)
{
    admin("POST", "/faults", R"({"fault": "close", "times": 0})");
    EXPECT_EQ(admin("DELETE", "/faults").status, 200);
    EXPECT_EQ(askForToken(goodForm()).status, 200);
}

TEST_F(AdminApiTest, malformedFault_isRefusedWithItsPlace)
{
    const RawAnswer answer = admin("POST", "/faults", R"({"fault": "close", "endpoint": "moon"})");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(error(answer), u"endpoint: one of these is expected: token, by-card, register, cancel, any, unknown"_s);
    EXPECT_TRUE(m_emulator->faults().pending().isEmpty());
}

TEST_F(AdminApiTest, state_showsPrescriptionsWithTheirDispenses)
{
    const QString id = idOfDispense(registerDispense(halfPriceDispense()));
    cancelDispense(id.toUtf8());
    const QJsonArray patients = admin("GET", "/state").json().value(u"patients"_s).toArray();
    ASSERT_EQ(patients.size(), 3);
    EXPECT_EQ(patients.at(0).toObject().value(u"card"_s).toString(), u"11+0 %41;ё"_s);
    const QJsonObject patient = patients.at(1).toObject();
    EXPECT_EQ(patient.value(u"card"_s).toString(), u"1100"_s);
    const QJsonObject prescription = patient.value(u"prescriptions"_s).toArray().at(1).toObject();
    EXPECT_EQ(prescription.value(u"id"_s).toString(), u"rx-half"_s);
    EXPECT_EQ(prescription.value(u"status"_s).toString(), u"active"_s);
    EXPECT_EQ(prescription.value(u"dispensed"_s).toDouble(), 30);
    const QJsonArray dispenses = prescription.value(u"dispenses"_s).toArray();
    ASSERT_EQ(dispenses.size(), 3);
    const QJsonObject last = dispenses.at(2).toObject();
    EXPECT_EQ(last.value(u"id"_s).toString(), id);
    EXPECT_EQ(last.value(u"cancelled"_s), QJsonValue(true));
    EXPECT_EQ(last.value(u"pharmacy"_s).toString(), u"17"_s);
    EXPECT_EQ(last.value(u"pharmacyName"_s).toString(), u"Аптека"_s);
    EXPECT_EQ(last.value(u"pharmacyAddress"_s).toString(), u"Улица"_s);
    EXPECT_EQ(last.value(u"claim"_s).toObject().value(u"resourceType"_s).toString(), u"Claim"_s);
}

TEST_F(AdminApiTest, seed_replacesState)
{
    EXPECT_EQ(admin("POST", "/seed", R"({"patients": [{"id": "n", "card": "7", "family": "Новая",
                                         "birthDate": "2001-01-01"}]})")
                  .status,
              200);
    EXPECT_EQ(m_emulator->store().cards(), QStringList{u"7"_s});
}

TEST_F(AdminApiTest, seedWithMistake_isRefusedWithItsPlace)
{
    const RawAnswer answer = admin("POST", "/seed", R"({"patients": [{}]})");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(error(answer), u"patients[0].id: a text is expected"_s);
    EXPECT_EQ(m_emulator->store().cards().size(), 3);
}

TEST_F(AdminApiTest, reset_forgetsDispenses)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(admin("POST", "/reset").status, 200);
    EXPECT_TRUE(m_emulator->store().dispensesOf(u"rx-full"_s).isEmpty());
}

TEST_F(AdminApiTest, fill_putsPrescriptionsOnCard)
{
    EXPECT_EQ(admin("POST", "/fill", R"({"card": "1100999", "count": 1000})").status, 200);
    EXPECT_EQ(m_emulator->store().prescriptionsOfCard(u"1100999"_s).size(), 1000);
    EXPECT_EQ(error(admin("POST", "/fill", R"({"card": "1"})")), u"count: a whole number up to 100000 is expected"_s);
}

TEST_F(AdminApiTest, rules_areChangedOneByOne)
{
    const RawAnswer answer = admin("POST", "/rules", R"({"tokenLifetime": 2})");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(askForToken(goodForm()).json().value(u"expires_in"_s).toInt(), 2);
    admin("POST", "/rules", R"({"oaisToken": "o"})");
    admin("POST", "/rules", R"({"showDispenseIds": false})");
    const QJsonObject rules = admin("GET", "/rules").json();
    EXPECT_EQ(rules.value(u"tokenLifetime"_s).toInt(), 2);
    EXPECT_EQ(rules.value(u"oaisToken"_s).toString(), u"o"_s);
    EXPECT_EQ(rules.value(u"showDispenseIds"_s), QJsonValue(false));
    EXPECT_EQ(rules.value(u"showPharmacies"_s), QJsonValue(true));
    EXPECT_EQ(rules.value(u"showCancelledDispenses"_s), QJsonValue(false));
}

TEST_F(AdminApiTest, ruleOfWrongType_isRefusedWithItsPlaceAndChangesNothing)
{
    const RawAnswer answer = admin("POST", "/rules", R"({"tokenLifetime": 2, "showDispenseIds": "no"})");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(error(answer), u"showDispenseIds: true or false is expected"_s);
    EXPECT_EQ(m_emulator->store().rules().tokenLifetime, 3600);
    EXPECT_TRUE(m_emulator->store().rules().showDispenseIds);
}

TEST_F(AdminApiTest, dispenseElsewhere_isBookedWithItsPharmacyForToday)
{
    const RawAnswer answer =
        admin("POST", "/dispenses", R"({"prescription": "rx-full", "quantity": 4, "final": true, "pharmacy": "18",
                                        "pharmacyName": "Аптека № 2", "pharmacyAddress": "Тупик, 2"})");
    EXPECT_EQ(answer.status, 200);
    const auto dispense = m_emulator->store().dispense(answer.json().value(u"id"_s).toString());
    ASSERT_TRUE(dispense.has_value());
    EXPECT_EQ(dispense->prescriptionId, u"rx-full"_s);
    EXPECT_EQ(dispense->quantity, 4);
    EXPECT_TRUE(dispense->isFinal);
    EXPECT_EQ(dispense->handedOver, m_now.date());
    EXPECT_EQ(dispense->pharmacy, u"18"_s);
    EXPECT_EQ(dispense->pharmacyName, u"Аптека № 2"_s);
    EXPECT_EQ(dispense->pharmacyAddress, u"Тупик, 2"_s);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(AdminApiTest, dispenseElsewhereOnAnEarlierDay_isBookedForThatDay)
{
    const RawAnswer byDay =
        admin("POST", "/dispenses", R"({"prescription": "rx-full", "quantity": 1, "handedOver": "2024-03-17"})");
    const RawAnswer byDaysAgo =
        admin("POST", "/dispenses", R"({"prescription": "rx-full", "quantity": 1, "handedOverDaysAgo": 1})");
    ASSERT_EQ(byDay.status, 200);
    ASSERT_EQ(byDaysAgo.status, 200);
    const auto dispenses = m_emulator->store().dispensesOf(u"rx-full"_s);
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.at(0).handedOver, QDate(2024, 3, 17));
    EXPECT_EQ(dispenses.at(1).handedOver, QDate(2024, 3, 19));
}

TEST_F(AdminApiTest, dispenseElsewhereWithMistake_isRefusedWithItsPlaceAndBooksNothing)
{
    const auto mistakeIn = [this](const QByteArray& body) {
        const RawAnswer answer = admin("POST", "/dispenses", body);
        EXPECT_EQ(answer.status, 400);
        return error(answer);
    };
    EXPECT_EQ(mistakeIn(R"({"quantity": 1})"), u"prescription: a text is expected"_s);
    EXPECT_EQ(mistakeIn(R"({"prescription": "rx-full"})"), u"quantity: a number above 0 is expected"_s);
    EXPECT_EQ(mistakeIn(R"({"prescription": "rx-full", "quantity": 1, "pharmacyName": 2})"),
              u"pharmacyName: a text is expected"_s);
    EXPECT_EQ(mistakeIn(R"({"prescription": "rx-full", "quantity": 1, "id": "d"})"),
              u"id: no such member here; known are prescription, quantity, handedOver, handedOverDaysAgo, pharmacy, "
              "pharmacyName, pharmacyAddress, final"_s);
    EXPECT_EQ(mistakeIn(R"({"prescription": "rx-full", "quantity": 21})"),
              u"По рецепту rx-full осталось доз: 20.00, отпускается: 21.00"_s);
    EXPECT_TRUE(m_emulator->store().dispensesOf(u"rx-full"_s).isEmpty());
}

TEST_F(AdminApiTest, deletedTokens_areExpired)
{
    const auto headers = admitted();
    EXPECT_EQ(admin("DELETE", "/tokens").status, 200);
    expectRefusal(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers),
                  emulator::RefusalCode::TokenExpired);
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

TEST_F(AdminApiTest, postThatIsNotJson_isRefusedAndChangesNothing)
{
    for (const QByteArray type : {"text/plain", "application/x-www-form-urlencoded", "multipart/form-data; boundary=x",
                                  "text/plain; application/json", ""}) {
        for (const QByteArray path : {"/faults", "/seed", "/reset", "/fill", "/dispenses", "/rules"}) {
            const emulator::HttpHeaders headers{{"Origin", "http://pages.example"}, {"Content-Type", type}};
            const RawAnswer answer = send(RawConnection::requestBytes("POST", path, headers, R"({"fault": "close"})"));
            EXPECT_EQ(answer.status, 415) << type.constData() << " " << path.constData();
            EXPECT_EQ(error(answer), u"Content-Type has to be application/json"_s);
        }
    }
    EXPECT_EQ(send(RawConnection::requestBytes("POST", "/reset", {}, {})).status, 415);
    EXPECT_TRUE(m_emulator->faults().pending().isEmpty());
    EXPECT_EQ(m_emulator->store().cards().size(), 3);
}

TEST_F(AdminApiTest, postOfJson_isTakenWithACharsetAndInAnyCase)
{
    for (const QByteArray type : {"application/json; charset=utf-8", "Application/JSON"}) {
        EXPECT_EQ(send(RawConnection::requestBytes("POST", "/rules", {{"Content-Type", type}}, "{}")).status, 200);
    }
}

TEST_F(AdminApiTest, requestForAnotherHost_isRefusedAndChangesNothing)
{
    const QByteArray port = QByteArray::number(m_emulator->adminUrl().port());
    askForToken(goodForm());
    for (const QByteArray& host : {QByteArray("pages.example"), "pages.example:" + port,
                                   QByteArray("localhost.example"), QByteArray("127.0.0.1.example:80"), QByteArray()}) {
        for (const QByteArray method : {"GET", "DELETE"}) {
            const RawAnswer answer = send(method + " /journal HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
            EXPECT_EQ(answer.status, 403) << host.constData();
            EXPECT_EQ(error(answer), u"Host has to be localhost or 127.0.0.1"_s);
        }
    }
    EXPECT_EQ(send("DELETE /journal HTTP/1.0\r\n\r\n").status, 403);
    EXPECT_EQ(m_emulator->journal().entries().size(), 1);
}

TEST_F(AdminApiTest, requestForThisMachine_isTakenWithOrWithoutAPort)
{
    for (const char* host : {"localhost", "LOCALHOST:1", "127.0.0.1", "127.0.0.1:65535"}) {
        EXPECT_EQ(send(QByteArray("GET /journal HTTP/1.1\r\nHost: ") + host + "\r\n\r\n").status, 200) << host;
    }
}
