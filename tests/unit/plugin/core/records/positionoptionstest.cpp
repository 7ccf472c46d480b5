// SPDX-License-Identifier: MIT
#include "positionoptions.h"

#include "electronicprescription.h"
#include "goodsitem.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

PositionOptions read(const char* text)
{
    GoodsItem position;
    position.setExtendedOptions(QString::fromUtf8(text));
    return PositionOptions(position);
}

QByteArray compact(const PositionOptions& options)
{
    return options.toDocument().toJson(QJsonDocument::Compact);
}

TEST(PositionOptions, everyMember_isReadFromItsOwnKey)
{
    const PositionOptions options =
        read(R"({"id": "p-1", "tradeNameCode": "200", "organizationId": "42", "sumFactor": 0.25, "doseQuantity": 2.5,
                 "finalDispense": true, "patientReference": "Patient/7", "medicationDispenseId": "d-5"})");

    EXPECT_EQ(options.id(), u"p-1"_s);
    EXPECT_EQ(options.tradeNameCode(), u"200"_s);
    EXPECT_EQ(options.organizationId(), u"42"_s);
    EXPECT_EQ(options.sumFactor(), 0.25);
    EXPECT_EQ(options.doseQuantity(), 2.5);
    EXPECT_TRUE(options.isFinalDispense());
    EXPECT_EQ(options.patientReference(), u"Patient/7"_s);
    EXPECT_EQ(options.medicationDispenseId(), u"d-5"_s);
}

struct Unreadable {
    const char* name;
    const char* text;
};

class UnreadableOptions : public ::testing::TestWithParam<Unreadable>
{
};

TEST_P(UnreadableOptions, readAsDefaultsAndAreDue)
{
    const PositionOptions options = read(GetParam().text);

    EXPECT_EQ(options.id(), QString());
    EXPECT_EQ(options.tradeNameCode(), QString());
    EXPECT_EQ(options.organizationId(), QString());
    EXPECT_EQ(options.sumFactor(), 0.0);
    EXPECT_EQ(options.doseQuantity(), 0.0);
    EXPECT_FALSE(options.isFinalDispense());
    EXPECT_EQ(options.patientReference(), QString());
    EXPECT_EQ(options.medicationDispenseId(), QString());
    EXPECT_FALSE(options.isRegistered());
    EXPECT_TRUE(options.isDueForRegistration());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, UnreadableOptions,
    ::testing::Values(Unreadable{"empty", ""}, Unreadable{"noJson", "no JSON"}, Unreadable{"array", R"([{"id": "a"}])"},
                      Unreadable{"cut", R"({"id": "p-1")"}, Unreadable{"noMembers", "{}"},
                      Unreadable{"otherTypes",
                                 R"({"id": 5, "tradeNameCode": true, "organizationId": [], "sumFactor": "1",
                          "doseQuantity": "2", "finalDispense": 1, "patientReference": {}, "medicationDispenseId": 5})"},
                      Unreadable{"otherCase", R"({"ID": "a", "Status": "dispensed"})"}),
    [](const auto& row) { return std::string(row.param.name); });

struct State {
    const char* name;
    const char* text;
    bool registered;
    bool due;
};

class PositionState : public ::testing::TestWithParam<State>
{
};

TEST_P(PositionState, decidesWhatIsToBeDone)
{
    EXPECT_EQ(read(GetParam().text).isRegistered(), GetParam().registered);
    EXPECT_EQ(read(GetParam().text).isDueForRegistration(), GetParam().due);
}

INSTANTIATE_TEST_SUITE_P(States, PositionState,
                         ::testing::Values(State{"absent", "{}", false, true},
                                           State{"dispensed", R"({"status": "dispensed"})", true, false},
                                           State{"canceled", R"({"status": "canceled"})", false, true},
                                           State{"unknown", R"({"status": "stopped"})", false, false},
                                           State{"otherCase", R"({"status": "Canceled"})", false, false},
                                           State{"empty", R"({"status": ""})", false, false},
                                           State{"null", R"({"status": null})", false, false},
                                           State{"number", R"({"status": 1})", false, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PositionOptions, changed_keepEveryOtherMember)
{
    PositionOptions options = read(R"({ "id": "p-1", "foreign": [1, {"a": null}], "status": "canceled" })");

    options.setMedicationDispenseId(u"d-5"_s);
    EXPECT_EQ(compact(options),
              R"({"foreign":[1,{"a":null}],"id":"p-1","medicationDispenseId":"d-5","status":"canceled"})");
    options.setRegistered();
    EXPECT_EQ(compact(options),
              R"({"foreign":[1,{"a":null}],"id":"p-1","medicationDispenseId":"d-5","status":"dispensed"})");
    options.setCancelled();
    EXPECT_EQ(compact(options),
              R"({"foreign":[1,{"a":null}],"id":"p-1","medicationDispenseId":"d-5","status":"canceled"})");
}

TEST(PositionOptions, ofAPrescriptionNobodyElsePaysFor_holdEveryMember)
{
    ElectronicPrescription prescription;
    prescription.setId(u"p-1"_s);
    prescription.setTradeNameCode(u"200"_s);
    prescription.setPatientReference(u"Patient/7"_s);
    prescription.setSerialNumber(u"АБ 1"_s);

    EXPECT_EQ(compact(PositionOptions(prescription, u"Иванов Иван Иван"_s, true, 2.5)),
              QByteArray(R"({"doseQuantity":2.5,"finalDispense":true,"id":"p-1","organization":"","organizationId":"",)"
                         R"("patient":"Иванов Иван Иван","patientReference":"Patient/7","serialNumber":"АБ 1",)"
                         R"("sumFactor":1,"tradeNameCode":"200"})"));
}

TEST(PositionOptions, written_replaceTheOptionsAndNothingElse)
{
    GoodsItem position;
    position.setExtendedOptions(u"former"_s);

    read(R"({ "id": "p-1" })").writeTo(position);

    EXPECT_EQ(position.getExtendedOptions(), uR"({"id":"p-1"})"_s);
    EXPECT_EQ(position.getSoftCheckId(), QString());
    EXPECT_FALSE(isPrescriptionPosition(position));
}

TEST(PositionOptions, marked_makeItAPositionOfThePrescription)
{
    GoodsItem position;
    position.setTag(u"cold"_s);

    read(R"({ "id": "p-1" })").mark(position);

    EXPECT_EQ(position.getExtendedOptions(), uR"({"id":"p-1"})"_s);
    EXPECT_EQ(position.getSoftCheckId(), u"p-1"_s);
    EXPECT_EQ(position.getTags(), (QStringList{u"cold"_s, u"prescription"_s}));
}

TEST(PrescriptionPosition, tagInAnotherCase_isAnother)
{
    GoodsItem position;
    EXPECT_FALSE(isPrescriptionPosition(position));
    position.setTag(u"Prescription"_s);
    position.setTag(u"prescriptions"_s);
    EXPECT_FALSE(isPrescriptionPosition(position));
    position.setTag(u"prescription"_s);
    EXPECT_TRUE(isPrescriptionPosition(position));
}

} // namespace
