// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "payingelectronicprescriptionorganization.h"

#include <QJsonDocument>

namespace
{

QJsonObject json(const char* text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    EXPECT_TRUE(document.isObject()) << text << ": " << qPrintable(error.errorString());
    return document.object();
}

class Mapping : public PharmacyTest
{
protected:
    Mapping() { service.dosageSystemId = "urn:dosage"; }

    QSharedPointer<ElectronicPrescription> map(const char* resource)
    {
        const auto prescription = prescriptionWithId("");
        apply(resource, prescription);
        return prescription;
    }

    void apply(const char* resource, const QSharedPointer<ElectronicPrescription>& prescription)
    {
        service.fillElectronicPrescription(json(resource), prescription);
    }

    static QList<QDate> dispenseDates(const ElectronicPrescription& prescription)
    {
        QList<QDate> dates;
        prescription.getMedicationDispenseDates(dates);
        return dates;
    }

    /// Everything of the record, for comparing two of them.
    static QVariantList everything(const ElectronicPrescription& record)
    {
        QVariantList all = {record.getId(),
                            record.getInn(),
                            record.getInnCode(),
                            record.getTradeName(),
                            record.getTradeNameCode(),
                            record.isPrescribedByInn(),
                            record.getDoseQuantity(),
                            record.getDispensedDoseQuantity(),
                            record.getPrescriptionDate(),
                            record.getExpirationDate(),
                            record.hasDigitalSignature(),
                            record.getInstructions(),
                            record.getPayByPatientSumFactor(),
                            !record.getPayingElectronicPrescriptionOrganization().isNull(),
                            record.getPatientReference(),
                            record.getPractitionerName(),
                            record.getSerialNumber(),
                            record.getDictName(),
                            record.getDictCode()};
        for (const QDate& date : dispenseDates(record)) {
            all << date;
        }
        return all;
    }
};

TEST_F(Mapping, wholePrescription_fillsEveryField)
{
    const auto record = map(R"({
        "resourceType": "MedicationPrescription",
        "id": "r1",
        "medication": {"reference": "#med1"},
        "contained": [
            {"id": "med1", "isBrand": false,
             "code": {"coding": [{"system": "urn:inn", "code": "i1", "display": "Парацетамол"}]}},
            {"id": "med2", "isBrand": true,
             "code": {"coding": [{"system": "urn:trade", "code": "t1", "display": "Панадол"}]}}
        ],
        "dateWritten": "2024-03-01",
        "dosageInstruction": [{"text": "По одной"}, {"text": "утром"}],
        "extension": [{"url": "urn:by-factor", "valueDecimal": 0.25}],
        "dispense": {"validityPeriod": {"end": "2024-05-30"}, "quantity": {"value": 2.5}},
        "patient": {"reference": "Patient/p1"},
        "identifier": [{"value": "1201 №1"}, {"value": "another"}]
    })");

    EXPECT_EQ(record->getId(), "r1");
    EXPECT_EQ(record->getInn(), "Парацетамол");
    EXPECT_EQ(record->getInnCode(), "i1");
    EXPECT_EQ(record->getTradeName(), "Панадол");
    EXPECT_EQ(record->getTradeNameCode(), "t1");
    EXPECT_TRUE(record->isPrescribedByInn());
    EXPECT_EQ(record->getDictCode(), "");
    EXPECT_EQ(record->getPrescriptionDate(), QDate(2024, 3, 1));
    EXPECT_EQ(record->getInstructions(), "По одной утром");
    EXPECT_EQ(record->getPayByPatientSumFactor(), 0.25);
    EXPECT_EQ(record->getExpirationDate(), QDate(2024, 5, 30));
    EXPECT_EQ(record->getDoseQuantity(), 2.5);
    EXPECT_EQ(record->getPatientReference(), "Patient/p1");
    EXPECT_EQ(record->getSerialNumber(), "1201 №1");
    EXPECT_FALSE(record->hasDigitalSignature());
}

/// A record that writes down which of its fields are set; of a medicine's also to what.
class JournallingRecord : public ElectronicPrescription
{
public:
    QStringList calls;

