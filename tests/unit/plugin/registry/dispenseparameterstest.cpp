// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "registrydoubles.h"
#include "registryuris.h"

namespace
{

class DispenseParametersTest : public RegistryTest
{
protected:
    DispenseParametersTest() { configurePharmacy(); }

    const ClockDouble clock{QDateTime(QDate(2024, 3, 1), QTime(23, 59, 59))};

    static QJsonObject dispenseOf(const char* options)
    {
        QJsonObject resource;
        ElectronicPrescriptionInterface().formMedicationDispenseResource(json(options), resource);
        return resource;
    }

    static double dosesOf(const char* options)
    {
        const QJsonObject dispense = dispenseOf(options);
        return dispense["quantity"]["value"].toDouble();
    }

    /// The names of the document's parameters, in order.
    static QStringList parametersOf(const char* options)
    {
        QJsonDocument document;
        ElectronicPrescriptionInterface().formMedicationDispense(QSharedPointer<PositionDouble>::create(options),
                                                                 document);
        QStringList names;
        const QJsonArray parameters = document.object()["parameter"].toArray();
        for (const auto& parameter : parameters) {
            names.append(parameter.toObject()["name"].toString());
        }
        return names;
    }
};

constexpr auto fullOptions = R"({"id": "p-1", "tradeNameCode": "200", "organizationId": "42", "sumFactor": 0.5,
    "doseQuantity": 2.675, "finalDispense": true, "patientReference": "Patient/7", "patient": "Иванов Иван Иванович",
    "organization": "Фонд", "serialNumber": "АБ 1", "status": "canceled"})";

TEST_F(DispenseParametersTest, dispense_hasExactlyTheseFields)
{
    const QJsonObject medication{
        {"resourceType", "Medication"},
        {"id", "internalMedication"},
        {"isBrand", true},
        {"code",
         QJsonObject{{"coding", QJsonArray{QJsonObject{{"system", registryuris::dosageDictionary}, {"code", "200"}}}}}},
    };
    EXPECT_EQ(dispenseOf(fullOptions),
              QJsonObject({
                  {"resourceType", "MedicationDispense"},
                  {"extension", QJsonArray{QJsonObject{{"url", registryuris::finalDispense}, {"valueBoolean", true}}}},
                  {"contained", QJsonArray{medication, ElectronicPrescriptionInterface().formLocationResource()}},
                  {"status", "completed"},
                  {"patient", QJsonObject{{"reference", "Patient/7"}}},
                  {"quantity", QJsonObject{{"value", 2.68}}},
                  {"authorizingPrescription", QJsonArray{QJsonObject{{"reference", "MedicationPrescription/p-1"}}}},
                  {"medication", QJsonObject{{"reference", "#internalMedication"}}},
                  {"whenHandedOver", "2024-03-01"},
              }));
}

TEST_F(DispenseParametersTest, dispenseWithoutOptions_hasTheDefaults)
{
    const QJsonObject dispense = dispenseOf("{}");
    EXPECT_EQ(dispense["extension"][0]["valueBoolean"], QJsonValue(false));
    EXPECT_EQ(dispense["patient"]["reference"], QJsonValue(""));
    EXPECT_EQ(dispense["quantity"]["value"], QJsonValue(0));
    EXPECT_EQ(dispense["authorizingPrescription"][0]["reference"], QJsonValue("MedicationPrescription/"));
    EXPECT_EQ(dispense["contained"][0]["code"]["coding"][0]["code"], QJsonValue(""));
    EXPECT_EQ(dispense.keys(), dispenseOf(fullOptions).keys()) << "every field is there all the same";
}

TEST_F(DispenseParametersTest, optionsOfTheWrongType_readAsTheDefaults)
{
    EXPECT_EQ(dispenseOf(R"({"id": 5, "tradeNameCode": true, "doseQuantity": "2", "finalDispense": 1,
                             "patientReference": ["Patient/7"]})"),
              dispenseOf("{}"));
}

