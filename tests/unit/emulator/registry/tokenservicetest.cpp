// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

using emulator::RefusalCode;

namespace
{
class TokenServiceTest : public EmulatorTest
{
protected:
    void requireOais()
    {
        auto rules = m_emulator->store().rules();
        rules.oaisToken = u"second"_s;
        m_emulator->store().setRules(rules);
    }

    static QString error(const RawAnswer& answer) { return answer.json().value(u"error"_s).toString(); }
};
} // namespace

TEST_F(TokenServiceTest, goodRequest_getsBearerTokenWithLifetimeAndScope)
{
    const RawAnswer answer = askForToken(goodForm());
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.header("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(answer.header("Cache-Control"), "no-store");
    EXPECT_GE(answer.json().value(u"access_token"_s).toString().size(), 40);
    EXPECT_EQ(answer.json().value(u"token_type"_s).toString(), u"Bearer"_s);
    EXPECT_EQ(answer.json().value(u"expires_in"_s).toInt(), 3600);
    EXPECT_EQ(answer.json().value(u"scope"_s).toString(), u"read dispense"_s);
}

TEST_F(TokenServiceTest, everyRequest_getsATokenOfItsOwn)
{
    EXPECT_NE(askForToken(goodForm()).json().value(u"access_token"_s),
              askForToken(goodForm()).json().value(u"access_token"_s));
}

TEST_F(TokenServiceTest, spacesAsPlusSigns_areReadAsForm)
{
    EXPECT_EQ(askForToken(goodForm("read+dispense")).json().value(u"scope"_s).toString(), u"read dispense"_s);
}

TEST_F(TokenServiceTest, emptyScope_getsAllScopesOfClient)
{
    EXPECT_EQ(askForToken(goodForm("")).json().value(u"scope"_s).toString(), u"read dispense"_s);
}

struct BadTokenRequest {
    const char* name;
    QByteArray form;
    RefusalCode code;
    QStringList values = {};
};

void PrintTo(const BadTokenRequest& request, std::ostream* stream)
{
    *stream << request.name;
}

class RefusedTokenRequest : public EmulatorTest, public ::testing::WithParamInterface<BadTokenRequest>
{
};

TEST_P(RefusedTokenRequest, hasItsOwnCodeAndNoToken)
{
    const RawAnswer answer = askForToken(GetParam().form);
    expectRefusal(answer, GetParam().code, GetParam().values);
    EXPECT_FALSE(answer.json().contains(u"access_token"_s));
}

INSTANTIATE_TEST_SUITE_P(
    TokenService, RefusedTokenRequest,
    ::testing::Values(
        BadTokenRequest{"emptyForm", "", RefusalCode::TokenParameterMissing, {u"grant_type"_s}},
        BadTokenRequest{"otherGrant", "grant_type=password", RefusalCode::GrantTypeUnknown},
        BadTokenRequest{
            "noClient", "grant_type=client_credentials", RefusalCode::TokenParameterMissing, {u"client_id"_s}},
        BadTokenRequest{"unknownClient", "grant_type=client_credentials&client_id=x", RefusalCode::ClientUnknown},
        BadTokenRequest{"noSecret",
                        "grant_type=client_credentials&client_id=pharmacy&client_secret=",
                        RefusalCode::TokenParameterMissing,
                        {u"client_secret"_s}},
        BadTokenRequest{"wrongSecret", "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c+ret",
                        RefusalCode::ClientSecretWrong},
        BadTokenRequest{"noOrganization",
                        "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret&scope=read",
                        RefusalCode::TokenParameterMissing,
                        {u"organization_identifier"_s}},
        BadTokenRequest{"foreignOrganization",
                        "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret&"
                        "organization_identifier=18",
                        RefusalCode::OrganizationWrong},
        BadTokenRequest{"foreignScope",
                        "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret&scope=read+admin&"
                        "organization_identifier=17",
                        RefusalCode::ScopeNotAllowed,
                        {u"admin"_s}},
        BadTokenRequest{"twice",
                        "grant_type=client_credentials&client_id=a&client_id=b",
                        RefusalCode::TokenParameterTwice,
                        {u"client_id"_s}},
        BadTokenRequest{"badEncoding", "grant_type=%zz", RefusalCode::TokenRequestUndecodable}),
    [](const auto& row) { return row.param.name; });

TEST_F(TokenServiceTest, bodyThatIsNoForm_isRefused)
{
    const RawAnswer answer = ask("POST", "/connect/token", {{"Content-Type", "application/json"}}, goodForm());
    EXPECT_EQ(error(answer), u"invalid_request"_s);
    expectRefusal(answer, RefusalCode::TokenRequestNoForm);
}

TEST_F(TokenServiceTest, missingOaisToken_isRefusedWhereItIsRequired)
{
    requireOais();
    const RawAnswer answer = askForToken(goodForm());
    EXPECT_EQ(error(answer), u"invalid_client"_s);
    EXPECT_EQ(answer.header("WWW-Authenticate"), "Bearer");
    expectRefusal(answer, RefusalCode::TokenRequestOaisMissing);
}

TEST_F(TokenServiceTest, wrongOaisToken_isRefused)
{
    requireOais();
    const RawAnswer answer = askForToken(goodForm(), {{"Authorization", "Bearer first"}});
    expectRefusal(answer, RefusalCode::TokenRequestOaisWrong);
}

TEST_F(TokenServiceTest, rightOaisTokens_areAdmitted)
{
    requireOais();
    const RawAnswer token = askForToken(goodForm(), {{"Authorization", "Bearer second"}});
    ASSERT_EQ(token.status, 200);
    const QByteArray bearer = "Bearer " + token.json().value(u"access_token"_s).toString().toLatin1();
    EXPECT_EQ(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100",
                  {{"authorization", bearer}, {"OAIS", "Bearer second"}})
                  .status,
              200);
}