    void setId(const QString&) override { calls << "id"; }
    void setInn(const QString& inn) override { calls << "inn " + inn; }
    void setInnCode(const QString& code) override { calls << "inn code " + code; }
    void setTradeName(const QString& name) override { calls << "trade name " + name; }
    void setTradeNameCode(const QString& code) override { calls << "trade name code " + code; }
    void setPrescribedByInn() override { calls << "prescribed by inn"; }
    void setDoseQuantity(double) override { calls << "doses"; }
    void addDispensedDoseQuantity(double) override { calls << "dispensed doses"; }
    void setPrescriptionDate(const QDate&) override { calls << "prescription date"; }
    void setExpirationDate(const QDate&) override { calls << "expiration date"; }
    void setDigitalSignature() override { calls << "signature"; }
    void setInstructions(const QString&) override { calls << "instructions"; }
    void setPayByPatientSumFactor(double) override { calls << "factor"; }
    void setPayingElectronicPrescriptionOrganization(
        const QSharedPointer<PayingElectronicPrescriptionOrganization>&) override
    {
        calls << "organization";
    }
    void addMedicationDispenseDate(const QDate&) override { calls << "dispense date"; }
    void setPatientReference(const QString&) override { calls << "patient reference"; }
    void setPractitionerName(const QString&) override { calls << "practitioner"; }
    void setSerialNumber(const QString&) override { calls << "serial number"; }
    void setDictName(const QString&) override { calls << "dictionary name"; }
    void setDictCode(const QString& code) override { calls << "dictionary code " + code; }
};

TEST_F(Mapping, wholePrescription_isAppliedInThisOrder)
{
    const QSharedPointer<JournallingRecord> record(new JournallingRecord);

    apply(R"({
        "resourceType": "MedicationPrescription",
        "identifier": [{"value": "1201"}],
        "patient": {"reference": "Patient/p1"},
        "dispense": {"quantity": {"value": 2.5}, "validityPeriod": {"end": "2024-05-30"}},
        "extension": [{"url": "urn:by-factor", "valueDecimal": 0.25}],
        "dosageInstruction": [{"text": "По одной"}],
        "dateWritten": "2024-03-01",
        "contained": [
            {"id": "med2", "isBrand": true,
             "code": {"coding": [{"system": "urn:trade", "code": "t1", "display": "Т"}]}},
            {"id": "med1", "code": {"coding": [{"system": "urn:dosage", "code": "123", "display": "И"}]}}
        ],
        "medication": {"reference": "#med1"},
        "id": "r1"
    })",
          record);

    EXPECT_EQ(record->calls,
              (QStringList{"id", "trade name Т", "trade name code t1", "inn И", "inn code 123", "prescribed by inn",
                           "dictionary code 123", "prescription date", "instructions", "factor", "expiration date",
                           "doses", "patient reference", "serial number"}));
}

TEST_F(Mapping, everyCodingOfEveryMedicine_isAppliedInItsTurn)
{
    const QSharedPointer<JournallingRecord> record(new JournallingRecord);

    apply(R"({
        "resourceType": "MedicationPrescription",
        "medication": {"reference": "#m"},
        "contained": [
            {"id": "b", "isBrand": true, "code": {"coding": [{"system": "urn:dosage", "code": "1", "display": "А"},
                                                             {"system": "urn:trade", "code": "2", "display": "Б"}]}},
            {"id": "m", "code": {"coding": [{"system": "urn:inn", "code": "3", "display": "В"},
                                            {"system": "urn:dosage", "code": "4", "display": "Г"}]}},
            {"id": "n", "code": {"coding": [{"system": "urn:inn", "code": "5", "display": "Д"}]}}
        ]
    })",
          record);

    EXPECT_EQ(record->calls.mid(1, 14), (QStringList{"trade name А", "trade name code 1", "dictionary code 1",        //
                                                     "trade name Б", "trade name code 2",                             //
                                                     "inn В", "inn code 3", "prescribed by inn",                      //
                                                     "inn Г", "inn code 4", "prescribed by inn", "dictionary code 4", //
                                                     "inn Д", "inn code 5"}));
    EXPECT_EQ(record->calls.value(15), "prescription date");
}

TEST_F(Mapping, prescriptionWithoutMembers_setsOnlyWhatIsAlwaysSet)
{
    const QSharedPointer<JournallingRecord> record(new JournallingRecord);

    apply(R"({"resourceType": "MedicationPrescription"})", record);

    EXPECT_EQ(record->calls, (QStringList{"id", "prescription date", "instructions", "expiration date", "doses",
                                          "patient reference", "serial number"}));
}

