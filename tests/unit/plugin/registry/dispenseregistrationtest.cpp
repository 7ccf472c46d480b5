// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

#include "unsettledrequestexception.h"

using namespace Qt::StringLiterals;

namespace
{

using Headers = ElectronicPrescriptionInterface::Headers;

const Thrown dispenseError{
    Thrown::Error,
    {u"electronicPrescriptionDispenseError"_s, u"Ошибка при отпуске лекарственного препарата по рецепту"_s}};
const Thrown cancelError{
    Thrown::Error,
    {u"electronicPrescriptionCancelError"_s, u"Ошибка при отмене отпуска лекарственного препарата по рецепту"_s}};

const Headers resourceHeaders{
    {"Authorization", "Bearer token-1"},
    {"OAIS", "Bearer oais-token"},
    {"Accept", "application/json"},
    {"Content-Type", "application/json; charset=utf-8"},
};

class DispenseTest : public RegistryTest
{
protected:
    DispenseTest() { configurePharmacy(); }

    static QSharedPointer<PositionDouble> positionWith(const char* options)
    {
        return QSharedPointer<PositionDouble>::create(options);
    }

    Thrown registerDispense(const QSharedPointer<PositionDouble>& position)
    {
        const ElectronicPrescriptionInterface interface;
        return thrownBy([&] { interface.sendMedicationDispense(position); });
    }

    Thrown cancelDispense(const QSharedPointer<PositionDouble>& position)
    {
        const ElectronicPrescriptionInterface interface;
        return thrownBy([&] { interface.sendCancelMedicationDispense(position); });
    }
};

constexpr auto registered = R"({"resourceType": "Bundle", "entry": [
    {"resource": {"resourceType": "MedicationDispense", "id": "d-5"}, "transactionResponse": {"status": "POST:201"}}]})";
constexpr auto cancelled = R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "PUT:200"}}]})";

/// An answer of the registry to a registration or a cancellation, and what is known then.
struct Known {
    const char* name;
    Answered answered;
    RestClient::Outcome outcome;
};

class KnownOutcome : public DispenseTest, public ::testing::WithParamInterface<Known>
{
protected:
    static RestClient::Outcome outcomeOf(const std::function<void()>& step)
    {
        try {
            step();
        } catch (const ElectronicPrescriptionException& exception) {
            return ::outcomeOf(exception);
        }
        ADD_FAILURE() << "nothing was thrown";
        return RestClient::Outcome::Stopped;
    }
};

TEST_P(KnownOutcome, failure_carriesWhatIsKnown)
{
    const ElectronicPrescriptionInterface interface;
    const auto position = positionWith(R"({"medicationDispenseId": "d-1"})");
    grantToken();
    answers.append(GetParam().answered);
    EXPECT_EQ(outcomeOf([&] { interface.sendMedicationDispense(position); }), GetParam().outcome);
    grantToken();
    answers.append(GetParam().answered);
    EXPECT_EQ(outcomeOf([&] { interface.sendCancelMedicationDispense(position); }), GetParam().outcome);
}

constexpr auto refusedByTheRegistry =
    R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "POST:422"}}]})";
const tr::Tr lost{u"lost"_s, u"Связь прервалась"_s};

