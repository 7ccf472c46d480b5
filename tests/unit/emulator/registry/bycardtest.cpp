// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QSet>

using namespace Qt::StringLiterals;

using emulator::RefusalCode;

namespace
{
class ByCardTest : public EmulatorTest
{
protected:
    static QJsonArray entries(const QJsonObject& bundle) { return bundle.value(u"entry"_s).toArray(); }

    /// The resources of that type in a Bundle.
    static QList<QJsonObject> resources(const QJsonObject& bundle, const QString& type)
    {
        QList<QJsonObject> found;
        const QJsonArray all = entries(bundle);
        for (const QJsonValue& value : all) {
            const QJsonObject resource = value.toObject().value(u"resource"_s).toObject();
            if (resource.value(u"resourceType"_s) == type) {
                found.append(resource);
            }
        }
        return found;
    }

    /// The Bundle of one prescription of card 1100.
    QJsonObject bundleOf(const QString& prescription, const QByteArray& status = {})
    {
        const RawAnswer answer = byCard("?patientIdentifier=1100&status=" + status);
        for (const QJsonObject& bundle : resources(answer.json(), u"Bundle"_s)) {
            if (prescriptionIn(bundle).value(u"id"_s) == prescription) {
                return bundle;
            }
        }
        ADD_FAILURE() << "no prescription " << qPrintable(prescription);
        return {};
    }

    static QJsonObject prescriptionIn(const QJsonObject& bundle)
    {
        return resources(bundle, u"MedicationPrescription"_s).value(0);
    }

    QList<QJsonObject> dispensesOf(const QString& prescription, const QByteArray& status = {})
    {
        return resources(bundleOf(prescription, status), u"MedicationDispense"_s);
    }

    /// A dispense of 10 doses of "rx-full" by a pharmacy whose texts show any change, which completes it.
    static QJsonObject finalDispense()
    {
        QJsonObject document = with(fullPriceDispense(), u"parameter.0.resource.extension.0.valueBoolean"_s, true);
        document = with(document, u"parameter.0.resource.contained.1.name"_s, u" Аптека  «№ 1»"_s);
        return with(document, u"parameter.0.resource.contained.1.address.text"_s, u"г. Выдуманск,\nул. Новая, 1 "_s);
    }

    static QJsonObject locationIn(const QJsonObject& dispense)
    {
        const QJsonArray contained = dispense.value(u"contained"_s).toArray();
        EXPECT_EQ(contained.size(), 1);
        return contained.at(0).toObject();
    }

    void changeRule(bool emulator::Rules::*rule, bool value)
    {
        emulator::Rules rules = m_emulator->store().rules();
        rules.*rule = value;
        m_emulator->store().setRules(rules);
    }

    static QStringList prescriptionIds(const RawAnswer& answer)
    {
        QStringList ids;
        for (const QJsonObject& bundle : resources(answer.json(), u"Bundle"_s)) {
            ids.append(prescriptionIn(bundle).value(u"id"_s).toString());
        }
        return ids;
    }
};
} // namespace

TEST_F(ByCardTest, emptyStatus_givesAllPrescriptionsInOrder)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&status=");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    EXPECT_EQ(answer.json().value(u"total"_s).toInt(), 6);
    EXPECT_EQ(prescriptionIds(answer),
              (QStringList{"rx-full", "rx-half", "rx-inn", "rx-free", "rx-expired", "rx-stopped"}));
}

TEST_F(ByCardTest, missingStatus_givesAllPrescriptions)
{
    EXPECT_EQ(prescriptionIds(byCard("?patientIdentifier=1100")).size(), 6);
}

TEST_F(ByCardTest, status_filtersPrescriptions)
{
    EXPECT_EQ(prescriptionIds(byCard("?patientIdentifier=1100&status=stopped")), QStringList{"rx-stopped"});
    EXPECT_EQ(prescriptionIds(byCard("?patientIdentifier=1100&status=active")),
              (QStringList{"rx-full", "rx-half", "rx-inn", "rx-free", "rx-expired"}));
}

TEST_F(ByCardTest, statusThatNoPrescriptionHas_givesBundleWithoutEntry)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&status=completed");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    EXPECT_FALSE(answer.json().contains(u"entry"_s));
}

TEST_F(ByCardTest, cardWithoutPrescriptions_givesBundleWithoutEntry)
{
    const RawAnswer answer = byCard("?patientIdentifier=1101&status=active");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    EXPECT_FALSE(answer.json().contains(u"entry"_s));
}