TEST_F(TokenServiceTest, resourceRequestWithoutOrWithWrongOaisToken_isRefused)
{
    emulator::HttpHeaders headers = admitted();
    requireOais();
    const QByteArray target = "/MedicationPrescription/$by-card?patientIdentifier=1100";
    const RawAnswer without = ask("GET", target, headers);
    expectRefusal(without, RefusalCode::OaisMissing);
    headers.append(std::pair<QByteArray, QByteArray>("OAIS", "Bearer first"));
    const RawAnswer wrong = ask("GET", target, headers);
    expectRefusal(wrong, RefusalCode::OaisWrong);
}

TEST_F(TokenServiceTest, resourceRequestWithoutToken_isRefused)
{
    for (const emulator::HttpHeaders& headers :
         {emulator::HttpHeaders(), emulator::HttpHeaders{{"Authorization", "Bearer "}},
          emulator::HttpHeaders{{"Authorization", "Basic eDp5"}}}) {
        const RawAnswer answer = ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers);
        EXPECT_EQ(answer.header("WWW-Authenticate"), "Bearer");
        expectRefusal(answer, RefusalCode::TokenMissing);
    }
}

TEST_F(TokenServiceTest, inventedToken_isRefused)
{
    const RawAnswer answer =
        ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", {{"Authorization", "Bearer x"}});
    EXPECT_EQ(answer.header("WWW-Authenticate"), "Bearer error=\"invalid_token\"");
    expectRefusal(answer, RefusalCode::TokenUnknown);
}

TEST_F(TokenServiceTest, tokenAtTheEndOfItsLifetime_isRefused)
{
    const emulator::HttpHeaders headers = admitted();
    m_now = m_now.addSecs(3599);
    EXPECT_EQ(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers).status, 200);
    m_now = m_now.addSecs(1);
    const RawAnswer answer = ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers);
    expectRefusal(answer, RefusalCode::TokenExpired);
}

TEST_F(TokenServiceTest, tokenWithoutScope_isForbidden)
{
    auto rules = m_emulator->store().rules();
    rules.prescriptionScope = u"read"_s;
    rules.dispenseScope = u"dispense"_s;
    m_emulator->store().setRules(rules);

    const emulator::HttpHeaders reader = admitted(goodForm("read"));
    EXPECT_EQ(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", reader).status, 200);
    for (const QByteArray& path :
         {QByteArray("/MedicationDispense/$register"), QByteArray("/MedicationDispense/d-1/$set-as-error")}) {
        const RawAnswer answer = ask("POST", path, reader, "{}");
        expectRefusal(answer, RefusalCode::ScopeMissing, {u"dispense"_s});
    }
    const RawAnswer answer =
        ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", admitted(goodForm("dispense")));
    expectRefusal(answer, RefusalCode::ScopeMissing, {u"read"_s});
}