INSTANTIATE_TEST_SUITE_P(
    Answers, KnownOutcome,
    ::testing::Values(
        Known{"halfJson", {QJsonDocument(), 0, {}}, RestClient::Outcome::Unknown},
        Known{"withoutStatus", {json(R"({"resourceType": "Bundle"})"), 0, {}}, RestClient::Outcome::Unknown},
        Known{"otherStatus", {json(refusedByTheRegistry), 0, {}}, RestClient::Outcome::Settled},
        Known{"answerLost", {QJsonDocument(), 9, lost, RestClient::Outcome::Unknown}, RestClient::Outcome::Unknown},
        Known{"notSent", {QJsonDocument(), 5, lost, RestClient::Outcome::Settled}, RestClient::Outcome::Settled},
        Known{
            "refusedInWords",
            {json(R"({"issue": [{"severity": "error", "details": "Нет"}]})"), 422, lost, RestClient::Outcome::Settled},
            RestClient::Outcome::Settled}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DispenseTest, tokenStopped_isKnownToBeStopped)
{
    answers.append({QJsonDocument(), 15, lost, RestClient::Outcome::Stopped});
    const ElectronicPrescriptionInterface interface;
    try {
        interface.sendMedicationDispense(positionWith("{}"));
        FAIL();
    } catch (const ElectronicPrescriptionException& exception) {
        EXPECT_EQ(::outcomeOf(exception), RestClient::Outcome::Stopped);
    }
    EXPECT_EQ(requests.size(), 1);
}

TEST_F(DispenseTest, registration_postsTheIndentedDispenseDocument)
{
    grantToken();
    answer(registered);
    const auto position = positionWith(R"({"id": "p-1", "sumFactor": 0.5, "doseQuantity": 2})");
    position->sum = 5.0;
    QJsonDocument document;
    ElectronicPrescriptionInterface().formMedicationDispense(position, document);
    EXPECT_EQ(registerDispense(position), Thrown());

    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].url.toEncoded(), "https://login.example/connect/token");
    EXPECT_EQ(requests[1].method, "POST");
    EXPECT_EQ(requests[1].url.toEncoded(), "https://registry.example/api/MedicationDispense/$register");
    EXPECT_EQ(requests[1].headers, resourceHeaders);
    EXPECT_EQ(requests[1].body, document.toJson(QJsonDocument::Indented));
    EXPECT_EQ(requests[1].timeout, 17);
}

TEST_F(DispenseTest, registeredDispense_writesItsIdCompactAndKeepsTheOtherKeys)
{
    grantToken();
    answer(registered);
    const auto position = positionWith("{ \"id\": \"p-1\",\n \"sumFactor\": 0.5, \"patient\": \"Иванов\" }");
    EXPECT_EQ(registerDispense(position), Thrown());
    EXPECT_EQ(position->getExtendedOptions(),
              R"({"id":"p-1","medicationDispenseId":"d-5","patient":"Иванов","sumFactor":0.5})");
    EXPECT_EQ(position->optionsWritten, 1);
}

TEST_F(DispenseTest, secondRegistration_replacesTheId)
{
    grantToken();
    answer(registered);
    const auto position = positionWith(R"({"medicationDispenseId":"d-1","status":"canceled"})");
    EXPECT_EQ(registerDispense(position), Thrown());
    EXPECT_EQ(position->getExtendedOptions(), R"({"medicationDispenseId":"d-5","status":"canceled"})");
}

TEST_F(DispenseTest, statusOnTheSecondEntryAndIdOnTheFirst_isARegistration)
{
    grantToken();
    answer(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "MedicationDispense", "id": "d-7"}},
        {"transactionResponse": {"status": "POST:201"}}]})");
    const auto position = positionWith("{}");
    EXPECT_EQ(registerDispense(position), Thrown());
    EXPECT_EQ(position->getExtendedOptions(), R"({"medicationDispenseId":"d-7"})");
}

TEST_F(DispenseTest, severalDispenses_leaveTheLastOnesId)
{
    grantToken();
    answer(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "MedicationDispense", "id": "d-1"}, "transactionResponse": {"status": "POST:201"}},
        {"resource": {"resourceType": "Claim", "id": "c-1"}},
        {"resource": {"resourceType": "MedicationDispense", "id": "d-2"}},
        {"resource": {"resourceType": "medicationDispense", "id": "x"}},
        {"resource": {"resourceType": ["MedicationDispense"], "id": "x"}}, {"resource": "MedicationDispense"}, {}, 1]})");
    const auto position = positionWith("{}");
    EXPECT_EQ(registerDispense(position), Thrown());
    EXPECT_EQ(position->getExtendedOptions(), R"({"medicationDispenseId":"d-2"})");
    EXPECT_EQ(position->optionsWritten, 2);
}

TEST_F(DispenseTest, dispenseWithoutATextAsId_storesAnEmptyId)
{
    for (const char* id : {"", R"(, "id": 5)", R"(, "id": null)"}) {
        grantToken();
        answer((QByteArray(R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "POST:201"},
                             "resource": {"resourceType": "MedicationDispense")") +
                id + "}}]}")
                   .constData());
        const auto position = positionWith(R"({"medicationDispenseId":"former"})");
        EXPECT_EQ(registerDispense(position), Thrown()) << id;
        EXPECT_EQ(position->getExtendedOptions(), R"({"medicationDispenseId":""})") << id;
    }
}

