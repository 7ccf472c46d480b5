// SPDX-License-Identifier: MIT
// Each request on the wire, against docs/registry-protocol.md.

#include "clockdouble.h"
#include "pharmacy.h"
#include "positionformat.h"
#include "registryuris.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::JournalEntry;

namespace
{

class WireTest : public testing::Test
{
protected:
    WireTest() { pharmacy.removePosition(3); }

    const QDateTime now = QDateTime::currentDateTime();
    const ClockDouble clock{now};
    Pharmacy pharmacy;
};

QMap<QByteArray, QByteArray> headersOf(const JournalEntry& request)
{
    QMap<QByteArray, QByteArray> headers;
    for (const auto& [name, value] : request.headers) {
        EXPECT_FALSE(headers.contains(name)) << name.toStdString();
        headers.insert(name, value);
    }
    return headers;
}

void expectTokenRequest(const JournalEntry& request)
{
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/connect/token");
    EXPECT_EQ(request.body, "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret&scope=dispense"
                            "&organization_identifier=17");
    const QMap<QByteArray, QByteArray> headers = {
        {"Host", request.header("Host")},
        {"Accept", "application/json"},
        {"Accept-Encoding", "gzip, deflate"},
        {"Authorization", "Bearer oais-token"},
        {"Content-Type", "application/x-www-form-urlencoded"},
        {"Content-Length", QByteArray::number(request.body.size())},
    };
    EXPECT_EQ(headersOf(request), headers);
}

/// A POST of that indented JSON, with a token of its own.
void expectResourceRequest(const JournalEntry& request, const QByteArray& target, const QJsonObject& json)
{
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, target);
    EXPECT_EQ(request.body.toStdString(), QJsonDocument(json).toJson(QJsonDocument::Indented).toStdString());
    EXPECT_TRUE(request.header("Authorization").startsWith("Bearer "));
    const QMap<QByteArray, QByteArray> headers = {
        {"Host", request.header("Host")},
        {"Accept", "application/json"},
        {"Accept-Encoding", "gzip, deflate"},
        {"Authorization", request.header("Authorization")},
        {"OAIS", "Bearer oais-token"},
        {"Content-Type", "application/json; charset=utf-8"},
        {"Content-Length", QByteArray::number(request.body.size())},
    };
    EXPECT_EQ(headersOf(request), headers);
}

QJsonObject coding(const QString& system, const QString& code)
{
    return {{"coding", QJsonArray{QJsonObject{{"system", system}, {"code", code}}}}};
}

QJsonObject reference(const QString& to)
{
    return {{"reference", to}};
}

QJsonObject roubles(double value)
{
    return {{"value", value}, {"system", "urn:std:iso:4217"}, {"code", "BYN"}};
}

QJsonObject dispenseOf(const QString& prescription, const QString& medicine, double doses, bool isFinal,
                       const QString& today)
{
    const QJsonObject medication = {{"resourceType", "Medication"},
                                    {"id", "internalMedication"},
                                    {"isBrand", true},
                                    {"code", coding(registryuris::dosageDictionary, medicine)}};
    const QJsonObject addressType = {{"url", registryuris::addressType},
                                     {"valueCodeableConcept", coding(registryuris::addressTypes, "location")}};
    const QJsonObject location = {
        {"resourceType", "Location"},
        {"name", "Аптека № 17"},
        {"address", QJsonObject{{"extension", QJsonArray{addressType}}, {"text", "ул. Лесная, 1"}}}};
    const QJsonObject finalDispense = {{"url", registryuris::finalDispense}, {"valueBoolean", isFinal}};
    return {{"resourceType", "MedicationDispense"},
            {"extension", QJsonArray{finalDispense}},
            {"contained", QJsonArray{medication, location}},
            {"status", "completed"},
            {"patient", reference("Patient/p-1")},
            {"quantity", QJsonObject{{"value", doses}}},
            {"authorizingPrescription", QJsonArray{reference("MedicationPrescription/" + prescription)}},
            {"medication", reference("#internalMedication")},
            {"whenHandedOver", today}};
}

QJsonObject claimOfHalf(const QString& today)
{
    const QJsonObject item = {
        {"sequence", 1},
        {"type",
         QJsonObject{{"display", "Электронный рецепт"}, {"system", registryuris::invoiceGroups}, {"code", "group"}}},
        {"service", QJsonObject{{"system", registryuris::services}, {"code", "2102"}}},
        {"unitPrice", roubles(20)},
        {"factor", 0.5},
        {"net", roubles(10)},
    };
    return {{"resourceType", "Claim"},
            {"type", "pharmacy"},
            {"created", today},
            {"organization", reference("Organization/payer-1")},
            {"originalPrescription", reference("MedicationPrescription/rx-half")},
            {"patient", reference("Patient/p-1")},
            {"item", QJsonArray{item}}};
}

QJsonObject parameters(const QJsonArray& all)
{
    return {{"resourceType", "Parameters"}, {"parameter", all}};
}

TEST_F(WireTest, subtotalOfTwoPositions_isATokenAndARegistrationForEach)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);

    const QString today = now.toString(u"yyyy-MM-dd"_s);
    const QJsonObject complete = {{"name", "medicationDispense"},
                                  {"resource", dispenseOf("rx-full", "1001", 20, true, today)}};
    const QJsonObject partial = {{"name", "medicationDispense"},
                                 {"resource", dispenseOf("rx-half", "1003", 10, false, today)}};
    const QJsonObject claim = {{"name", "claim"}, {"resource", claimOfHalf(today)}};

    const auto requests = pharmacy.requests();
    ASSERT_EQ(requests.size(), 4);
    expectTokenRequest(requests[0]);
    expectResourceRequest(requests[1], "/MedicationDispense/$register", parameters({complete}));
    expectTokenRequest(requests[2]);
    expectResourceRequest(requests[3], "/MedicationDispense/$register", parameters({partial, claim}));
    EXPECT_NE(requests[1].header("Authorization"), requests[3].header("Authorization"));
    for (const JournalEntry& request : requests) {
        EXPECT_EQ(request.status, 200);
        EXPECT_TRUE(request.answeredWhole);
        EXPECT_EQ(request.connection, requests[0].connection);
    }
}

TEST_F(WireTest, cancellationOfOnePosition_isATokenAndACancellationOfItsDispense)
{
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    pharmacy.forgetRequests();
    ASSERT_EQ(pharmacy.cancelPosition(2), EContext::GoOn);

    const QByteArray id = pharmacy.optionsOf(2)[positionformat::medicationDispenseId].toString().toUtf8();
    ASSERT_FALSE(id.isEmpty());
    const auto requests = pharmacy.requests();
    ASSERT_EQ(requests.size(), 2);
    expectTokenRequest(requests[0]);
    expectResourceRequest(requests[1], "/MedicationDispense/" + id + "/$set-as-error", {});
}

} // namespace