TEST_F(DispenseParametersTest, idWithPlaceholder_isTakenAsItIs)
{
    const QJsonObject dispense = dispenseOf(R"({"id": "%1"})");
    EXPECT_EQ(dispense["authorizingPrescription"][0]["reference"], QJsonValue("MedicationPrescription/%1"));
}

TEST_F(DispenseParametersTest, doses_areRoundedToTwoDecimals)
{
    EXPECT_EQ(dosesOf(R"({"doseQuantity": 2.675})"), 2.68);
    EXPECT_EQ(dosesOf(R"({"doseQuantity": -1.005})"), -1.01);
    EXPECT_EQ(dosesOf(R"({"doseQuantity": 30})"), 30.0);
    EXPECT_EQ(dosesOf(R"({"doseQuantity": 0.001})"), 0.0);
}

TEST_F(DispenseParametersTest, medication_replacesWhatTheObjectHeld)
{
    QJsonObject resource{{"former", 1}};
    ElectronicPrescriptionInterface().formMedicationResource(json(R"({"tradeNameCode": "7"})"), resource);
    EXPECT_EQ(
        resource,
        QJsonObject({{"resourceType", "Medication"},
                     {"id", "internalMedication"},
                     {"isBrand", true},
                     {"code", QJsonObject{{"coding", QJsonArray{QJsonObject{{"system", registryuris::dosageDictionary},
                                                                            {"code", "7"}}}}}}}));
    EXPECT_TRUE(resource["isBrand"].isBool());
}

TEST_F(DispenseParametersTest, location_comesFromTheSettingsAndHasNoId)
{
    const QJsonObject type{
        {"coding", QJsonArray{QJsonObject{{"system", registryuris::addressTypes}, {"code", "location"}}}}};
    const QJsonObject extension{{"url", registryuris::addressType}, {"valueCodeableConcept", type}};
    EXPECT_EQ(ElectronicPrescriptionInterface().formLocationResource(),
              QJsonObject({{"resourceType", "Location"},
                           {"name", "Аптека № 9"},
                           {"address",
                            QJsonObject{{"extension", QJsonArray{extension}}, {"text", "г. Минск, ул. Лесная, 1"}}}}));
}

TEST_F(DispenseParametersTest, locationWithoutSettings_hasEmptyNameAndText)
{
    const Configured empty;
    const QJsonObject location = ElectronicPrescriptionInterface().formLocationResource();
    EXPECT_EQ(location["name"], QJsonValue(""));
    EXPECT_EQ(location["address"]["text"], QJsonValue(""));
    EXPECT_TRUE(location.contains("name"));
    EXPECT_TRUE(location["address"].toObject().contains("text"));
    EXPECT_EQ(location["address"]["extension"][0]["url"], QJsonValue(registryuris::addressType));
}