TEST_F(DispenseTest, acceptedWithoutADispenseEntry_leavesTheOptionsByteForByte)
{
    grantToken();
    answer(R"({"resourceType": "Bundle", "entry": [
        {"resource": {"resourceType": "Claim", "id": "c"}, "transactionResponse": {"status": "POST:201"}}]})");
    const auto position = positionWith("{ \"id\" : \"p-1\" }");
    EXPECT_EQ(registerDispense(position), Thrown());
    EXPECT_EQ(position->getExtendedOptions(), "{ \"id\" : \"p-1\" }");
    EXPECT_EQ(position->optionsWritten, 0);
}

TEST_F(DispenseTest, unreadableOptions_becomeAnObjectOfTheIdOnly)
{
    for (const char* options : {"", "no JSON", "[1]"}) {
        grantToken();
        answer(registered);
        const auto position = positionWith(options);
        EXPECT_EQ(registerDispense(position), Thrown()) << options;
        EXPECT_EQ(position->getExtendedOptions(), R"({"medicationDispenseId":"d-5"})") << options;
    }
}

struct Refusal {
    const char* name;
    const char* answer;
};

class RegistrationRefused : public DispenseTest, public ::testing::WithParamInterface<Refusal>
{
};

TEST_P(RegistrationRefused, answer_raisesTheDispenseErrorAndLeavesTheOptions)
{
    grantToken();
    answer(GetParam().answer);
    const auto position = positionWith("{ \"id\": \"p-1\" }");
    EXPECT_EQ(registerDispense(position), dispenseError);
    EXPECT_EQ(position->getExtendedOptions(), "{ \"id\": \"p-1\" }");
    EXPECT_EQ(position->optionsWritten, 0);
    EXPECT_EQ(requests.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, RegistrationRefused,
    ::testing::Values(Refusal{"empty", "{}"}, Refusal{"array", "[]"},
                      Refusal{"noStatus", R"({"resourceType": "Bundle", "entry": [
                              {"resource": {"resourceType": "MedicationDispense", "id": "d-5"}}]})"},
                      Refusal{"anotherStatus", R"({"resourceType": "Bundle", "entry": [
                              {"resource": {"resourceType": "MedicationDispense", "id": "d-5"},
                               "transactionResponse": {"status": "POST:200"}}]})"},
                      Refusal{
                          "statusOfACancellation",
                          R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "PUT:200"}}]})"},
                      Refusal{"noBundle", R"({"entry": [{"transactionResponse": {"status": "POST:201"}}]})"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DispenseTest, failedRegistrationWithAnAcceptingAnswer_leavesTheOptions)
{
    grantToken();
    fail(500, registered);
    const auto position = positionWith("{ \"id\": \"p-1\" }");
    EXPECT_EQ(registerDispense(position), (Thrown{Thrown::Error, transportError}));
    EXPECT_EQ(position->getExtendedOptions(), "{ \"id\": \"p-1\" }");
    EXPECT_EQ(requests.size(), 2) << "nothing is sent again";
}

TEST_F(DispenseTest, failedRegistration_raisesTheRegistrysText)
{
    grantToken();
    fail(422, R"({"issue": [{"severity": "error", "details": "Рецепт уже отпущен"}]})");
    EXPECT_EQ(registerDispense(positionWith("{}")), (Thrown{Thrown::Error, {tr::undefined, "Рецепт уже отпущен"}}));
}

TEST_F(DispenseTest, registrationAnswerThatIsNoJson_raisesTheDispenseError)
{
    grantToken();
    EXPECT_EQ(registerDispense(positionWith("{}")), dispenseError);
}

