// SPDX-License-Identifier: MIT
#include "registrydispense.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Likeness = RegistryDispense::Likeness;

namespace
{

const DispenseFacts asked{u"2026-03-02"_s, 10.0, u"Аптека № 17"_s, u"ул. Лесная, 1"_s};

TEST(RegistryDispenseTest, everythingAgrees_isCertain)
{
    EXPECT_EQ((RegistryDispense{u"d-1"_s, asked}).likeness(asked), Likeness::Certain);
}

TEST(RegistryDispenseTest, somethingIsNotShown_isPossible)
{
    EXPECT_EQ((RegistryDispense{{}, asked}).likeness(asked), Likeness::Possible);
    EXPECT_EQ((RegistryDispense{u"d-1"_s, {{}, 10.0, asked.pharmacy, asked.address}}).likeness(asked),
              Likeness::Possible);
    EXPECT_EQ((RegistryDispense{u"d-1"_s, {asked.day, 0, asked.pharmacy, asked.address}}).likeness(asked),
              Likeness::Possible);
    EXPECT_EQ((RegistryDispense{u"d-1"_s, {asked.day, 10.0, {}, {}}}).likeness(asked), Likeness::Possible);
}

TEST(RegistryDispenseTest, pharmacyWithoutNameOnBothSides_isPossible)
{
    const DispenseFacts nameless{asked.day, asked.doses, {}, {}};
    EXPECT_EQ((RegistryDispense{u"d-1"_s, nameless}).likeness(nameless), Likeness::Possible);
}

TEST(RegistryDispenseTest, pharmacyIsWrittenOtherwise_isPossible)
{
    EXPECT_EQ(
        (RegistryDispense{u"d-1"_s, {asked.day, asked.doses, u"ООО Аптека №17"_s, asked.address}}).likeness(asked),
        Likeness::Possible);
    EXPECT_EQ(
        (RegistryDispense{u"d-1"_s, {asked.day, asked.doses, u" АПТЕКА  № 17"_s, u"Ул. Лесная, 1"_s}}).likeness(asked),
        Likeness::Certain);
}

TEST(RegistryDispenseTest, requestThatWasLost_leavesDayAndPharmacyOpen)
{
    const DispenseFacts lost{{}, 10.0, {}, {}};
    EXPECT_EQ((RegistryDispense{u"d-1"_s, asked}).likeness(lost), Likeness::Possible);
}

TEST(RegistryDispenseTest, timeWithAZone_isOfTheDayHere)
{
    const QDateTime late(QDate(2026, 3, 2), QTime(23, 30));
    const QJsonObject dispense{{"whenHandedOver"_L1, late.toUTC().toString(Qt::ISODate)}};
    EXPECT_EQ(DispenseFacts::of(dispense).day, u"2026-03-02"_s);
}

TEST(RegistryDispenseTest, dayOrDosesDiffer_isNone)
{
    const DispenseFacts others[] = {
        {u"2026-03-01"_s, asked.doses, asked.pharmacy, asked.address},
        {asked.day, 10.01, asked.pharmacy, asked.address},
    };
    for (const DispenseFacts& other : others) {
        EXPECT_EQ((RegistryDispense{u"d-1"_s, other}).likeness(asked), Likeness::None);
    }
}

QJsonObject bundle(const char* entries)
{
    return {{"resourceType"_L1, "Bundle"_L1}, {"entry"_L1, QJsonDocument::fromJson(entries).array()}};
}

TEST(RegistryDispenseTest, prescriptionsBundle_hasItsDispensesWithoutTheCancelledOnes)
{
    const auto dispenses = dispensesIn(bundle(R"([
        {"resource": {"resourceType": "MedicationPrescription", "id": "rx-1"}},
        {"resource": {"resourceType": "MedicationDispense", "id": "d-1", "status": "entered-in-error"}},
        {"resource": {"resourceType": "MedicationDispense", "id": "d-2", "status": "completed",
                      "whenHandedOver": "2026-03-02T10:15:00+03:00", "quantity": {"value": 10}}},
        {"resource": {"resourceType": "MedicationDispense"}}])"));
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses[0].id, u"d-2"_s);
    EXPECT_EQ(dispenses[0].facts, (DispenseFacts{u"2026-03-02"_s, 10.0, {}, {}}));
    EXPECT_EQ(dispenses[1].id, QString());
}

TEST(RegistryDispenseTest, anythingElse_hasNone)
{
    for (const char* entries :
         {"[]", "[1, null, \"x\"]", R"([{"resource": 5}])", R"([{"resource": {"resourceType": 1}}])"}) {
        EXPECT_TRUE(dispensesIn(bundle(entries)).isEmpty()) << entries;
        EXPECT_EQ(prescriptionIn(bundle(entries)), QJsonObject()) << entries;
    }
}

} // namespace
