// SPDX-License-Identifier: MIT
#include "dispenserequest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using State = JournalledRequest::State;
using Kind = DispenseRequest::Kind;
using Outcome = DispenseRequest::Outcome;

namespace
{

const QByteArray registrationBody = R"({"resourceType": "Parameters", "parameter": [
    {"name": "claim", "resource": {"resourceType": "Claim"}},
    {"name": "medicationDispense", "resource": {
        "resourceType": "MedicationDispense", "whenHandedOver": "2026-03-02",
        "quantity": {"value": 10.004},
        "contained": [{"resourceType": "Medication"},
                      {"resourceType": "Location", "name": "Аптека № 17", "address": {"text": "ул. Лесная, 1"}}],
        "authorizingPrescription": [{"reference": "MedicationPrescription/rx/1"}]}}]})";

JournalledRequest request(const QString& path, State state, int status = 0, const QByteArray& answer = {})
{
    JournalledRequest request;
    request.id = 7;
    request.document = u"00000012"_s;
    request.method = u"POST"_s;
    request.url = QUrl(u"https://registry.example:8443/api"_s + path);
    request.body = registrationBody;
    request.state = state;
    request.status = status;
    request.answer = answer;
    return request;
}

JournalledRequest registration(State state, int status = 0, const QByteArray& answer = {})
{
    return request(u"/MedicationDispense/$register"_s, state, status, answer);
}

Outcome outcomeOfRegistration(State state, int status = 0, const QByteArray& answer = {})
{
    return DispenseRequest::of(registration(state, status, answer)).value().outcome;
}

TEST(DispenseRequestTest, registration_hasWhatWasSent)
{
    const DispenseRequest read = DispenseRequest::of(registration(State::Unanswered)).value();
    EXPECT_EQ(read.id, 7);
    EXPECT_EQ(read.document, u"00000012"_s);
    EXPECT_EQ(read.kind, Kind::Registration);
    EXPECT_EQ(read.prescription, u"rx/1"_s);
    EXPECT_EQ(read.facts, (DispenseFacts{u"2026-03-02"_s, 10.0, u"Аптека № 17"_s, u"ул. Лесная, 1"_s}));
}

TEST(DispenseRequestTest, confirmedRegistration_isDoneAndHasTheId)
{
    const DispenseRequest read = DispenseRequest::of(registration(State::Answered, 200,
                                                                  R"({"resourceType": "Bundle", "entry": [
            {"transactionResponse": {"status": "POST:201"},
             "resource": {"resourceType": "MedicationDispense", "id": "d-1"}}]})"))
                                     .value();
    EXPECT_EQ(read.outcome, Outcome::Done);
    EXPECT_EQ(read.dispense, u"d-1"_s);
}

TEST(DispenseRequestTest, otherAnswers_haveTheirOutcome)
{
    EXPECT_EQ(outcomeOfRegistration(State::Unanswered), Outcome::Open);
    EXPECT_EQ(outcomeOfRegistration(State::NotSent), Outcome::NotSent);
    EXPECT_EQ(outcomeOfRegistration(State::Answered, 422, R"({"resourceType": "OperationOutcome"})"), Outcome::Refused);
    EXPECT_EQ(outcomeOfRegistration(State::Answered, 422, "<html>"), Outcome::Open);
    EXPECT_EQ(outcomeOfRegistration(State::Answered, 503, R"({"resourceType": "OperationOutcome"})"), Outcome::Open);
    EXPECT_EQ(outcomeOfRegistration(State::Answered, 200, R"({"resourceType": "Bundle", "entry": [
        {"transactionResponse": {"status": "POST:400"}}]})"),
              Outcome::Refused);
    for (const char* answer : {"", "{}", "[]", "<html>", R"({"resourceType": "Bundle", "entry": []})",
                               R"({"entry": [{"transactionResponse": {"status": 201}}]})"}) {
        EXPECT_EQ(outcomeOfRegistration(State::Answered, 200, answer), Outcome::Open) << answer;
    }
}

TEST(DispenseRequestTest, cancellation_hasTheIdOfItsPath)
{
    const auto read =
        DispenseRequest::of(request(u"/MedicationDispense/%D0%B4%2F1/$set-as-error"_s, State::Answered, 200,
                                    R"({"resourceType": "Bundle",
                                        "entry": [{"transactionResponse": {"status": "PUT:200"}}]})"))
            .value();
    EXPECT_EQ(read.kind, Kind::Cancellation);
    EXPECT_EQ(read.dispense, u"д/1"_s);
    EXPECT_EQ(read.outcome, Outcome::Done);
}

TEST(DispenseRequestTest, otherRequests_areAboutNoDispense)
{
    for (const QString& path : {u"/connect/token"_s, u"/MedicationDispense"_s, u"/MedicationDispense/$set-as-error"_s,
                                u"/MedicationDispense/d-1"_s, u""_s}) {
        EXPECT_FALSE(DispenseRequest::of(request(path, State::Unanswered))) << path.toStdString();
    }
}

TEST(DispenseRequestTest, bodyThatIsNoDispense_hasNothing)
{
    for (const char* body :
         {"", "[]", "{", R"({"parameter": 1})", R"({"parameter": [1, {"name": "medicationDispense"}]})",
          R"({"parameter": [{"name": "medicationDispense",
                                 "resource": {"authorizingPrescription": 5, "contained": {}, "quantity": "x"}}]})"}) {
        JournalledRequest damaged = registration(State::Unanswered);
        damaged.body = body;
        const DispenseRequest read = DispenseRequest::of(damaged).value();
        EXPECT_EQ(read.prescription, QString()) << body;
        EXPECT_EQ(read.facts, DispenseFacts()) << body;
    }
}

} // namespace