TEST_F(Mapping, dispense_addsItsDateThenItsDoses)
{
    const QSharedPointer<JournallingRecord> record(new JournallingRecord);

    apply(R"({"resourceType": "MedicationDispense"})", record);

    EXPECT_EQ(record->calls, (QStringList{"dispense date", "dispensed doses"}));
}

TEST_F(Mapping, prescriptionWithoutMembers_leavesDefaults)
{
    EXPECT_EQ(everything(*map(R"({"resourceType": "MedicationPrescription"})")), everything(ElectronicPrescription()));
}

TEST_F(Mapping, prescriptionWithoutMembers_takesBackWhatIsAlwaysSet)
{
    const auto record = prescriptionWithId("old");
    record->setPrescriptionDate(QDate(2024, 1, 1));
    record->setExpirationDate(QDate(2024, 1, 1));
    record->setInstructions("old");
    record->setDoseQuantity(7);
    record->setPatientReference("old");
    record->setSerialNumber("old");
    record->setInn("kept");
    record->setPayByPatientSumFactor(0.5);

    apply(R"({"resourceType": "MedicationPrescription"})", record);

    EXPECT_EQ(record->getId(), "");
    EXPECT_FALSE(record->getPrescriptionDate().isValid());
    EXPECT_FALSE(record->getExpirationDate().isValid());
    EXPECT_EQ(record->getInstructions(), "");
    EXPECT_EQ(record->getDoseQuantity(), 0.0);
    EXPECT_EQ(record->getPatientReference(), "");
    EXPECT_EQ(record->getSerialNumber(), "");
    EXPECT_EQ(record->getInn(), "kept");
    EXPECT_EQ(record->getPayByPatientSumFactor(), 0.5);
}

class WrongShape : public Mapping, public ::testing::WithParamInterface<const char*>
{
};

/// Every member has a shape that nobody expects, at every level.
TEST_P(WrongShape, readsAsMissing)
{
    EXPECT_EQ(everything(*map(GetParam())), everything(ElectronicPrescription()));
}

INSTANTIATE_TEST_SUITE_P(
    member, WrongShape,
    ::testing::Values(
        R"({"resourceType": "MedicationPrescription", "id": 7})",
        R"({"resourceType": "MedicationPrescription", "id": {"value": "7"}})",
        R"({"resourceType": "MedicationPrescription", "medication": "#med1", "contained": "none"})",
        R"({"resourceType": "MedicationPrescription", "medication": {"reference": 1}, "contained": [1, "a", null, []]})",
        R"({"resourceType": "MedicationPrescription", "contained": {"0": {"code": {"coding": [{"display": "a"}]}}}})",
        R"({"resourceType": "MedicationPrescription", "contained": [{"code": []}, {"code": {"coding": {}}}]})",
        R"({"resourceType": "MedicationPrescription", "dateWritten": 20240301})",
        R"({"resourceType": "MedicationPrescription", "dateWritten": ["2024-03-01"]})",
        R"({"resourceType": "MedicationPrescription", "dosageInstruction": {"text": "a"}})",
        R"({"resourceType": "MedicationPrescription", "dosageInstruction": ["a", 1, null, {"text": 1}]})",
        R"({"resourceType": "MedicationPrescription", "extension": {"url": "by-factor", "valueDecimal": 0.5}})",
        R"({"resourceType": "MedicationPrescription", "extension": [1, "by-factor", {"url": 1, "valueDecimal": 0.5}]})",
        R"({"resourceType": "MedicationPrescription", "dispense": []})",
        R"({"resourceType": "MedicationPrescription", "dispense": {"validityPeriod": "2024-03-01", "quantity": 3}})",
        R"({"resourceType": "MedicationPrescription", "dispense": {"quantity": {"value": "3"}}})",
        R"({"resourceType": "MedicationPrescription", "patient": "Patient/1"})",
        R"({"resourceType": "MedicationPrescription", "identifier": {"value": "1"}})",
        R"({"resourceType": "MedicationPrescription", "identifier": []})",
        R"({"resourceType": "MedicationPrescription", "identifier": ["1"]})",
        R"({"resourceType": "MedicationPrescription", "identifier": [{"value": 1}]})", R"({"resourceType": 7})",
        R"({"id": "without a type"})", R"({"resourceType": "medicationprescription", "id": "other case"})",
        R"({"resourceType": "provenance"})", R"({"resourceType": "Patient", "id": "p1"})"));

