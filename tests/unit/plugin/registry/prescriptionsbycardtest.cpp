// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

using namespace Qt::StringLiterals;

namespace
{

const Thrown unusable{Thrown::Error,
                      {u"electronicPrescriptionGetPrescriptionsError"_s, u"Ошибка при получении списка рецептов"_s}};
const Thrown none{Thrown::NoPrescriptions, {u"electronicPrescriptionNoPrescriptionsError"_s, u"Рецепты не найдены"_s}};

class ByCardTest : public RegistryTest
{
protected:
    /// Asks with a token granted before.
    Thrown ask(const char* text, const QString& card = "77", const QString& status = "active")
    {
        grantToken();
        answer(text);
        const ElectronicPrescriptionInterface interface;
        return thrownBy(
            [&] { interface.getElectronicPrescriptionsByCardNumber(card, status, prescriptions, patient); });
    }

    QStringList ids() const
    {
        QStringList list;
        for (const auto& prescription : prescriptions) {
            list.append(prescription.toObject()["id"].toString());
        }
        return list;
    }

    QJsonArray prescriptions;
    QJsonObject patient;
};

TEST_F(ByCardTest, request_isAGetWithCardAndStatusInOrderAndTheResourceHeaders)
{
    configurePharmacy();
    ask(R"({"resourceType": "Bundle"})", "12 34", "active");

    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].url.toEncoded(), "https://login.example/connect/token");
    EXPECT_EQ(requests[1].method, "GET");
    EXPECT_EQ(requests[1].url.toEncoded(), "https://registry.example/api/MedicationPrescription/"
                                           "$by-card?patientIdentifier=12%2034&status=active");
    EXPECT_EQ(requests[1].headers, ElectronicPrescriptionInterface::Headers({{"Authorization", "Bearer token-1"},
                                                                             {"OAIS", "Bearer oais-token"},
                                                                             {"Accept", "application/json"}}));
    EXPECT_TRUE(requests[1].document.isNull());
    EXPECT_EQ(requests[1].timeout, 17);
}

TEST_F(ByCardTest, emptyCardAndStatus_areSentEmpty)
{
    ask(R"({"resourceType": "Bundle"})", QString(), QString());
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].target(), "/MedicationPrescription/$by-card?patientIdentifier=&status=");
}

TEST_F(ByCardTest, twoBundlesAroundAPatient_areReturnedInOrderWithThePatient)
{
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "Bundle", "id": "b"}},
        {"resource": {"resourceType": "Patient", "id": "p", "name": [{"family": ["Иванов"]}]}},
        {"resource": {"resourceType": "Bundle", "id": "a", "entry": [{"resource": {"id": "inner"}}]}}]})"),
              Thrown());
    EXPECT_EQ(ids(), QStringList({"b", "a"}));
    EXPECT_EQ(prescriptions.at(1).toObject(),
              json(R"({"resourceType": "Bundle", "id": "a", "entry": [{"resource": {"id": "inner"}}]})").object());
    EXPECT_EQ(patient, json(R"({"resourceType": "Patient", "id": "p", "name": [{"family": ["Иванов"]}]})").object());
}

TEST_F(ByCardTest, patientBeforeOrAfterTheBundles_isFound)
{
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "Patient", "id": "first"}},
        {"resource": {"resourceType": "Bundle", "id": "a"}}]})"),
              Thrown());
    EXPECT_EQ(patient["id"].toString(), "first");
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "Bundle", "id": "b"}},
        {"resource": {"resourceType": "Patient", "id": "last"}}]})"),
              Thrown());
    EXPECT_EQ(patient["id"].toString(), "last");
    EXPECT_EQ(ids(), QStringList({"a", "b"})) << "what was found is appended";
}

TEST_F(ByCardTest, laterPatient_replacesTheEarlierOneWhole)
{
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "Patient", "id": "1", "birthDate": "1980-01-01"}},
        {"resource": {"resourceType": "Patient", "id": "2"}},
        {"resource": {"resourceType": "Bundle"}}]})"),
              Thrown());
    EXPECT_EQ(patient, json(R"({"resourceType": "Patient", "id": "2"})").object());
}

TEST_F(ByCardTest, answerWithoutPatient_leavesTheFormerOne)
{
    patient = json(R"({"id": "former"})").object();
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle", "id": "a"}}]})"),
              Thrown());
    EXPECT_EQ(patient["id"].toString(), "former");
    EXPECT_EQ(ids(), QStringList({"a"}));
}

