// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QSet>

namespace
{
class ByCardTest : public EmulatorTest
{
protected:
    static QJsonArray entries(const QJsonObject& bundle) { return bundle.value(QStringLiteral("entry")).toArray(); }

    /// The resources of that type in a Bundle.
    static QList<QJsonObject> resources(const QJsonObject& bundle, const QString& type)
    {
        QList<QJsonObject> found;
        const QJsonArray all = entries(bundle);
        for (const QJsonValue& value : all) {
            const QJsonObject resource = value.toObject().value(QStringLiteral("resource")).toObject();
            if (resource.value(QStringLiteral("resourceType")) == type)
                found.append(resource);
        }
        return found;
    }

    /// The Bundle of one prescription of card 1100.
    QJsonObject bundleOf(const QString& prescription)
    {
        const RawAnswer answer = byCard("?patientIdentifier=1100&status=");
        for (const QJsonObject& bundle : resources(answer.json(), QStringLiteral("Bundle"))) {
            if (prescriptionIn(bundle).value(QStringLiteral("id")) == prescription)
                return bundle;
        }
        ADD_FAILURE() << "no prescription " << qPrintable(prescription);
        return {};
    }

    static QJsonObject prescriptionIn(const QJsonObject& bundle)
    {
        return resources(bundle, QStringLiteral("MedicationPrescription")).value(0);
    }

    static QStringList prescriptionIds(const RawAnswer& answer)
    {
        QStringList ids;
        for (const QJsonObject& bundle : resources(answer.json(), QStringLiteral("Bundle")))
            ids.append(prescriptionIn(bundle).value(QStringLiteral("id")).toString());
        return ids;
    }
};
} // namespace

TEST_F(ByCardTest, emptyStatus_givesAllPrescriptionsInOrder)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&status=");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.json().value(QStringLiteral("resourceType")).toString(), QStringLiteral("Bundle"));
    EXPECT_EQ(answer.json().value(QStringLiteral("total")).toInt(), 6);
    EXPECT_EQ(prescriptionIds(answer),
              (QStringList{"rx-full", "rx-half", "rx-inn", "rx-free", "rx-expired", "rx-stopped"}));
}

TEST_F(ByCardTest, missingStatus_isAsEmptyOne)
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
    EXPECT_EQ(answer.json().value(QStringLiteral("resourceType")).toString(), QStringLiteral("Bundle"));
    EXPECT_FALSE(answer.json().contains(QStringLiteral("entry")));
}

TEST_F(ByCardTest, cardWithoutPrescriptions_givesBundleWithoutEntry)
{
    const RawAnswer answer = byCard("?patientIdentifier=1101&status=active");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.json().value(QStringLiteral("resourceType")).toString(), QStringLiteral("Bundle"));
    EXPECT_FALSE(answer.json().contains(QStringLiteral("entry")));
}

TEST_F(ByCardTest, patient_standsOnceBesidePrescriptions)
{
    const QList<QJsonObject> patients =
        resources(byCard("?patientIdentifier=1100&status=").json(), QStringLiteral("Patient"));
    ASSERT_EQ(patients.size(), 1);
    EXPECT_EQ(patients.first().value(QStringLiteral("id")).toString(), QStringLiteral("p-1100"));
    EXPECT_EQ(patients.first().value(QStringLiteral("birthDate")).toString(), QStringLiteral("1960-01-31"));
    const QJsonObject name = patients.first().value(QStringLiteral("name")).toArray().at(0).toObject();
    EXPECT_EQ(name.value(QStringLiteral("family")), (QJsonArray{QStringLiteral("Пробный")}));
    EXPECT_EQ(name.value(QStringLiteral("given")), (QJsonArray{QStringLiteral("Пётр"), QStringLiteral("Петрович")}));
}