TEST_F(ByCardTest, patient_isThereOnceBesidePrescriptions)
{
    const QList<QJsonObject> patients = resources(byCard("?patientIdentifier=1100&status=").json(), u"Patient"_s);
    ASSERT_EQ(patients.size(), 1);
    EXPECT_EQ(patients.first().value(u"id"_s).toString(), u"p-1100"_s);
    EXPECT_EQ(patients.first().value(u"birthDate"_s).toString(), u"1960-01-31"_s);
    const QJsonObject name = patients.first().value(u"name"_s).toArray().at(0).toObject();
    EXPECT_EQ(name.value(u"family"_s), (QJsonArray{u"Пробный"_s}));
    EXPECT_EQ(name.value(u"given"_s), (QJsonArray{u"Пётр"_s, u"Петрович"_s}));
}

TEST_F(ByCardTest, prescription_hasItsData)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(u"rx-half"_s));
    const auto member = [&](const char* name) { return prescription.value(QLatin1StringView(name)); };
    EXPECT_EQ(member("status").toString(), u"active"_s);
    EXPECT_EQ(member("dateWritten").toString(), u"2024-03-15"_s);
    EXPECT_EQ(member("patient").toObject().value(u"reference"_s).toString(), u"Patient/p-1100"_s);
    EXPECT_EQ(member("identifier").toArray().at(0).toObject().value(u"value"_s).toString(), u"АБ 2"_s);
    const QJsonObject dispense = member("dispense").toObject();
    EXPECT_EQ(dispense.value(u"validityPeriod"_s).toObject().value(u"end"_s).toString(), u"2024-04-14"_s);
    EXPECT_EQ(dispense.value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 60);
    const QJsonObject extension = member("extension").toArray().at(0).toObject();
    EXPECT_TRUE(extension.value(u"url"_s).toString().endsWith(u"by-factor"_s));
    EXPECT_EQ(extension.value(u"valueDecimal"_s).toDouble(), 0.5);
}

TEST_F(ByCardTest, dosageInstructions_areSeparateTexts)
{
    const QJsonArray texts = prescriptionIn(bundleOf(u"rx-full"_s)).value(u"dosageInstruction"_s).toArray();
    ASSERT_EQ(texts.size(), 2);
    EXPECT_EQ(texts.at(0).toObject().value(u"text"_s).toString(), u"По 1 капсуле"_s);
    EXPECT_EQ(texts.at(1).toObject().value(u"text"_s).toString(), u"2 раза в день"_s);
}

TEST_F(ByCardTest, medicineWithTradeName_isReferredToAndEndsWithDosageCode)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(u"rx-full"_s));
    EXPECT_EQ(prescription.value(u"medication"_s).toObject().value(u"reference"_s).toString(), u"#trade"_s);
    const QJsonArray medications = prescription.value(u"contained"_s).toArray();
    ASSERT_EQ(medications.size(), 2);
    const QJsonObject inn = medications.at(0).toObject();
    const QJsonObject trade = medications.at(1).toObject();
    EXPECT_EQ(inn.value(u"isBrand"_s), QJsonValue(false));
    EXPECT_EQ(trade.value(u"isBrand"_s), QJsonValue(true));
    EXPECT_EQ(trade.value(u"id"_s).toString(), u"trade"_s);

    const QJsonArray innCodings = inn.value(u"code"_s).toObject().value(u"coding"_s).toArray();
    EXPECT_EQ(innCodings.last().toObject().value(u"code"_s).toString(), u"J01CA04"_s);
    EXPECT_EQ(innCodings.last().toObject().value(u"display"_s).toString(), u"Амоксициллин"_s);
    const QJsonArray codings = trade.value(u"code"_s).toObject().value(u"coding"_s).toArray();
    ASSERT_EQ(codings.size(), 2);
    EXPECT_EQ(codings.at(0).toObject().value(u"code"_s).toString(), u"TN-1"_s);
    EXPECT_EQ(codings.at(1).toObject().value(u"code"_s).toString(), u"1001"_s);
    EXPECT_EQ(codings.at(1).toObject().value(u"display"_s).toString(), u"Амоксидар"_s);
    EXPECT_EQ(codings.at(1).toObject().value(u"system"_s).toString(), m_emulator->store().rules().dosageSystem);
}

TEST_F(ByCardTest, medicineByNonProprietaryNameAlone_hasOneMedication)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(u"rx-inn"_s));
    EXPECT_EQ(prescription.value(u"medication"_s).toObject().value(u"reference"_s).toString(), u"#inn"_s);
    EXPECT_EQ(prescription.value(u"contained"_s).toArray().size(), 1);
}