TEST_F(DispenseTest, cancellation_postsAnEmptyObjectToTheDispense)
{
    grantToken();
    answer(cancelled);
    const auto position = positionWith("{ \"medicationDispenseId\": \"d-5\" }");
    EXPECT_EQ(cancelDispense(position), Thrown());

    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].url.toEncoded(), "https://login.example/connect/token");
    EXPECT_EQ(requests[1].method, "POST");
    EXPECT_EQ(requests[1].url.toEncoded(), "https://registry.example/api/MedicationDispense/d-5/$set-as-error");
    EXPECT_EQ(requests[1].headers, resourceHeaders);
    EXPECT_EQ(requests[1].body, QJsonDocument(QJsonObject()).toJson(QJsonDocument::Indented));
    EXPECT_EQ(requests[1].timeout, 17);
    EXPECT_EQ(position->getExtendedOptions(), "{ \"medicationDispenseId\": \"d-5\" }") << "the id is not removed";
    EXPECT_EQ(position->optionsWritten, 0);
}

TEST_F(DispenseTest, cancellationWithoutAnId_isSentToTheShortPath)
{
    for (const char* options : {"{}", "no JSON", R"({"medicationDispenseId": 5})", R"({"medicationDispenseId": ""})"}) {
        requests.clear();
        grantToken();
        answer(cancelled);
        EXPECT_EQ(cancelDispense(positionWith(options)), Thrown()) << options;
        ASSERT_EQ(requests.size(), 2) << options;
        EXPECT_EQ(requests[1].target(), "/api/MedicationDispense/$set-as-error") << options;
    }
}

struct Id {
    const char* name;
    const char* id;
    const char* segment; ///< of the path, on the wire
};

class CancelledId : public DispenseTest, public ::testing::WithParamInterface<Id>
{
};

TEST_P(CancelledId, id_isOneSegmentOfThePathAndStartsNoQuery)
{
    grantToken();
    answer(cancelled);
    EXPECT_EQ(cancelDispense(positionWith(
                  QByteArray(R"({"medicationDispenseId": ")" + QByteArray(GetParam().id) + R"("})").constData())),
              Thrown());
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].target(), QByteArray("/api/MedicationDispense/") + GetParam().segment + "/$set-as-error");
}

INSTANTIATE_TEST_SUITE_P(Ids, CancelledId,
                         ::testing::Values(Id{"plain", "a-1.B", "a-1.B"}, Id{"placeholder", "%1", "%251"},
                                           Id{"percentFollowedByDigits", "a%2Fb", "a%252Fb"},
                                           Id{"questionMark", "a?b=c", "a%3Fb=c"}, Id{"hash", "a#b", "a%23b"},
                                           Id{"blank", "a b", "a%20b"}, Id{"cyrillic", "Ж", "%D0%96"}),
                         [](const auto& row) { return std::string(row.param.name); });

class CancellationRefused : public DispenseTest, public ::testing::WithParamInterface<Refusal>
{
};

TEST_P(CancellationRefused, answer_raisesTheCancelErrorAndLeavesTheOptions)
{
    grantToken();
    answer(GetParam().answer);
    const auto position = positionWith("{ \"medicationDispenseId\": \"d-5\" }");
    EXPECT_EQ(cancelDispense(position), cancelError);
    EXPECT_EQ(position->getExtendedOptions(), "{ \"medicationDispenseId\": \"d-5\" }");
    EXPECT_EQ(requests.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, CancellationRefused,
    ::testing::Values(
        Refusal{"empty", "{}"}, Refusal{"array", "[]"},
        Refusal{"statusOfARegistration",
                R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "POST:201"}}]})"},
        Refusal{"statusInAnotherCase",
                R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "put:200"}}]})"},
        Refusal{"statusWithABlank",
                R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "PUT:200 "}}]})"},
        Refusal{"noEntry", R"({"resourceType": "Bundle"})"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DispenseTest, failedCancellation_raisesTheRegistrysTextOrTheClients)
{
    grantToken();
    fail(409, R"({"issue": [{"severity": "error", "details": "Отпуск уже отменён"}]})");
    EXPECT_EQ(cancelDispense(positionWith("{}")), (Thrown{Thrown::Error, {tr::undefined, "Отпуск уже отменён"}}));

    requests.clear();
    grantToken();
    fail(28, cancelled);
    EXPECT_EQ(cancelDispense(positionWith("{}")), (Thrown{Thrown::Error, transportError}));
    EXPECT_EQ(requests.size(), 2);
}

TEST_F(DispenseTest, cancellationAnswerThatIsNoJson_raisesTheCancelError)
{
    grantToken();
    EXPECT_EQ(cancelDispense(positionWith("{}")), cancelError);
}

} // namespace