TEST_F(Mapping, reference_losesItsFirstCharacterOnly)
{
    const auto byId = [this](const char* reference, const char* id) {
        QJsonObject resource = json(R"({"resourceType": "MedicationPrescription",
                                        "contained": [{"code": {"coding": [{"code": "1"}]}}]})");
        resource["medication"] = QJsonObject{{"reference", reference}};
        QJsonObject medication = resource["contained"][0].toObject();
        medication["id"] = id;
        resource["contained"] = QJsonArray{medication};
        const auto prescription = prescriptionWithId("");
        service.fillElectronicPrescription(resource, prescription);
        return prescription->isPrescribedByInn();
    };
    EXPECT_TRUE(byId("#med1", "med1"));
    EXPECT_TRUE(byId("##1", "#1"));
    EXPECT_TRUE(byId("", "")) << "an absent reference equals an absent id";
    EXPECT_FALSE(byId("#med1", "Med1"));
    EXPECT_FALSE(byId("med1", "med1"));
    EXPECT_FALSE(byId("#med1", "med12"));
}

TEST_F(Mapping, brandReferred_isNotPrescribedByInn)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription", "medication": {"reference": "#m"},
        "contained": [{"id": "m", "isBrand": true, "code": {"coding": [{"code": "t", "display": "Т"}]}},
                      {"id": "n", "code": {"coding": [{"code": "i", "display": "И"}]}}]})");

    EXPECT_FALSE(record->isPrescribedByInn());
    EXPECT_EQ(record->getTradeName(), "Т");
    EXPECT_EQ(record->getInn(), "И");
}

TEST_F(Mapping, brandIsNoBool_countsAsInn)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription",
        "contained": [{"id": "n", "isBrand": "true", "code": {"coding": [{"code": "i", "display": "И"}]}}]})");

    EXPECT_EQ(record->getInn(), "И");
    EXPECT_EQ(record->getTradeName(), "");
}

TEST_F(Mapping, medicationWithoutCodings_isNotPrescribedByInn)
{
    EXPECT_FALSE(map(R"({"resourceType": "MedicationPrescription", "medication": {"reference": "#m"},
        "contained": [{"id": "m"}]})")
                     ->isPrescribedByInn());
}

TEST_F(Mapping, severalCodings_lastOneOfItsKindIsKept)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription", "contained": [
        {"isBrand": true, "code": {"coding": [{"system": "urn:trade", "code": "t1", "display": "Панадол"},
                                              {"system": "urn:dosage", "code": "123", "display": "Панадол таб."}]}},
        {"code": {"coding": [{"code": "i1", "display": "Первое"}, {"code": "i2"}]}}]})");

    EXPECT_EQ(record->getTradeName(), "Панадол таб.");
    EXPECT_EQ(record->getTradeNameCode(), "123");
    EXPECT_EQ(record->getDictCode(), "123");
    EXPECT_EQ(record->getInn(), "") << "an absent display overwrites too";
    EXPECT_EQ(record->getInnCode(), "i2");
}

TEST_F(Mapping, lastCodingIsNoObject_namesTheMedicineEmptyAndTheDictionaryCodeBeforeItCounts)
{
    const auto record = prescriptionWithId("");
    record->setInn("Прежнее");
    record->setInnCode("old");
    record->setTradeName("Прежнее");
    record->setTradeNameCode("old");

    apply(R"({"resourceType": "MedicationPrescription", "medication": {"reference": "#m"}, "contained": [
        {"id": "m", "code": {"coding": [{"system": "urn:dosage", "code": "5", "display": "И"}, 1, "a"]}},
        {"isBrand": true, "code": {"coding": [1, "a"]}}]})",
          record);

    EXPECT_EQ(record->getInn(), "");
    EXPECT_EQ(record->getInnCode(), "");
    EXPECT_EQ(record->getTradeName(), "");
    EXPECT_EQ(record->getTradeNameCode(), "");
    EXPECT_EQ(record->getDictCode(), "5");
    EXPECT_TRUE(record->isPrescribedByInn()) << "a coding counts, also one that is no object";
}

TEST_F(Mapping, containedOfOtherThings_onlyItsMedicinesAreRead)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription", "medication": {"reference": "#m"},
        "contained": [1, {"id": "m", "code": {"coding": [{"system": "urn:dosage", "code": "5", "display": "И"}]}},
                      "a", null, [{"id": "m", "code": {"coding": [{"code": "6", "display": "Б"}]}}]]})");

    EXPECT_EQ(record->getInn(), "И");
    EXPECT_EQ(record->getInnCode(), "5");
    EXPECT_EQ(record->getDictCode(), "5");
    EXPECT_TRUE(record->isPrescribedByInn());
}