TEST_F(ByCardTest, fullPayPrescription_hasNeitherShareNorOrganization)
{
    const QJsonObject bundle = bundleOf(u"rx-full"_s);
    EXPECT_FALSE(prescriptionIn(bundle).contains(u"extension"_s));
    EXPECT_TRUE(resources(bundle, u"Organization"_s).isEmpty());
}

TEST_F(ByCardTest, benefit_namesItsPayer)
{
    const auto payers = resources(bundleOf(u"rx-half"_s), u"Organization"_s);
    ASSERT_EQ(payers.size(), 1);
    EXPECT_EQ(payers.first().value(u"id"_s).toString(), u"payer-1"_s);
    EXPECT_EQ(payers.first().value(u"name"_s).toString(), u"Поликлиника № 1"_s);
}

TEST_F(ByCardTest, practitioner_hasNameObject)
{
    const auto practitioners = resources(bundleOf(u"rx-full"_s), u"Practitioner"_s);
    ASSERT_EQ(practitioners.size(), 1);
    const QJsonObject name = practitioners.first().value(u"name"_s).toObject();
    EXPECT_EQ(name.value(u"family"_s), (QJsonArray{u"Вымышленная"_s}));
    EXPECT_EQ(name.value(u"given"_s), (QJsonArray{u"Вера"_s, u"Ильинична"_s}));
}

TEST_F(ByCardTest, onlySignedPrescription_hasProvenance)
{
    EXPECT_EQ(resources(bundleOf(u"rx-full"_s), u"Provenance"_s).size(), 1);
    EXPECT_EQ(resources(bundleOf(u"rx-half"_s), u"Provenance"_s).size(), 0);
}

TEST_F(ByCardTest, earlierDispenses_areShownOldestFirst)
{
    const auto dispenses = resources(bundleOf(u"rx-half"_s), u"MedicationDispense"_s);
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.at(0).value(u"whenHandedOver"_s).toString(), u"2024-03-16"_s);
    EXPECT_EQ(dispenses.at(1).value(u"whenHandedOver"_s).toString(), u"2024-03-18"_s);
    EXPECT_EQ(dispenses.at(0).value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 10);
    EXPECT_EQ(dispenses.at(1).value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 20);
}

TEST_F(ByCardTest, registeredDispense_isShownUntilItIsCancelled)
{
    const QByteArray id = idOfDispense(registerDispense(fullPriceDispense())).toUtf8();
    const auto shown = resources(bundleOf(u"rx-full"_s), u"MedicationDispense"_s);
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().value(u"id"_s).toString().toUtf8(), id);
    EXPECT_EQ(shown.first().value(u"whenHandedOver"_s).toString(), u"2024-03-20"_s);
    ASSERT_EQ(cancelDispense(id).status, 200);
    EXPECT_TRUE(resources(bundleOf(u"rx-full"_s), u"MedicationDispense"_s).isEmpty());
}

TEST_F(ByCardTest, dispenseOfCompletedPrescription_isShownWithAllThatItsDocumentSaid)
{
    const QString id = idOfDispense(registerDispense(finalDispense()));
    ASSERT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
    for (const QByteArray status : {"completed", ""}) {
        const auto dispenses = dispensesOf(u"rx-full"_s, status);
        ASSERT_EQ(dispenses.size(), 1) << status.constData();
        const QJsonObject& dispense = dispenses.first();
        EXPECT_EQ(dispense.value(u"id"_s).toString(), id);
        EXPECT_EQ(dispense.value(u"status"_s).toString(), u"completed"_s);
        EXPECT_EQ(dispense.value(u"whenHandedOver"_s).toString(), u"2024-03-20"_s);
        EXPECT_EQ(dispense.value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 10);
        const QJsonObject location = locationIn(dispense);
        EXPECT_EQ(location.value(u"resourceType"_s).toString(), u"Location"_s);
        EXPECT_EQ(location.value(u"name"_s).toString(), u" Аптека  «№ 1»"_s);
        EXPECT_EQ(location.value(u"address"_s).toObject().value(u"text"_s).toString(),
                  u"г. Выдуманск,\nул. Новая, 1 "_s);
    }
}

TEST_F(ByCardTest, seededDispenses_haveTheirIdsAndThePharmaciesThatTheSeedNames)
{
    QByteArray seed = seedJson();
    seed.replace(R"("id": "d-2", )", R"("id": "d-2", "pharmacyName": "Аптека № 2", "pharmacyAddress": "Тупик, 2", )");
    m_emulator->seed(seed);
    const auto dispenses = dispensesOf(u"rx-half"_s);
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.at(0).value(u"id"_s).toString(), u"d-1"_s);
    EXPECT_FALSE(dispenses.at(0).contains(u"contained"_s));
    EXPECT_EQ(dispenses.at(1).value(u"id"_s).toString(), u"d-2"_s);
    EXPECT_EQ(locationIn(dispenses.at(1)).value(u"name"_s).toString(), u"Аптека № 2"_s);
    EXPECT_EQ(locationIn(dispenses.at(1)).value(u"address"_s).toObject().value(u"text"_s).toString(), u"Тупик, 2"_s);
}

