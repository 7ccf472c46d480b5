// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

using namespace Qt::StringLiterals;

namespace
{

using Headers = ElectronicPrescriptionInterface::Headers;
using AuthorizationTest = RegistryTest;

const Thrown tokenError{
    Thrown::Error,
    {u"electronicPrescriptionAuthorizationTokenError"_s, u"Ошибка при получении токена для авторизации"_s}};

TEST_F(AuthorizationTest, tokenRequestWithOais_hasThreeHeadersTheUrlAndTheForm)
{
    configurePharmacy();
    const ElectronicPrescriptionInterface interface;
    QUrl url;
    Headers headers;
    QString body;
    interface.formTokenRequest(url, headers, body);

    EXPECT_EQ(url.toEncoded(), "https://login.example/connect/token");
    EXPECT_EQ(headers, Headers({{"Content-Type", "application/x-www-form-urlencoded"},
                                {"Authorization", "Bearer oais-token"},
                                {"Accept", "application/json"}}));
    EXPECT_EQ(body, "grant_type=client_credentials&client_id=pharmacy-1&client_secret=s3cret"
                    "&scope=prescriptions%20dispenses&organization_identifier=org-9");
}

TEST_F(AuthorizationTest, tokenRequestWithoutOais_hasExactlyTwoHeaders)
{
    const ElectronicPrescriptionInterface interface;
    QUrl url;
    Headers headers;
    QString body;
    interface.formTokenRequest(url, headers, body);
    EXPECT_EQ(headers,
              Headers({{"Content-Type", "application/x-www-form-urlencoded"}, {"Accept", "application/json"}}));
}

TEST_F(AuthorizationTest, authorizationUrlWithPrefix_keepsIt)
{
    config.set("ElectronicPrescription:authorizationUrl", "http://login.example:81/auth/");
    const ElectronicPrescriptionInterface interface;
    QUrl url;
    Headers headers;
    QString body;
    interface.formTokenRequest(url, headers, body);
    EXPECT_EQ(url.toEncoded(), "http://login.example:81/auth/connect/token");
}

TEST_F(AuthorizationTest, blankAmpersandAndEmptyScope_areEncodedAndKeptInOrder)
{
    config.set("ElectronicPrescription:clientId", "pharmacy one");
    config.set("ElectronicPrescription:clientSecret", "a&b");
    config.set("ElectronicPrescription:organizationIdentifier", "о-1");
    const ElectronicPrescriptionInterface interface;
    QUrl url;
    Headers headers;
    QString body;
    interface.formTokenRequest(url, headers, body);
    EXPECT_EQ(body, "grant_type=client_credentials&client_id=pharmacy%20one&client_secret=a%26b&scope="
                    "&organization_identifier=%D0%BE-1");
}

TEST_F(AuthorizationTest, tokenRequest_changesNothingAndTheRequestAfterItDoes)
{
    configurePharmacy();
    grantToken();
    answer("{}");
    const ElectronicPrescriptionInterface interface;
    thrownBy([&] { interface.sendMedicationDispense(QSharedPointer<PositionDouble>::create()); });
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].target(), "/connect/token");
    EXPECT_TRUE(requests[0].isWithoutEffect);
    EXPECT_FALSE(requests[1].isWithoutEffect);
}

TEST_F(AuthorizationTest, tokenRequest_isPostedOnceWithItsHeadersAndForm)
{
    configurePharmacy();
    grantToken();
    const ElectronicPrescriptionInterface interface;
    QString token("former");
    interface.getAuthorizationToken(token);

    EXPECT_EQ(token, "token-1");
    QUrl url;
    Headers headers;
    QString body;
    interface.formTokenRequest(url, headers, body);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].method, "POST");
    EXPECT_EQ(requests[0].url, url);
    EXPECT_EQ(requests[0].headers, headers);
    EXPECT_EQ(requests[0].body, body.toUtf8());
}

struct Grant {
    const char* name;
    const char* answer;
    const char* token;
};

class Granted : public RegistryTest, public ::testing::WithParamInterface<Grant>
{
};

TEST_P(Granted, accessToken_isTakenAsText)
{
    answer(GetParam().answer);
    const ElectronicPrescriptionInterface interface;
    QString token("former");
    interface.getAuthorizationToken(token);
    EXPECT_EQ(token, GetParam().token);
}