TEST_F(ByCardTest, prescription_carriesItsData)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(QStringLiteral("rx-half")));
    const auto member = [&](const char* name) { return prescription.value(QLatin1String(name)); };
    EXPECT_EQ(member("status").toString(), QStringLiteral("active"));
    EXPECT_EQ(member("dateWritten").toString(), QStringLiteral("2024-03-15"));
    EXPECT_EQ(member("patient").toObject().value(QStringLiteral("reference")).toString(),
              QStringLiteral("Patient/p-1100"));
    EXPECT_EQ(member("identifier").toArray().at(0).toObject().value(QStringLiteral("value")).toString(),
              QStringLiteral("АБ 2"));
    const QJsonObject dispense = member("dispense").toObject();
    EXPECT_EQ(dispense.value(QStringLiteral("validityPeriod")).toObject().value(QStringLiteral("end")).toString(),
              QStringLiteral("2024-04-14"));
    EXPECT_EQ(dispense.value(QStringLiteral("quantity")).toObject().value(QStringLiteral("value")).toDouble(), 60);
    const QJsonObject extension = member("extension").toArray().at(0).toObject();
    EXPECT_TRUE(extension.value(QStringLiteral("url")).toString().endsWith(QStringLiteral("by-factor")));
    EXPECT_EQ(extension.value(QStringLiteral("valueDecimal")).toDouble(), 0.5);
}

TEST_F(ByCardTest, dosageInstructions_areSeparateTexts)
{
    const QJsonArray texts =
        prescriptionIn(bundleOf(QStringLiteral("rx-full"))).value(QStringLiteral("dosageInstruction")).toArray();
    ASSERT_EQ(texts.size(), 2);
    EXPECT_EQ(texts.at(0).toObject().value(QStringLiteral("text")).toString(), QStringLiteral("По 1 капсуле"));
    EXPECT_EQ(texts.at(1).toObject().value(QStringLiteral("text")).toString(), QStringLiteral("2 раза в день"));
}

TEST_F(ByCardTest, medicineWithTradeName_isReferredToAndEndsWithDosageCode)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(QStringLiteral("rx-full")));
    EXPECT_EQ(prescription.value(QStringLiteral("medication")).toObject().value(QStringLiteral("reference")).toString(),
              QStringLiteral("#trade"));
    const QJsonArray medications = prescription.value(QStringLiteral("contained")).toArray();
    ASSERT_EQ(medications.size(), 2);
    const QJsonObject inn = medications.at(0).toObject();
    const QJsonObject trade = medications.at(1).toObject();
    EXPECT_EQ(inn.value(QStringLiteral("isBrand")), QJsonValue(false));
    EXPECT_EQ(trade.value(QStringLiteral("isBrand")), QJsonValue(true));
    EXPECT_EQ(trade.value(QStringLiteral("id")).toString(), QStringLiteral("trade"));

    const QJsonArray innCodings =
        inn.value(QStringLiteral("code")).toObject().value(QStringLiteral("coding")).toArray();
    EXPECT_EQ(innCodings.last().toObject().value(QStringLiteral("code")).toString(), QStringLiteral("J01CA04"));
    EXPECT_EQ(innCodings.last().toObject().value(QStringLiteral("display")).toString(), QStringLiteral("Амоксициллин"));
    const QJsonArray codings = trade.value(QStringLiteral("code")).toObject().value(QStringLiteral("coding")).toArray();
    ASSERT_EQ(codings.size(), 2);
    EXPECT_EQ(codings.at(0).toObject().value(QStringLiteral("code")).toString(), QStringLiteral("TN-1"));
    EXPECT_EQ(codings.at(1).toObject().value(QStringLiteral("code")).toString(), QStringLiteral("1001"));
    EXPECT_EQ(codings.at(1).toObject().value(QStringLiteral("display")).toString(), QStringLiteral("Амоксидар"));
    EXPECT_EQ(codings.at(1).toObject().value(QStringLiteral("system")).toString(),
              m_emulator->store().rules().dosageSystem);
}

TEST_F(ByCardTest, medicineByNonProprietaryNameAlone_hasOneMedication)
{
    const QJsonObject prescription = prescriptionIn(bundleOf(QStringLiteral("rx-inn")));
    EXPECT_EQ(prescription.value(QStringLiteral("medication")).toObject().value(QStringLiteral("reference")).toString(),
              QStringLiteral("#inn"));
    EXPECT_EQ(prescription.value(QStringLiteral("contained")).toArray().size(), 1);
}

TEST_F(ByCardTest, fullPayPrescription_hasNeitherShareNorOrganization)
{
    const QJsonObject bundle = bundleOf(QStringLiteral("rx-full"));
    EXPECT_FALSE(prescriptionIn(bundle).contains(QStringLiteral("extension")));
    EXPECT_TRUE(resources(bundle, QStringLiteral("Organization")).isEmpty());
}