TEST_F(DispenseParametersTest, coding_replacesTheCodingAndLeavesTheRest)
{
    QJsonObject target{{"coding", "former"}, {"text", "kept"}};
    ElectronicPrescriptionInterface().formCoding("http://s.example", "c", target);
    EXPECT_EQ(target, json(R"({"text": "kept", "coding": [{"system": "http://s.example", "code": "c"}]})").object());
}

TEST_F(DispenseParametersTest, document_holdsTheDispenseThenTheClaim)
{
    const auto position = QSharedPointer<PositionDouble>::create(fullOptions);
    position->quantity = 3.0;
    position->tmcPrice = 3.335;
    position->sum = 5.0;
    const ElectronicPrescriptionInterface interface;
    QJsonDocument document = json(R"({"former": 1})");
    interface.formMedicationDispense(position, document);

    QJsonObject claim;
    interface.formClaimResource(json(fullOptions), 5.0, 10.01, claim);
    EXPECT_EQ(document.object(),
              QJsonObject({{"resourceType", "Parameters"},
                           {"parameter", QJsonArray{QJsonObject{{"name", "medicationDispense"},
                                                                {"resource", dispenseOf(fullOptions)}},
                                                    QJsonObject{{"name", "claim"}, {"resource", claim}}}}}));
    EXPECT_EQ(position->optionsWritten, 0);
    EXPECT_TRUE(requests.isEmpty());
}

/// Shows the next day each time that it is asked, as a clock can at midnight.
class RunningClock : public CurrentTime
{
public:
    explicit RunningClock(int& looks)
        : m_looks(looks)
    {
    }
    QDateTime current() const override { return QDateTime(QDate(2024, 3, 1).addDays(m_looks++), QTime(0, 0)); }

private:
    int& m_looks;
};

TEST_F(DispenseParametersTest, midnightPasses_dispenseAndClaimAreOfTheSameDay)
{
    int looks = 0;
    const Mocked<CurrentTime> mocked([&looks] { return QSharedPointer<RunningClock>::create(looks); });
    QJsonDocument document;
    ElectronicPrescriptionInterface().formMedicationDispense(QSharedPointer<PositionDouble>::create(fullOptions),
                                                             document);

    const QJsonValue parameters = document["parameter"];
    EXPECT_EQ(parameters[0]["resource"]["whenHandedOver"], QJsonValue("2024-03-01"));
    EXPECT_EQ(parameters[1]["resource"]["created"], QJsonValue("2024-03-01"));
    EXPECT_EQ(looks, 1);
}

TEST_F(DispenseParametersTest, fullPriceOfTheClaim_isRoundedQuantityTimesCataloguePrice)
{
    const auto position = QSharedPointer<PositionDouble>::create(R"({"sumFactor": 0})");
    position->quantity = 3.0;
    position->tmcPrice = 3.335;
    position->sum = 1.0;
    QJsonDocument document;
    ElectronicPrescriptionInterface().formMedicationDispense(position, document);
    const QJsonValue item = document["parameter"][1]["resource"]["item"][0];
    EXPECT_EQ(item["unitPrice"]["value"].toDouble(), 10.01);
    EXPECT_EQ(item["net"]["value"].toDouble(), 10.01);
}

struct Share {
    const char* name;
    const char* options;
    bool claimed;
};

class ClaimSent : public DispenseParametersTest, public ::testing::WithParamInterface<Share>
{
};

TEST_P(ClaimSent, patientsShare_decidesWhetherThereIsAClaim)
{
    const QStringList withClaim{"medicationDispense", "claim"};
    const QStringList withoutClaim{"medicationDispense"};
    EXPECT_EQ(parametersOf(GetParam().options), GetParam().claimed ? withClaim : withoutClaim);
}

INSTANTIATE_TEST_SUITE_P(Shares, ClaimSent,
                         ::testing::Values(Share{"all", R"({"sumFactor": 1})", false},
                                           Share{"almostAll", R"({"sumFactor": 0.996})", false},
                                           Share{"atTheThresholdInDoubles", R"({"sumFactor": 0.995})", true},
                                           Share{"moreThanAll", R"({"sumFactor": 1.5})", false},
                                           Share{"ninetyNinePercent", R"({"sumFactor": 0.99})", true},
                                           Share{"nothing", R"({"sumFactor": 0})", true}, Share{"missing", "{}", true},
                                           Share{"noNumber", R"({"sumFactor": "1"})", true},
                                           Share{"optionsNoJson", "no JSON", true}, Share{"optionsEmpty", "", true},
                                           Share{"optionsAnArray", R"([{"sumFactor": 1}])", true}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(DispenseParametersTest, unreadableOptions_giveADocumentOfDefaults)
{
    for (const char* options : {"", "no JSON", "[1]", R"({"id": "p-1")"}) {
        QJsonDocument document;
        ElectronicPrescriptionInterface().formMedicationDispense(QSharedPointer<PositionDouble>::create(options),
                                                                 document);
        EXPECT_EQ(document["parameter"][0]["resource"].toObject(), dispenseOf("{}")) << options;
    }
}

} // namespace