TEST_F(ByCardTest, otherEntries_areIgnored)
{
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [
        1, null, "Bundle", [], {}, {"fullUrl": "x"}, {"resource": 1}, {"resource": {}},
        {"resource": {"resourceType": "bundle", "id": "x"}}, {"resource": {"resourceType": "patient", "id": "x"}},
        {"resource": {"resourceType": ["Bundle"], "id": "x"}}, {"resource": {"resourceType": "Organization"}},
        {"resource": {"resourceType": "Bundle", "id": "a"}}]})"),
              Thrown());
    EXPECT_EQ(ids(), QStringList({"a"}));
    EXPECT_TRUE(patient.isEmpty());
}

struct Failure {
    const char* name;
    const char* answer;
    const Thrown* thrown;
};

class ByCardFailure : public ByCardTest, public ::testing::WithParamInterface<Failure>
{
};

TEST_P(ByCardFailure, answer_raisesItsErrorAndFillsNothing)
{
    EXPECT_EQ(ask(GetParam().answer), *GetParam().thrown);
    EXPECT_TRUE(prescriptions.isEmpty());
    EXPECT_TRUE(patient.isEmpty());
    EXPECT_EQ(requests.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ByCardFailure,
    ::testing::Values(
        Failure{"noObject", "[]", &unusable}, Failure{"empty", "{}", &unusable},
        Failure{"noResourceType", R"({"entry": [{"resource": {"resourceType": "Bundle"}}]})", &unusable},
        Failure{"anotherResourceType",
                R"({"resourceType": "bundle", "entry": [{"resource": {"resourceType": "Bundle"}}]})", &unusable},
        Failure{"resourceTypeNoText", R"({"resourceType": {"Bundle": 1}})", &unusable},
        Failure{"noEntry", R"({"resourceType": "Bundle"})", &none},
        Failure{"entryEmpty", R"({"resourceType": "Bundle", "entry": []})", &unusable},
        Failure{"entryNoArray", R"({"resourceType": "Bundle", "entry": {"resource": {}}})", &unusable},
        Failure{"entryNull", R"({"resourceType": "Bundle", "entry": null})", &unusable},
        Failure{"entriesWithoutResource", R"({"resourceType": "Bundle", "entry": [{}, {"a": 1}, 7]})", &unusable},
        Failure{"resourceOfAnotherType",
                R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Claim"}}]})", &none},
        Failure{"resourceTypeInAnotherCase",
                R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "bundle"}}]})", &none},
        Failure{"resourceNoObject", R"({"resourceType": "Bundle", "entry": [{"resource": null}]})", &none}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ByCardTest, onlyAPatient_raisesNoPrescriptionsWithThePatientFilled)
{
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Patient", "id": "p"}}]})"),
              none);
    EXPECT_EQ(patient["id"].toString(), "p");
    EXPECT_TRUE(prescriptions.isEmpty());
}

TEST_F(ByCardTest, onlyAPatientWithPrescriptionsFromBefore_isAnUnusableAnswer)
{
    prescriptions.append(QJsonObject{{"id", "before"}});
    EXPECT_EQ(ask(R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Patient", "id": "p"}}]})"),
              unusable);
    EXPECT_EQ(patient["id"].toString(), "p");
    EXPECT_EQ(ids(), QStringList({"before"}));
}

TEST_F(ByCardTest, noEntryWithPrescriptionsFromBefore_isNoPrescriptions)
{
    prescriptions.append(QJsonObject{{"id", "before"}});
    EXPECT_EQ(ask(R"({"resourceType": "Bundle"})"), none);
    EXPECT_EQ(ids(), QStringList({"before"}));
}

TEST_F(ByCardTest, answerThatIsNoJson_isUnusable)
{
    grantToken();
    const ElectronicPrescriptionInterface interface;
    EXPECT_EQ(
        thrownBy([&] { interface.getElectronicPrescriptionsByCardNumber("77", "active", prescriptions, patient); }),
        unusable);
}

TEST_F(ByCardTest, failedRequest_raisesTheRegistrysTextAndFillsNothing)
{
    grantToken();
    fail(404, R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle"}}],
                  "issue": [{"severity": "error", "details": "Карта не найдена"}]})");
    const ElectronicPrescriptionInterface interface;
    EXPECT_EQ(
        thrownBy([&] { interface.getElectronicPrescriptionsByCardNumber("77", "active", prescriptions, patient); }),
        (Thrown{Thrown::Error, {tr::undefined, "Карта не найдена"}}));
    EXPECT_TRUE(prescriptions.isEmpty());
}

} // namespace