TEST_F(ByCardTest, benefit_namesItsPayer)
{
    const auto payers = resources(bundleOf(QStringLiteral("rx-half")), QStringLiteral("Organization"));
    ASSERT_EQ(payers.size(), 1);
    EXPECT_EQ(payers.first().value(QStringLiteral("id")).toString(), QStringLiteral("payer-1"));
    EXPECT_EQ(payers.first().value(QStringLiteral("name")).toString(), QStringLiteral("Поликлиника № 1"));
}

TEST_F(ByCardTest, practitioner_hasNameObject)
{
    const auto practitioners = resources(bundleOf(QStringLiteral("rx-full")), QStringLiteral("Practitioner"));
    ASSERT_EQ(practitioners.size(), 1);
    const QJsonObject name = practitioners.first().value(QStringLiteral("name")).toObject();
    EXPECT_EQ(name.value(QStringLiteral("family")), (QJsonArray{QStringLiteral("Вымышленная")}));
    EXPECT_EQ(name.value(QStringLiteral("given")), (QJsonArray{QStringLiteral("Вера"), QStringLiteral("Ильинична")}));
}

TEST_F(ByCardTest, onlySignedPrescription_hasProvenance)
{
    EXPECT_EQ(resources(bundleOf(QStringLiteral("rx-full")), QStringLiteral("Provenance")).size(), 1);
    EXPECT_EQ(resources(bundleOf(QStringLiteral("rx-half")), QStringLiteral("Provenance")).size(), 0);
}

TEST_F(ByCardTest, earlierDispenses_areShownOldestFirst)
{
    const auto dispenses = resources(bundleOf(QStringLiteral("rx-half")), QStringLiteral("MedicationDispense"));
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.at(0).value(QStringLiteral("whenHandedOver")).toString(), QStringLiteral("2024-03-16"));
    EXPECT_EQ(dispenses.at(1).value(QStringLiteral("whenHandedOver")).toString(), QStringLiteral("2024-03-18"));
    EXPECT_EQ(dispenses.at(0).value(QStringLiteral("quantity")).toObject().value(QStringLiteral("value")).toDouble(),
              10);
    EXPECT_EQ(dispenses.at(1).value(QStringLiteral("quantity")).toObject().value(QStringLiteral("value")).toDouble(),
              20);
}

TEST_F(ByCardTest, registeredDispense_isShownUntilItIsCancelled)
{
    const QByteArray id = idOfDispense(registerDispense(fullPriceDispense())).toUtf8();
    const auto shown = resources(bundleOf(QStringLiteral("rx-full")), QStringLiteral("MedicationDispense"));
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().value(QStringLiteral("id")).toString().toUtf8(), id);
    EXPECT_EQ(shown.first().value(QStringLiteral("whenHandedOver")).toString(), QStringLiteral("2024-03-20"));
    ASSERT_EQ(cancelDispense(id).status, 200);
    EXPECT_TRUE(resources(bundleOf(QStringLiteral("rx-full")), QStringLiteral("MedicationDispense")).isEmpty());
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
    EXPECT_EQ(answer.status, 404);
    EXPECT_EQ(answer.issue(), QStringLiteral("Карта не найдена в реестре"));
}

TEST_F(ByCardTest, missingOrEmptyCard_isRefused)
{
    for (const QByteArray& query : {QByteArray(), QByteArray("?status=active"), QByteArray("?patientIdentifier=")}) {
        const RawAnswer answer = byCard(query);
        EXPECT_EQ(answer.status, 400);
        EXPECT_EQ(answer.issue(), QStringLiteral("Не указан номер карты"));
    }
}

TEST_F(ByCardTest, unknownStatus_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&status=Active");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.issue(), QStringLiteral("Неизвестный статус рецепта «Active»"));
}

TEST_F(ByCardTest, parameterThatStandsTwice_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=1100&patientIdentifier=1101");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.issue(), QStringLiteral("Параметр patientIdentifier указан дважды"));
}

TEST_F(ByCardTest, badPercentEncoding_isRefused)
{
    const RawAnswer answer = byCard("?patientIdentifier=%zz");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.issue(), QStringLiteral("Параметры запроса не удалось разобрать"));
}

TEST_F(ByCardTest, filledCard_answersThatManyDifferentPrescriptions)
{
    m_emulator->fillCard(QStringLiteral("1100777"), 1000);
    m_emulator->fillCard(QStringLiteral("1100777"), 10);
    const QStringList ids = prescriptionIds(byCard("?patientIdentifier=1100777&status=active"));
    EXPECT_EQ(ids.size(), 1010);
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), 1010);
}