INSTANTIATE_TEST_SUITE_P(Answers, Granted,
                         ::testing::Values(Grant{"token", R"({"access_token": "abc"})", "abc"},
                                           Grant{"otherFieldsIgnored",
                                                 R"({"access_token": "abc", "expires_in": 0, "token_type": "x"})",
                                                 "abc"},
                                           Grant{"empty", R"({"access_token": ""})", ""},
                                           Grant{"number", R"({"access_token": 7})", ""},
                                           Grant{"null", R"({"access_token": null})", ""},
                                           Grant{"object", R"({"access_token": {"value": "abc"}})", ""}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AuthorizationTest, answersWithoutAccessToken_raiseTheTokenErrorAndLeaveTheToken)
{
    for (const char* text : {"{}", R"({"Access_token": "abc"})", "[]", R"(["access_token"])"}) {
        answer(text);
        const ElectronicPrescriptionInterface interface;
        QString token("former");
        EXPECT_EQ(thrownBy([&] { interface.getAuthorizationToken(token); }), tokenError) << text;
        EXPECT_EQ(token, "former") << text;
    }
}

TEST_F(AuthorizationTest, answerThatIsNoJson_raisesTheTokenError)
{
    const ElectronicPrescriptionInterface interface;
    QString token;
    EXPECT_EQ(thrownBy([&] { interface.getAuthorizationToken(token); }), tokenError);
    EXPECT_EQ(requests.size(), 1);
}

TEST_F(AuthorizationTest, refusedClient_raisesTheRegistrysOwnText)
{
    fail(401, R"({"issue": [{"severity": "error", "details": "Неизвестный клиент"}]})");
    const ElectronicPrescriptionInterface interface;
    QString token;
    EXPECT_EQ(thrownBy([&] { interface.getAuthorizationToken(token); }),
              (Thrown{Thrown::Error, {tr::undefined, "Неизвестный клиент"}}));
}

TEST_F(AuthorizationTest, noToken_keepsTheResourceRequestFromBeingSent)
{
    const ElectronicPrescriptionInterface interface;
    const auto position = QSharedPointer<PositionDouble>::create(R"({"id": "1"})");
    QJsonArray prescriptions;
    QJsonObject patient;
    const std::function<void()> operations[] = {
        [&] { interface.getElectronicPrescriptionsByCardNumber("1", "active", prescriptions, patient); },
        [&] { interface.sendMedicationDispense(position); },
        [&] { interface.sendCancelMedicationDispense(position); },
    };
    for (const auto& operation : operations) {
        requests.clear();
        answer("{}");
        EXPECT_EQ(thrownBy(operation), tokenError);
        EXPECT_EQ(requests.size(), 1);

        requests.clear();
        fail(7);
        EXPECT_EQ(thrownBy(operation), (Thrown{Thrown::Error, transportError}));
        EXPECT_EQ(requests.size(), 1);
    }
    EXPECT_EQ(position->optionsWritten, 0);
}

TEST_F(AuthorizationTest, noToken_leavesTheHeadersAsTheyWere)
{
    configurePharmacy();
    fail(401);
    const ElectronicPrescriptionInterface interface;
    Headers headers{{"X-Former", "1"}, {"Authorization", "former"}};

    EXPECT_EQ(thrownBy([&] { interface.formHeaders(headers); }), (Thrown{Thrown::Error, transportError}));

    EXPECT_EQ(headers, (Headers{{"X-Former", "1"}, {"Authorization", "former"}}));
}

TEST_F(AuthorizationTest, emptyToken_isUsedAsItIs)
{
    answer(R"({"access_token": ""})");
    const ElectronicPrescriptionInterface interface;
    Headers headers;
    interface.formHeaders(headers);
    EXPECT_EQ(headers["Authorization"], "Bearer ");
}

TEST_F(AuthorizationTest, twoRequestsInARow_fetchTwoTokens)
{
    const char* const nothing = R"({"resourceType": "Bundle"})";
    answer(R"({"access_token": "one", "expires_in": 3600})");
    answer(nothing);
    answer(R"({"access_token": "two", "expires_in": 3600})");
    answer(nothing);
    const ElectronicPrescriptionInterface interface;
    QJsonArray prescriptions;
    QJsonObject patient;
    for (int time = 0; time < 2; ++time) {
        thrownBy([&] { interface.getElectronicPrescriptionsByCardNumber("1", "active", prescriptions, patient); });
    }

    ASSERT_EQ(requests.size(), 4);
    EXPECT_EQ(requests[0].url.path(), "/connect/token");
    EXPECT_EQ(requests[1].headers["Authorization"], "Bearer one");
    EXPECT_EQ(requests[2].url.path(), "/connect/token");
    EXPECT_EQ(requests[3].headers["Authorization"], "Bearer two");
}

} // namespace