TEST_F(ByCardTest, registryThatHidesDispenseIds_showsDispensesWithoutThem)
{
    registerDispense(fullPriceDispense());
    changeRule(&emulator::Rules::showDispenseIds, false);
    const auto dispenses = dispensesOf(u"rx-full"_s);
    ASSERT_EQ(dispenses.size(), 1);
    EXPECT_FALSE(dispenses.first().contains(u"id"_s));
    EXPECT_EQ(dispenses.first().value(u"status"_s).toString(), u"completed"_s);
    EXPECT_EQ(locationIn(dispenses.first()).value(u"name"_s).toString(), u"Аптека"_s);
}

TEST_F(ByCardTest, registryThatHidesPharmacies_showsDispensesWithoutThem)
{
    const QString id = idOfDispense(registerDispense(fullPriceDispense()));
    changeRule(&emulator::Rules::showPharmacies, false);
    const auto dispenses = dispensesOf(u"rx-full"_s);
    ASSERT_EQ(dispenses.size(), 1);
    EXPECT_FALSE(dispenses.first().contains(u"contained"_s));
    EXPECT_EQ(dispenses.first().value(u"id"_s).toString(), id);
}

TEST_F(ByCardTest, registryThatShowsCancelledDispenses_showsThemAsEnteredInError)
{
    changeRule(&emulator::Rules::showCancelledDispenses, true);
    const QString cancelled = idOfDispense(registerDispense(fullPriceDispense()));
    ASSERT_EQ(cancelDispense(cancelled.toUtf8()).status, 200);
    const QString valid = idOfDispense(registerDispense(fullPriceDispense()));
    const auto dispenses = dispensesOf(u"rx-full"_s);
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.at(0).value(u"id"_s).toString(), cancelled);
    EXPECT_EQ(dispenses.at(0).value(u"status"_s).toString(), u"entered-in-error"_s);
    EXPECT_EQ(locationIn(dispenses.at(0)).value(u"name"_s).toString(), u"Аптека"_s);
    EXPECT_EQ(dispenses.at(1).value(u"id"_s).toString(), valid);
    EXPECT_EQ(dispenses.at(1).value(u"status"_s).toString(), u"completed"_s);
}

TEST_F(ByCardTest, oddCardNumber_isFoundWhenPercentEncoded)
{
    EXPECT_EQ(byCard("?patientIdentifier=11%2B0%20%2541%3B%D1%91&status=").status, 200);
    EXPECT_EQ(byCard("?patientIdentifier=11+0%20%2541;%D1%91&status=").status, 200);
    EXPECT_EQ(byCard("?patientIdentifier=11%200%20%2541%3B%D1%91&status=").status, 404);
}

TEST_F(ByCardTest, unknownCard_isNotFound)
{
    const RawAnswer answer = byCard("?patientIdentifier=9999&status=active");
    expectRefusal(answer, RefusalCode::CardUnknown);
}

TEST_F(ByCardTest, missingOrEmptyCard_isRefused)
{
    for (const QByteArray& query : {QByteArray(), QByteArray("?status=active"), QByteArray("?patientIdentifier=")}) {
        const RawAnswer answer = byCard(query);
        expectRefusal(answer, RefusalCode::CardMissing);
    }
}

TEST_F(ByCardTest, unknownStatus_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&status=Active");
    expectRefusal(answer, RefusalCode::StatusUnknown, {u"Active"_s});
}

TEST_F(ByCardTest, parameterThatOccursTwice_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&patientIdentifier=1101");
    expectRefusal(answer, RefusalCode::QueryParameterTwice, {u"patientIdentifier"_s});
}

TEST_F(ByCardTest, badPercentEncoding_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=%zz");
    expectRefusal(answer, RefusalCode::QueryUndecodable);
}

TEST_F(ByCardTest, filledCard_hasAsManyDifferentPrescriptions)
{
    m_emulator->fillCard(u"1100777"_s, 1000);
    m_emulator->fillCard(u"1100777"_s, 10);
    const QStringList ids = prescriptionIds(byCard("?patientIdentifier=1100777&status=active"));
    EXPECT_EQ(ids.size(), 1010);
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), 1010);
}
