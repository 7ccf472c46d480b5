// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

#include "unsettledrequestexception.h"

using namespace Qt::StringLiterals;

namespace
{

/// A client whose request is over.
class FinishedClient : public RestClient
{
public:
    FinishedClient(int errorCode, const QJsonDocument& answer,
                   RestClient::Outcome outcome = RestClient::Outcome::Settled)
        : m_errorCode(errorCode)
        , m_answer(answer)
        , m_outcome(outcome)
    {
    }
    int errorCode() const override { return m_errorCode; }
    tr::Tr errorText() const override { return text; }
    QJsonDocument answer() const override { return m_answer; }
    RestClient::Outcome outcome() const override { return m_outcome; }

    static inline const tr::Tr text{u"clientError"_s, u"Ошибка связи"_s};

private:
    int m_errorCode;
    QJsonDocument m_answer;
    RestClient::Outcome m_outcome;
};

struct Outcome {
    const char* name;
    const char* answer;  ///< empty: null
    const char* details; ///< null: the client's own text is thrown
};

class FailedResult : public ::testing::TestWithParam<Outcome>
{
};

TEST_P(FailedResult, registrysExplanation_isThrownWhereThereIsOneOtherwiseTheClientsText)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    const QJsonDocument answer = *GetParam().answer ? json(GetParam().answer) : QJsonDocument();
    const QSharedPointer<RestClient> client(new FinishedClient(1, answer));
    QJsonDocument result = json(R"({"former": 1})");

    const tr::Tr expected =
        GetParam().details ? tr::Tr(tr::undefined, QString::fromUtf8(GetParam().details)) : FinishedClient::text;
    EXPECT_EQ(thrownBy([&] { interface.getRequestResult(client, result); }), (Thrown{Thrown::Error, expected}));
    EXPECT_EQ(result, answer) << "the answer is handed over before anything is thrown";
}

INSTANTIATE_TEST_SUITE_P(
    Answers, FailedResult,
    ::testing::Values(
        Outcome{"null", "", nullptr}, Outcome{"array", "[1]", nullptr}, Outcome{"noIssue", R"({"a": 1})", nullptr},
        Outcome{"issueNoArray", R"({"issue": "error"})", nullptr},
        Outcome{"issueAnObject", R"({"issue": {"severity": "error", "details": "x"}})", nullptr},
        Outcome{"issueEmpty", R"({"issue": []})", nullptr},
        Outcome{"issueOfNoObjects", R"({"issue": [1, "error", null, ["error"]]})", nullptr},
        Outcome{"error", R"({"issue": [{"severity": "error", "details": "Рецепт просрочен"}]})", "Рецепт просрочен"},
        Outcome{"errorBehindAnotherSeverity",
                R"({"issue": [{"severity": "warning", "details": "a"}, {"severity": "error", "details": "b"}]})", "b"},
        Outcome{"noErrorSeverity",
                R"({"issue": [{"severity": "warning", "details": "a"}, {"severity": "fatal", "details": "b"}]})",
                nullptr},
        Outcome{"severityInAnotherCase", R"({"issue": [{"severity": "Error", "details": "a"}]})", nullptr},
        Outcome{"severityNoText", R"({"issue": [{"severity": 1, "details": "a"}]})", nullptr},
        Outcome{"noSeverity", R"({"issue": [{"details": "a"}]})", nullptr},
        Outcome{"errorWithoutDetailsIsPassedOver",
                R"({"issue": [{"severity": "error"}, {"severity": "error", "details": "b"}]})", "b"},
        Outcome{"onlyErrorsWithoutDetails", R"({"issue": [{"severity": "error"}]})", nullptr},
        Outcome{"firstOfTwoErrors",
                R"({"issue": [{"severity": "error", "details": "a"}, {"severity": "error", "details": "b"}]})", "a"},
        Outcome{"detailsNoText", R"({"issue": [{"severity": "error", "details": {"text": "a"}}]})", ""},
        Outcome{"detailsNull", R"({"issue": [{"severity": "error", "details": null}]})", ""},
        Outcome{"detailsWithPlaceholder", R"({"issue": [{"severity": "error", "details": "%1 и %2"}]})", "%1 и %2"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(RequestResult, outcomeOfAFailure_isKeptWhateverTheAnswerSays)
{
    using Known = RestClient::Outcome;
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    for (const char* answer : {R"({"issue": [{"severity": "error", "details": "Сбой"}]})", "{}"}) {
        for (const Known outcome : {Known::Settled, Known::Unknown, Known::Stopped}) {
            QJsonDocument result;
            const QSharedPointer<RestClient> client(new FinishedClient(502, json(answer), outcome));
            try {
                interface.getRequestResult(client, result);
                ADD_FAILURE() << answer;
            } catch (const ElectronicPrescriptionException& exception) {
                EXPECT_EQ(outcomeOf(exception), outcome) << answer;
            }
        }
    }
}

TEST(RequestResult, errorCodeOfZeroOrLess_isASuccessWithAnyAnswer)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    const QJsonDocument answer = json(R"({"issue": [{"severity": "error", "details": "a"}]})");
    for (const int code : {0, -1, -400}) {
        QJsonDocument result;
        interface.getRequestResult(QSharedPointer<RestClient>(new FinishedClient(code, answer)), result);
        EXPECT_EQ(result, answer) << code;
    }
}

TEST(RequestResult, successWithoutJson_leavesNullInPlaceOfTheFormerDocument)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    QJsonDocument result = json(R"({"former": 1})");
    interface.getRequestResult(QSharedPointer<RestClient>(new FinishedClient(0, {})), result);
    EXPECT_TRUE(result.isNull());
}

TEST(RequestResult, everyErrorCodeAboveZero_throws)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    for (const int code : {1, 99, 404, 500}) {
        QJsonDocument result;
        EXPECT_EQ(thrownBy([&] {
                      interface.getRequestResult(QSharedPointer<RestClient>(new FinishedClient(code, {})), result);
                  }),
                  (Thrown{Thrown::Error, FinishedClient::text}))
            << code;
    }
}