TEST_F(Mapping, containedIsNoArray_leavesTheMedicineAsItWas)
{
    for (const char* contained :
         {R"({"id": "m", "code": {"coding": [{"code": "6", "display": "Б"}]}})", R"("m")", "1", "true", "null"}) {
        const auto record = prescriptionWithId("");
        record->setInn("Прежнее");
        record->setInnCode("i");
        record->setDictCode("5");

        apply((R"({"resourceType": "MedicationPrescription", "medication": {"reference": "#m"}, "contained": )" +
               QByteArray(contained) + "}")
                  .constData(),
              record);

        EXPECT_EQ(record->getInn(), "Прежнее") << contained;
        EXPECT_EQ(record->getInnCode(), "i") << contained;
        EXPECT_EQ(record->getTradeName(), "") << contained;
        EXPECT_EQ(record->getDictCode(), "5") << contained;
        EXPECT_FALSE(record->isPrescribedByInn()) << contained;
    }
}

TEST_F(Mapping, dictionaryCodingOfInn_givesDictionaryCode)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription", "contained": [
        {"code": {"coding": [{"system": "urn:dosage", "code": "5"}, {"system": "urn:dosage/", "code": "6"},
                             {"system": "URN:dosage", "code": "7"}]}}]})");

    EXPECT_EQ(record->getDictCode(), "5");
    EXPECT_EQ(record->getInnCode(), "7");
}

TEST_F(Mapping, severalDictionaryCodings_lastOneOfAllMedicinesIsKept)
{
    const auto record = map(R"({"resourceType": "MedicationPrescription", "contained": [
        {"code": {"coding": [{"system": "urn:dosage", "code": "1"}]}},
        {"isBrand": true, "code": {"coding": [{"system": "urn:dosage", "code": "2"},
                                              {"system": "urn:dosage", "code": "3"},
                                              {"system": "urn:trade", "code": "4"}]}},
        {"code": {"coding": [{"system": "urn:inn", "code": "5"}]}}]})");

    EXPECT_EQ(record->getDictCode(), "3");
    EXPECT_EQ(record->getTradeNameCode(), "4");
    EXPECT_EQ(record->getInnCode(), "5");
}

TEST_F(Mapping, dateWithTimeOfDay_isInvalid)
{
    EXPECT_FALSE(map(R"({"resourceType": "MedicationPrescription", "dateWritten": "2024-03-01T10:00:00"})")
                     ->getPrescriptionDate()
                     .isValid());
}

struct InstructionRow {
    const char* name;
    const char* instructions;
    QString expected;
};

class Instructions : public Mapping, public ::testing::WithParamInterface<InstructionRow>
{
};

TEST_P(Instructions, areJoined)
{
    QJsonObject resource{{"resourceType", "MedicationPrescription"}};
    resource["dosageInstruction"] = QJsonDocument::fromJson(GetParam().instructions).array();
    const auto prescription = prescriptionWithId("");

    service.fillElectronicPrescription(resource, prescription);

    EXPECT_EQ(prescription->getInstructions(), GetParam().expected);
}

const InstructionRow instructionRows[] = {
    {"none", "[]", ""},
    {"one", R"([{"text": "А"}])", "А"},
    {"emptyBetween", R"([{"text": "A"}, {"text": ""}, {"text": "B"}])", "A  B"},
    {"missingBetween", R"([{"text": "A"}, {}, {"text": "B"}])", "A  B"},
    {"emptyFirst", R"([{"text": ""}, {"text": "B"}])", "B"},
    {"emptyLast", R"([{"text": "A"}, {"text": ""}])", "A "},
};

