// SPDX-License-Identifier: MIT
#include "seedreader.h"

#include "emulatorerror.h"
#include "prescriptionstore.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::JsonNode;
using emulator::Seed;
using emulator::SeedReader;

namespace
{
const QDate today(2024, 3, 20);

Seed readSeed(const QByteArray& json)
{
    return SeedReader(today).read(JsonNode::parse(json));
}

QString mistakeIn(const QByteArray& json)
{
    try {
        readSeed(json);
    } catch (const emulator::EmulatorError& error) {
        return error.message();
    }
    return {};
}

/// A seed with one prescription, in which one part of the text is replaced.
QByteArray seed(const QByteArray& part = {}, const QByteArray& replacement = {})
{
    QByteArray json = R"({
"payers": [{"id": "payer", "name": "Плательщик"}],
"practitioners": [{"id": "doctor", "family": "Врачева", "given": ["Анна"]}],
"patients": [{"id": "p1", "card": "1", "family": "Ф", "given": ["И"], "birthDate": "2000-01-01"},
             {"id": "p2", "card": "2", "family": "Ф", "given": ["И"], "birthDate": "2000-01-01", "prescriptions": [
    {"id": "rx", "inn": "А", "tradeName": "Б", "quantity": 10, "written": "2024-03-01", "validDays": 30,
     "practitioner": "doctor", "payer": "payer", "dispenses": [
        {"id": "d", "quantity": 1, "handedOver": "2024-03-02"}]}]}]})";
    EXPECT_TRUE(json.contains(part));
    return json.replace(part, replacement);
}
} // namespace

TEST(SeedReader, daysAgo_countFromToday)
{
    const Seed result = readSeed(seed("\"written\": \"2024-03-01\"", "\"writtenDaysAgo\": 3"));
    ASSERT_EQ(result.prescriptions.size(), 1);
    EXPECT_EQ(result.prescriptions.first().written, QDate(2024, 3, 17));
    EXPECT_EQ(result.prescriptions.first().validUntil, QDate(2024, 4, 16));
}

TEST(SeedReader, absoluteDates_stayAsTheyAre)
{
    const Seed result = readSeed(seed("\"validDays\": 30", "\"validUntil\": \"2024-03-05\""));
    EXPECT_EQ(result.prescriptions.first().written, QDate(2024, 3, 1));
    EXPECT_EQ(result.prescriptions.first().validUntil, QDate(2024, 3, 5));
    EXPECT_EQ(result.dispenses.first().handedOver, QDate(2024, 3, 2));
}

TEST(SeedReader, defaults_areThoseOfAnOrdinaryPrescription)
{
    const auto prescription = readSeed(seed("", "")).prescriptions.first();
    EXPECT_EQ(prescription.status, u"active"_s);
    EXPECT_TRUE(prescription.isSigned);
    EXPECT_FALSE(prescription.prescribedByInn);
    EXPECT_EQ(prescription.patientShare, std::nullopt);
    EXPECT_EQ(prescription.patientId, u"p2"_s);
    EXPECT_EQ(prescription.card, u"2"_s);
}

TEST(SeedReader, emptySeed_givesEmptyRegistry)
{
    const Seed result = readSeed("{}");
    EXPECT_TRUE(result.clients.isEmpty());
    EXPECT_TRUE(result.patients.isEmpty());
    EXPECT_EQ(result.rules.tokenLifetime, 3600);
}

TEST(SeedReader, sameReader_readsSecondSeedWithoutTheFirst)
{
    SeedReader reader(today);
    reader.read(JsonNode::parse(seed("", "")));
    EXPECT_EQ(reader.read(JsonNode::parse(seed("", ""))).prescriptions.size(), 1);
}

TEST(SeedReader, rules_areRead)
{
    const auto rules = readSeed(R"({"rules": {"tokenLifetime": 5, "oaisToken": "a", "prescriptionScope": "b",
                                     "dispenseScope": "c", "dosageSystem": "d", "showDispenseIds": false,
                                     "showPharmacies": false, "showCancelledDispenses": true}})")
                           .rules;
    EXPECT_EQ(rules.tokenLifetime, 5);
    EXPECT_EQ(rules.oaisToken, u"a"_s);
    EXPECT_EQ(rules.prescriptionScope, u"b"_s);
    EXPECT_EQ(rules.dispenseScope, u"c"_s);
    EXPECT_EQ(rules.dosageSystem, u"d"_s);
    EXPECT_FALSE(rules.showDispenseIds);
    EXPECT_FALSE(rules.showPharmacies);
    EXPECT_TRUE(rules.showCancelledDispenses);
}