struct Status {
    const char* name;
    const char* answer;
    const char* expected;
    bool reported;
};

class TransactionStatus : public ::testing::TestWithParam<Status>
{
};

TEST_P(TransactionStatus, status_isReportedByAnEntryOfTheBundleOrNot)
{
    const Configured config;
    const ElectronicPrescriptionInterface interface;
    EXPECT_EQ(interface.checkRequestResultStatus(json(GetParam().answer).object(), GetParam().expected),
              GetParam().reported);
}

constexpr auto secondEntry = R"({"resourceType": "Bundle", "entry": [
    {"resource": {}}, {"transactionResponse": {"status": "POST:201"}}]})";

INSTANTIATE_TEST_SUITE_P(
    Answers, TransactionStatus,
    ::testing::Values(
        Status{"secondEntry", secondEntry, "POST:201", true}, Status{"another", secondEntry, "PUT:200", false},
        Status{"anotherCaseExpected", secondEntry, "post:201", false},
        Status{"anotherCaseReported",
               R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "post:201"}}]})", "POST:201",
               false},
        Status{"firstEntry", R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "PUT:200"}}]})",
               "PUT:200", true},
        Status{"behindAnotherStatus", R"({"resourceType": "Bundle", "entry": [
               {"transactionResponse": {"status": "POST:400"}}, {"transactionResponse": {"status": "PUT:200"}}]})",
               "PUT:200", true},
        Status{"empty", "{}", "POST:201", false},
        Status{"noResourceType", R"({"entry": [{"transactionResponse": {"status": "POST:201"}}]})", "POST:201", false},
        Status{"anotherResourceType",
               R"({"resourceType": "bundle", "entry": [{"transactionResponse": {"status": "POST:201"}}]})", "POST:201",
               false},
        Status{"resourceTypeNoText",
               R"({"resourceType": ["Bundle"], "entry": [{"transactionResponse": {"status": "POST:201"}}]})",
               "POST:201", false},
        Status{"noEntry", R"({"resourceType": "Bundle"})", "POST:201", false},
        Status{"entryNoArray",
               R"({"resourceType": "Bundle", "entry": {"transactionResponse": {"status": "POST:201"}}})", "POST:201",
               false},
        Status{"entryEmpty", R"({"resourceType": "Bundle", "entry": []})", "POST:201", false},
        Status{"entriesNoObjects", R"({"resourceType": "Bundle", "entry": [1, null, "POST:201", ["POST:201"]]})",
               "POST:201", false},
        Status{"responseNoObject", R"({"resourceType": "Bundle", "entry": [{"transactionResponse": "POST:201"}]})",
               "POST:201", false},
        Status{"statusNoText", R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": 201}}]})",
               "201", false},
        Status{"statusMissing", R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {}}]})", "", false},
        Status{"statusNull", R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": null}}]})", "",
               false}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