INSTANTIATE_TEST_SUITE_P(row, Instructions, ::testing::ValuesIn(instructionRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct FactorRow {
    const char* name;
    const char* extensions;
    double expected;
};

class Factor : public Mapping, public ::testing::WithParamInterface<FactorRow>
{
};

TEST_P(Factor, isTheLastByFactor)
{
    QJsonObject resource{{"resourceType", "MedicationPrescription"}};
    resource["extension"] = QJsonDocument::fromJson(GetParam().extensions).array();
    const auto prescription = prescriptionWithId("");

    service.fillElectronicPrescription(resource, prescription);

    EXPECT_EQ(prescription->getPayByPatientSumFactor(), GetParam().expected);
}

const FactorRow factorRows[] = {
    {"two", R"([{"url": "a/by-factor", "valueDecimal": 0.5}, {"url": "b-by-factor", "valueDecimal": 0.1}])", 0.1},
    {"onlyTheSuffix", R"([{"url": "by-factor", "valueDecimal": 0.3}])", 0.3},
    {"inTheMiddle", R"([{"url": "a/by-factor/b", "valueDecimal": 0.5}])", 1.0},
    {"otherCase", R"([{"url": "a/By-Factor", "valueDecimal": 0.5}])", 1.0},
    {"withoutValue", R"([{"url": "a/by-factor"}])", 0.0},
    {"valueIsText", R"([{"url": "a/by-factor", "valueDecimal": "0.5"}])", 0.0},
    {"wholeNumber", R"([{"url": "a/by-factor", "valueDecimal": 0}])", 0.0},
    {"none", R"([])", 1.0},
};

INSTANTIATE_TEST_SUITE_P(row, Factor, ::testing::ValuesIn(factorRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Mapping, provenance_isTheSignature)
{
    const auto record = map(R"({"resourceType": "Provenance"})");

    EXPECT_TRUE(record->hasDigitalSignature());
    EXPECT_EQ(record->getPayByPatientSumFactor(), 1.0);
}

TEST_F(Mapping, organization_paysAndLastOneWins)
{
    const auto record = map(R"({"resourceType": "Organization", "id": "o1", "name": "Фонд"})");
    apply(R"({"resourceType": "Organization", "id": "o2"})", record);

    const auto organization = record->getPayingElectronicPrescriptionOrganization();
    ASSERT_TRUE(organization);
    EXPECT_EQ(organization->getId(), "o2");
    EXPECT_EQ(organization->getName(), "");
}

TEST_F(Mapping, payingOrganization_isANewOne)
{
    const QSharedPointer<PayingElectronicPrescriptionOrganization> former(
        new PayingElectronicPrescriptionOrganization("o1", "Прежний"));
    auto result = former;

    service.fillPayingElectronicPrescriptionOrganization(json(R"({"id": "o2", "name": "Фонд"})"), result);

    ASSERT_TRUE(result);
    EXPECT_NE(result, former);
    EXPECT_EQ(result->getId(), "o2");
    EXPECT_EQ(result->getName(), "Фонд");
    EXPECT_EQ(former->getId(), "o1");
}

struct OrganizationRow {
    const char* name;
    const char* resource;
    QString id;
    QString organizationName;
};

class WrongOrganization : public Mapping, public ::testing::WithParamInterface<OrganizationRow>
{
};

/// Somebody pays, also when the organization cannot be read.
TEST_P(WrongOrganization, paysUnderWhatCanBeRead)
{
    const auto organization = map(GetParam().resource)->getPayingElectronicPrescriptionOrganization();

    ASSERT_TRUE(organization);
    EXPECT_EQ(organization->getId(), GetParam().id);
    EXPECT_EQ(organization->getName(), GetParam().organizationName);
}

const OrganizationRow organizationRows[] = {
    {"idIsNumber", R"({"resourceType": "Organization", "id": 7, "name": "Фонд"})", "", "Фонд"},
    {"idIsObject", R"({"resourceType": "Organization", "id": {"value": "o1"}, "name": "Фонд"})", "", "Фонд"},
    {"nameIsNumber", R"({"resourceType": "Organization", "id": "o1", "name": 7})", "o1", ""},
    {"nameIsArray", R"({"resourceType": "Organization", "id": "o1", "name": ["Фонд"]})", "o1", ""},
    {"nameIsObject", R"({"resourceType": "Organization", "id": "o1", "name": {"text": "Фонд"}})", "o1", ""},
    {"bothAreNull", R"({"resourceType": "Organization", "id": null, "name": null})", "", ""},
};

INSTANTIATE_TEST_SUITE_P(row, WrongOrganization, ::testing::ValuesIn(organizationRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Mapping, dispenses_addUpInOrder)
{
    const auto record =
        map(R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": {"value": 10}})");
    apply(R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-03-02", "quantity": {"value": 20}})",
          record);

    EXPECT_EQ(record->getDispensedDoseQuantity(), 30.0);
    EXPECT_EQ(dispenseDates(*record), (QList<QDate>{QDate(2024, 4, 2), QDate(2024, 3, 2)}));
}

TEST_F(Mapping, dispenseWithTimeOfDayOrNothing_addsAnInvalidDate)
{
    const auto record = map(R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02T10:00:00",
                                "quantity": {"value": 1.5}})");
    apply(R"({"resourceType": "MedicationDispense"})", record);

    EXPECT_EQ(record->getDispensedDoseQuantity(), 1.5);
    EXPECT_EQ(dispenseDates(*record), (QList<QDate>{QDate(), QDate()}));
}

struct DispenseRow {
    const char* name;
    const char* resource;
    QDate date;
    double doses;
};

class WrongDispense : public Mapping, public ::testing::WithParamInterface<DispenseRow>
{
};

/// The medicine was handed out, so the date is added and what can be read counts.
TEST_P(WrongDispense, addsWhatCanBeRead)
{
    const auto record =
        map(R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-03-02", "quantity": {"value": 20}})");

    apply(GetParam().resource, record);

    EXPECT_EQ(dispenseDates(*record), (QList<QDate>{QDate(2024, 3, 2), GetParam().date}));
    EXPECT_EQ(record->getDispensedDoseQuantity(), 20 + GetParam().doses);
}

const QDate handedOver(2024, 4, 2);
const DispenseRow dispenseRows[] = {
    {"quantityIsNumber", R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": 10})",
     handedOver, 0},
    {"quantityIsText", R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": "10"})",
     handedOver, 0},
    {"quantityIsArray",
     R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": [{"value": 10}]})",
     handedOver, 0},
    {"valueIsText",
     R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": {"value": "10"}})",
     handedOver, 0},
    {"valueIsObject",
     R"({"resourceType": "MedicationDispense", "whenHandedOver": "2024-04-02", "quantity": {"value": {"value": 10}}})",
     handedOver, 0},
    {"dateIsNumber", R"({"resourceType": "MedicationDispense", "whenHandedOver": 20240402, "quantity": {"value": 10}})",
     QDate(), 10},
    {"dateIsArray",
     R"({"resourceType": "MedicationDispense", "whenHandedOver": ["2024-04-02"], "quantity": {"value": 10}})", QDate(),
     10},
    {"dateIsObject",
     R"({"resourceType": "MedicationDispense", "whenHandedOver": {"start": "2024-04-02"}, "quantity": {"value": 10}})",
     QDate(), 10},
};

INSTANTIATE_TEST_SUITE_P(row, WrongDispense, ::testing::ValuesIn(dispenseRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Mapping, practitionerOfAnotherShape_hasAnEmptyNameInPlaceOfTheFormerOne)
{
    for (const char* practitioner :
         {R"({"resourceType": "Practitioner", "name": "Врачёв Иван Ильич"})",
          R"({"resourceType": "Practitioner", "name": 7})", R"({"resourceType": "Practitioner", "name": null})",
          R"({"resourceType": "Practitioner", "name": {"family": "Врачёв", "given": "Иван"}})",
          R"({"resourceType": "Practitioner", "name": {"family": {"0": "Врачёв"}, "given": [1, ["Ильич"]]}})"}) {
        const auto record = prescriptionWithId("r1");
        record->setPractitionerName("Прежний Врач");

        apply(practitioner, record);

        EXPECT_EQ(record->getPractitionerName(), "  ") << practitioner;
        EXPECT_EQ(record->getId(), "r1") << practitioner;
    }
}

TEST_F(Mapping, practitioner_hasASingleName)
{
    EXPECT_EQ(map(R"({"resourceType": "Practitioner", "name": {"family": ["Врачёв"], "given": ["Иван", "Ильич"]}})")
                  ->getPractitionerName(),
              "Врачёв Иван Ильич");
    EXPECT_EQ(map(R"({"resourceType": "Practitioner", "name": [{"family": ["Врачёв"]}]})")->getPractitionerName(), "  ")
        << "a list is no name";
}

struct NameRow {
    const char* name;
    const char* object;
    QString expected;
};

class PersonName : public Mapping, public ::testing::WithParamInterface<NameRow>
{
};

TEST_P(PersonName, hasAlwaysThreeParts)
{
    EXPECT_EQ(service.getPatientOrPractitionerName(json(GetParam().object)), GetParam().expected);
}

const NameRow nameRows[] = {
    {"whole", R"({"family": ["Петров"], "given": ["Пётр", "Петрович"]})", "Петров Пётр Петрович"},
    {"singleGiven", R"({"family": ["Петров"], "given": ["Пётр"]})", "Петров Пётр Пётр"},
    {"threeGiven", R"({"family": ["Петров", "Сидоров"], "given": ["А", "Б", "В"]})", "Петров А В"},
    {"noGiven", R"({"family": ["Петров"]})", "Петров  "},
    {"emptyGiven", R"({"family": ["Петров"], "given": []})", "Петров  "},
    {"nothing", "{}", "  "},
    {"wrongShapes", R"({"family": "Петров", "given": {"0": "Пётр"}})", "  "},
    {"numbers", R"({"family": [1], "given": [2, 3]})", "  "},
    {"blanksStay", R"({"family": [" П "], "given": [" "]})", " П     "},
    {"placeholders", R"({"family": ["%2"], "given": ["%3", "%1"]})", "%2 %3 %1"},
};

INSTANTIATE_TEST_SUITE_P(row, PersonName, ::testing::ValuesIn(nameRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Mapping, patient_isCachedUnderTheStatusWithItsFirstName)
{
    service.fillPatient("active", json(R"({"name": [{"family": ["Петров"], "given": ["Пётр", "Петрович"]},
                                                    {"family": ["Другой"]}], "birthDate": "1950-02-28"})"));
    service.fillPatient("completed", json("{}"));

    ASSERT_EQ(service.patientCache.keys(), (QStringList{"active", "completed"}));
    EXPECT_EQ(service.patientCache["active"]->getName(), "Петров Пётр Петрович");
    EXPECT_EQ(service.patientCache["active"]->getBirthday(), QDate(1950, 2, 28));
    EXPECT_EQ(service.patientCache["completed"]->getName(), "  ");
    EXPECT_FALSE(service.patientCache["completed"]->getBirthday().isValid());
}

struct PatientRow {
    const char* name;
    const char* patient;
    QString patientName;
    QDate birthday;
};

class WrongPatient : public Mapping, public ::testing::WithParamInterface<PatientRow>
{
};

TEST_P(WrongPatient, isCachedWithWhatCanBeRead)
{
    service.fillPatient("active", json(GetParam().patient));

    ASSERT_EQ(service.patientCache.keys(), QStringList{"active"});
    EXPECT_EQ(service.patientCache["active"]->getName(), GetParam().patientName);
    EXPECT_EQ(service.patientCache["active"]->getBirthday(), GetParam().birthday);
}

const QDate born(1950, 2, 28);
const PatientRow patientRows[] = {
    {"birthDateIsNumber", R"({"name": [{"family": ["Петров"]}], "birthDate": 19500228})", "Петров  ", QDate()},
    {"birthDateIsArray", R"({"name": [{"family": ["Петров"]}], "birthDate": ["1950-02-28"]})", "Петров  ", QDate()},
    {"birthDateIsObject", R"({"name": [{"family": ["Петров"]}], "birthDate": {"value": "1950-02-28"}})", "Петров  ",
     QDate()},
    {"nameIsObject", R"({"name": {"family": ["Петров"], "given": ["Пётр"]}, "birthDate": "1950-02-28"})", "  ", born},
    {"nameIsText", R"({"name": "Петров Пётр", "birthDate": "1950-02-28"})", "  ", born},
    {"nameIsNumber", R"({"name": 7, "birthDate": "1950-02-28"})", "  ", born},
    {"namesAreTexts", R"({"name": ["Петров", {"family": ["Другой"]}], "birthDate": "1950-02-28"})", "  ", born},
    {"noNames", R"({"name": [], "birthDate": "1950-02-28"})", "  ", born},
};

INSTANTIATE_TEST_SUITE_P(row, WrongPatient, ::testing::ValuesIn(patientRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Mapping, patientAgain_replacesTheFormerOne)
{
    service.fillPatient("active", json(R"({"birthDate": "1950-02-28"})"));
    const auto former = service.patientCache["active"];

    service.fillPatient("active", json(R"({"name": "no list", "birthDate": "28.02.1950"})"));

    EXPECT_NE(service.patientCache["active"], former);
    EXPECT_FALSE(service.patientCache["active"]->getBirthday().isValid());
}

} // namespace