TEST(SeedReader, absentRules_showDispensesThatAreNotCancelledWithIdsAndPharmacies)
{
    const auto rules = readSeed("{}").rules;
    EXPECT_TRUE(rules.showDispenseIds);
    EXPECT_TRUE(rules.showPharmacies);
    EXPECT_FALSE(rules.showCancelledDispenses);
}

TEST(SeedReader, pharmacyOfDispense_isRead)
{
    const auto dispense =
        readSeed(seed("\"quantity\": 1,", R"("quantity": 1, "pharmacy": "17", "pharmacyName": "Аптека",
                                                                "pharmacyAddress": "Улица",)"))
            .dispenses.first();
    EXPECT_EQ(dispense.pharmacy, u"17"_s);
    EXPECT_EQ(dispense.pharmacyName, u"Аптека"_s);
    EXPECT_EQ(dispense.pharmacyAddress, u"Улица"_s);
}

struct Mistake {
    const char* name;
    QByteArray part;
    QByteArray replacement;
    const char16_t* message;
};

void PrintTo(const Mistake& mistake, std::ostream* stream)
{
    *stream << mistake.name;
}

class SeedMistake : public ::testing::TestWithParam<Mistake>
{
};

TEST_P(SeedMistake, isReportedWithItsPlace)
{
    EXPECT_EQ(mistakeIn(seed(GetParam().part, GetParam().replacement)), QString::fromUtf16(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    SeedReader, SeedMistake,
    ::testing::Values(
        Mistake{"unknownMember", "\"payers\"", "\"payer\"",
                u"payer: no such member here; known are rules, clients, payers, practitioners, patients"},
        Mistake{"unknownRule", "\"payers\"", "\"rules\": {\"showIds\": true}, \"payers\"",
                u"rules.showIds: no such member here; known are tokenLifetime, oaisToken, prescriptionScope, "
                u"dispenseScope, dosageSystem, showDispenseIds, showPharmacies, showCancelledDispenses"},
        Mistake{"dispenseIdsAsText", "\"payers\"", "\"rules\": {\"showDispenseIds\": \"no\"}, \"payers\"",
                u"rules.showDispenseIds: true or false is expected"},
        Mistake{"pharmaciesAsNumber", "\"payers\"", "\"rules\": {\"showPharmacies\": 0}, \"payers\"",
                u"rules.showPharmacies: true or false is expected"},
        Mistake{"cancelledDispensesAsNull", "\"payers\"", "\"rules\": {\"showCancelledDispenses\": null}, \"payers\"",
                u"rules.showCancelledDispenses: true or false is expected"},
        Mistake{"pharmacyNameAsNumber", "\"quantity\": 1,", "\"quantity\": 1, \"pharmacyName\": 1,",
                u"patients[1].prescriptions[0].dispenses[0].pharmacyName: a text is expected"},
        Mistake{"pharmacyAddressAsObject", "\"quantity\": 1,", "\"quantity\": 1, \"pharmacyAddress\": {},",
                u"patients[1].prescriptions[0].dispenses[0].pharmacyAddress: a text is expected"},
        Mistake{"noArray", "[{\"id\": \"payer\", \"name\": \"Плательщик\"}]", "{}", u"payers: an array is expected"},
        Mistake{"noObject", "{\"id\": \"payer\", \"name\": \"Плательщик\"}", "1", u"payers[0]: an object is expected"},
        Mistake{"missingText", ", \"name\": \"Плательщик\"", "", u"payers[0].name: a text is expected"},
        Mistake{"noText", "\"given\": [\"Анна\"]", "\"given\": [1]", u"practitioners[0].given[0]: a text is expected"},
        Mistake{"cardTwice", "\"card\": \"2\"", "\"card\": \"1\"", u"patients[1].card: \"1\" stands twice"},
        Mistake{"badDate", "2000-01-01\", \"pre", "2000-13-01\", \"pre",
                u"patients[1].birthDate: a date in the form yyyy-MM-dd is expected"},
        Mistake{"quantityAsText", "\"quantity\": 10", "\"quantity\": \"10\"",
                u"patients[1].prescriptions[0].quantity: a number is expected"},
        Mistake{"noQuantity", "\"quantity\": 10, ", "",
                u"patients[1].prescriptions[0].quantity: a number above 0 is expected"},
        Mistake{"zeroQuantity", "\"quantity\": 10", "\"quantity\": 0",
                u"patients[1].prescriptions[0].quantity: a number above 0 is expected"},
        Mistake{"twoDates", "\"written\": \"2024-03-01\"", "\"written\": \"2024-03-01\", \"writtenDaysAgo\": 1",
                u"patients[1].prescriptions[0].written: either this or \"writtenDaysAgo\" is expected"},
        Mistake{"noValidity", ", \"validDays\": 30", "",
                u"patients[1].prescriptions[0].validUntil: either this or \"validDays\" is expected"},
        Mistake{"halfDay", "\"validDays\": 30", "\"validDays\": 1.5",
                u"patients[1].prescriptions[0].validDays: a whole number that is not negative is expected"},
        Mistake{"unknownStatus", "\"inn\": \"А\"", "\"inn\": \"А\", \"status\": \"x\"",
                u"patients[1].prescriptions[0].status: one of these is expected: active, on-hold, completed, "
                u"entered-in-error, stopped, superceded"},
        Mistake{"shareAboveOne", "\"payer\": \"payer\"", "\"patientShare\": 1.1",
                u"patients[1].prescriptions[0].patientShare: a fraction from 0 to 1 is expected"},
        Mistake{"unknownPayer", "\"payer\": \"payer\"", "\"payer\": \"x\"",
                u"patients[1].prescriptions[0].payer: \"x\" is not in the seed"},
        Mistake{"unknownDoctor", "\"practitioner\": \"doctor\"", "\"practitioner\": \"x\"",
                u"patients[1].prescriptions[0].practitioner: \"x\" is not in the seed"},
        Mistake{"flagAsNumber", "\"tradeName\": \"Б\"", "\"tradeName\": \"Б\", \"signed\": 1",
                u"patients[1].prescriptions[0].signed: true or false is expected"},
        Mistake{"tradeNameMissing", "\"tradeName\": \"Б\"", "\"prescribedByInn\": false",
                u"patients[1].prescriptions[0].tradeName: needed when \"prescribedByInn\" is false"},
        Mistake{
            "dispenseWithoutDate", ", \"handedOver\": \"2024-03-02\"", "",
            u"patients[1].prescriptions[0].dispenses[0].handedOver: either this or \"handedOverDaysAgo\" is expected"}),
    [](const auto& row) { return row.param.name; });

TEST(SeedReader, brokenJson_isReportedWithLineAndColumn)
{
    EXPECT_TRUE(mistakeIn("{\n\"payers\": [],\n  oops}").startsWith(u"no JSON, line 3, column "_s));
    EXPECT_TRUE(mistakeIn("").startsWith(u"no JSON, line 1, column 1"_s));
    EXPECT_EQ(mistakeIn("[]"), u"an object is expected"_s);
}

TEST(DemoSeed, cards_showWhatTheirTablePromises)
{
    emulator::PrescriptionStore store;
    const QDate anyDay(2031, 7, 4);
    store.replace(SeedReader(anyDay).read(JsonNode::fromFile(QString::fromUtf8(DEMO_SEED))));
    const auto prescriptions = [&](const char* card) { return store.prescriptionsOfCard(QLatin1StringView(card)); };

    EXPECT_EQ(prescriptions("1100000000000001").size(), 1);
    EXPECT_EQ(prescriptions("1100000000000002").size(), 12);

    ASSERT_EQ(prescriptions("1100000000000003").size(), 1);
    EXPECT_EQ(prescriptions("1100000000000003").first().patientShare, std::nullopt);
    EXPECT_TRUE(prescriptions("1100000000000003").first().payerId.isEmpty());

    ASSERT_EQ(prescriptions("1100000000000004").size(), 1);
    EXPECT_EQ(store.dispensesOf(prescriptions("1100000000000004").first().id).size(), 2);

    ASSERT_EQ(prescriptions("1100000000000005").size(), 1);
    EXPECT_LT(prescriptions("1100000000000005").first().validUntil, anyDay);

    EXPECT_TRUE(store.patientOfCard(u"1100000000000006"_s).has_value());
    EXPECT_TRUE(prescriptions("1100000000000006").isEmpty());

    QList<double> shares;
    for (const auto& prescription : prescriptions("1100000000000007")) {
        shares.append(prescription.patientShare.value_or(1));
    }
    EXPECT_EQ(shares, (QList<double>{0, 0.1, 0.5}));

    for (const QString& card : store.cards()) {
        EXPECT_EQ(card.size(), 16);
        for (const auto& prescription : store.prescriptionsOfCard(card)) {
            EXPECT_EQ(prescription.status, u"active"_s);
            if (card != "1100000000000005"_L1) {
                EXPECT_GE(prescription.validUntil, anyDay) << qPrintable(prescription.id);
            }
        }
    }
}
