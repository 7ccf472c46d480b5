// SPDX-License-Identifier: MIT
#include "registryclienttest.h"

using emulator::Endpoint;

namespace
{

using ByCardTest = RegistryClientTest;

/// The id of the prescription in a bundle.
QString idOf(const QJsonValue& bundle)
{
    const QJsonArray entries = bundle["entry"].toArray();
    for (const auto& entry : entries) {
        const QJsonValue resource = entry.toObject()["resource"];
        if (resource["resourceType"].toString() == "MedicationPrescription") {
            return resource["id"].toString();
        }
    }
    return {};
}

TEST_P(ByCardTest, card_returnsItsPrescriptionsAndItsPatient)
{
    EXPECT_FALSE(askForCard("1100"));
    ASSERT_EQ(prescriptions.size(), 2);
    EXPECT_EQ(idOf(prescriptions[0]), "rx-full");
    EXPECT_EQ(idOf(prescriptions[1]), "rx-half");
    EXPECT_EQ(patient["resourceType"].toString(), "Patient");
    EXPECT_EQ(patient["birthDate"].toString(), "1960-01-31");
}

TEST_P(ByCardTest, requests_areATokenAndASearchWithIt)
{
    EXPECT_FALSE(askForCard("1100"));
    const auto& entries = registry->journal().entries();
    ASSERT_EQ(entries.size(), 2);

    EXPECT_EQ(entries[0].method, "POST");
    EXPECT_EQ(entries[0].target, "/connect/token");
    EXPECT_EQ(entries[0].header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(entries[0].header("Accept"), "application/json");
    EXPECT_TRUE(entries[0].header("Authorization").isNull());
    EXPECT_EQ(entries[0].body, "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret"
                               "&scope=read%20dispense&organization_identifier=17");

    EXPECT_EQ(entries[1].method, "GET");
    EXPECT_EQ(entries[1].target, "/MedicationPrescription/$by-card?patientIdentifier=1100&status=active");
    EXPECT_TRUE(entries[1].header("Authorization").startsWith("Bearer "));
    EXPECT_GT(entries[1].header("Authorization").size(), 7);
    EXPECT_EQ(entries[1].header("Accept"), "application/json");
    EXPECT_TRUE(entries[1].header("OAIS").isNull());
    EXPECT_TRUE(entries[1].body.isEmpty());
}

TEST_P(ByCardTest, cardWithSpecialCharacters_reachesTheRegistryUnchanged)
{
    EXPECT_FALSE(askForCard("11+0 %41;&ё", ""));
    ASSERT_EQ(prescriptions.size(), 1);
    EXPECT_EQ(idOf(prescriptions[0]), "rx-signs");
    EXPECT_EQ(patient["birthDate"].toString(), "1990-05-05");
    EXPECT_EQ(lastOf(Endpoint::PrescriptionsByCard).target,
              "/MedicationPrescription/$by-card?patientIdentifier=11%2B0%20%2541%3B%26%D1%91&status=");
}

TEST_P(ByCardTest, cardWithoutPrescriptions_raisesNoPrescriptions)
{
    const RequestFailure failure = askForCard("1102");
    EXPECT_TRUE(failure.isNoPrescriptions);
    EXPECT_EQ(failure.text, "Рецепты не найдены");
    EXPECT_TRUE(prescriptions.isEmpty());
}

TEST_P(ByCardTest, unknownCard_raisesTheRegistrysText)
{
    const RequestFailure failure = askForCard("0");
    EXPECT_TRUE(failure);
    EXPECT_FALSE(failure.isNoPrescriptions);
    EXPECT_EQ(failure.key, tr::undefined);
    EXPECT_EQ(failure.text, "Карта не найдена в реестре");
}

TEST_P(ByCardTest, thousandPrescriptions_arrive)
{
    registry->fillCard("1100", 1000);
    EXPECT_FALSE(askForCard("1100"));
    EXPECT_EQ(prescriptions.size(), 1002);
}

OVER_HTTP_AND_HTTPS(ByCardTest);

} // namespace
