// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "registrydoubles.h"
#include "registryuris.h"

namespace
{

class ClaimTest : public RegistryTest
{
protected:
    const ClockDouble clock{QDateTime(QDate(2024, 12, 9), QTime(0, 0))};

    static QJsonObject claimOf(const QJsonDocument& options, double sum, double fullPrice)
    {
        QJsonObject resource{{"former", 1}};
        ElectronicPrescriptionInterface().formClaimResource(options, sum, fullPrice, resource);
        return resource;
    }
};

QJsonObject roubles(double value)
{
    return {{"value", value}, {"system", "urn:std:iso:4217"}, {"code", "BYN"}};
}

TEST_F(ClaimTest, claim_hasExactlyTheseFields)
{
    const QJsonObject item{
        {"sequence", 1},
        {"type",
         QJsonObject{{"display", "Электронный рецепт"}, {"system", registryuris::invoiceGroups}, {"code", "group"}}},
        {"service", QJsonObject{{"system", registryuris::services}, {"code", "2102"}}},
        {"unitPrice", roubles(10.0)},
        {"factor", 0.5},
        {"net", roubles(5.0)},
    };
    EXPECT_EQ(claimOf(json(R"({"id": "p-1", "organizationId": "42", "sumFactor": 0.5,
                               "patientReference": "Patient/7"})"),
                      5.0, 99.0),
              QJsonObject({
                  {"resourceType", "Claim"},
                  {"type", "pharmacy"},
                  {"created", "2024-12-09"},
                  {"organization", QJsonObject{{"reference", "Organization/42"}}},
                  {"originalPrescription", QJsonObject{{"reference", "MedicationPrescription/p-1"}}},
                  {"patient", QJsonObject{{"reference", "Patient/7"}}},
                  {"item", QJsonArray{item}},
              }));
}

TEST_F(ClaimTest, sequence_isSentAsAnInteger)
{
    const QByteArray text = QJsonDocument(claimOf(json("{}"), 1.0, 1.0)).toJson(QJsonDocument::Compact);
    EXPECT_TRUE(text.contains(R"("sequence":1,)")) << text.toStdString();
}

TEST_F(ClaimTest, missingOptions_giveEmptyReferences)
{
    const QJsonObject claim = claimOf(json("{}"), 1.0, 1.0);
    EXPECT_EQ(claim["organization"]["reference"], QJsonValue("Organization/"));
    EXPECT_EQ(claim["originalPrescription"]["reference"], QJsonValue("MedicationPrescription/"));
    EXPECT_EQ(claim["patient"]["reference"], QJsonValue(""));
}

struct Amounts {
    const char* name;
    double sumFactor;
    double sum;
    double fullPrice;
    double unitPrice;
    double factor;
    double net;
};

class ClaimAmounts : public ClaimTest, public ::testing::WithParamInterface<Amounts>
{
};

TEST_P(ClaimAmounts, patientsShareAndSum_giveUnitPriceFactorAndNet)
{
    const auto& [name, sumFactor, sum, fullPrice, unitPrice, factor, net] = GetParam();
    const QJsonDocument options(QJsonObject{{"sumFactor", sumFactor}});
    const QJsonValue item = claimOf(options, sum, fullPrice)["item"][0];
    EXPECT_EQ(item["unitPrice"]["value"].toDouble(), unitPrice);
    EXPECT_EQ(item["factor"].toDouble(), factor);
    EXPECT_EQ(item["net"]["value"].toDouble(), net);
}

INSTANTIATE_TEST_SUITE_P(Shares, ClaimAmounts,
                         ::testing::Values(Amounts{"half", 0.5, 5.0, 99.0, 10.0, 0.5, 5.0},
                                           Amounts{"nothing", 0.0, 5.0, 10.01, 10.01, 1.0, 10.01},
                                           // A share that rounds to nothing counts as nothing.
                                           Amounts{"lessThanHalfAPercent", 0.0049, 5.0, 10.01, 10.01, 1.0, 10.01},
                                           Amounts{"halfAPercentRoundsToOne", 0.005, 0.1, 99.0, 10.0, 0.99, 9.9},
                                           Amounts{"roundedShare", 0.333, 3.33, 99.0, 10.09, 0.67, 6.76},
                                           Amounts{"netOfAThird", 0.25, 2.51, 99.0, 10.04, 0.75, 7.53},
                                           Amounts{"almostAll", 0.99, 9.91, 99.0, 10.01, 0.01, 0.1},
                                           Amounts{"negativeShare", -0.5, 5.0, 99.0, -10.0, 1.5, -15.0},
                                           // A library's rounding gives 3.62 and 3.33.
                                           Amounts{"halvesShortInBinary", 0.08, 0.29, 99.0, 3.63, 0.92, 3.34},
                                           Amounts{"noSum", 0.5, 0.0, 99.0, 0.0, 0.5, 0.0},
                                           Amounts{"negativeSum", 0.5, -5.0, 99.0, -10.0, 0.5, -5.0}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
