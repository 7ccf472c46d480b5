// SPDX-License-Identifier: MIT
// The doctor, the token and a card's prescriptions.
#include "doctortest.h"

#include "scriptedserver.h"

using namespace doctor;

namespace
{

using AccessTest = DoctorTest;

/// Answers a GET of a look-up, the token request, and a GET without credentials.
ScriptedServer& serve(ScriptedServer& server, const Reaction& token, const Reaction& card)
{
    server.reactBy([token, card](const ReceivedRequest& request) {
        if (request.method == "POST") {
            return token;
        }
        return request.target.contains("by-card") ? card : Reaction::json(405, "{}");
    });
    return server;
}

Reaction granted()
{
    return Reaction::json(200, R"({"access_token": "tok-en-17", "token_type": "Bearer", "scope": "read dispense"})");
}

} // namespace

TEST_F(AccessTest, secretIsWrong_theOperatorIsAskedWithTheRegistrysWords)
{
    startRegistry();
    configure(u"clientSecret"_s, u"another secret"_s);
    secrets.append(u"another secret"_s);
    examine(testCard);
    expectWrong(u"token"_s, FindingCode::ClientRefused, Adviser::Operator, 7);
    EXPECT_TRUE(shown().contains(u"Неверный секрет клиента"_s)) << shown().toStdString();
    expectNotReached(u"card"_s, u"token"_s);
}

TEST_F(AccessTest, clientIsUnknown_theOperatorIsAskedWithTheRegistrysWords)
{
    startRegistry();
    configure(u"clientId"_s, u"pharmcy"_s);
    examine();
    expectWrong(u"token"_s, FindingCode::ClientRefused, Adviser::Operator, 7);
    EXPECT_TRUE(shown().contains(u"Клиент не зарегистрирован"_s)) << shown().toStdString();
}

TEST_F(AccessTest, scopeIsNotTheClients_theOperatorIsAsked)
{
    startRegistry();
    configure(u"scope"_s, u"read administration"_s);
    examine();
    expectWrong(u"token"_s, FindingCode::ScopeRefused, Adviser::Operator, 7);
    EXPECT_TRUE(shown().contains(u"administration"_s)) << shown().toStdString();
}

TEST_F(AccessTest, tokenComesWithoutAScope_theScopeIsNamedAndTheCardIsAskedForAllTheSame)
{
    ScriptedServer server;
    serve(server, Reaction::json(200, R"({"access_token": "tok-en-17", "scope": "read"})"),
          Reaction::json(200, R"({"resourceType": "Bundle"})"));
    useServer(server.url());
    secrets.append(u"tok-en-17"_s);
    examine(testCard);
    expectWrong(u"token"_s, FindingCode::ScopeNotGranted, Adviser::Operator, 7);
    EXPECT_TRUE(shown().contains(u"without the scope dispense"_s)) << shown().toStdString();
    expectFinding(u"card"_s, FindingCode::CardWithoutPrescriptions);
}

TEST_F(AccessTest, organizationIsUnknown_theOperatorIsAsked)
{
    startRegistry();
    configure(u"organizationIdentifier"_s, u"18"_s);
    examine();
    expectWrong(u"token"_s, FindingCode::OrganizationRefused, Adviser::Operator, 7);
}

TEST_F(AccessTest, authorizationAddressIsWrong_theOperatorIsAskedForIt)
{
    startRegistry();
    configure(u"authorizationUrl"_s, registry->url().toString() + u"/oauth"_s);
    examine();
    expectWrong(u"token"_s, FindingCode::TokenPathUnknown, Adviser::Operator, 8);
}

TEST_F(AccessTest, tokenIsNoJson_theOperatorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerBody(emulator::Endpoint::Token, "token", emulator::Occasion::nth(2));
    });
    examine();
    expectWrong(u"token"_s, FindingCode::TokenNotJson, Adviser::Operator, 8);
}

TEST_F(AccessTest, answerHasNoToken_theOperatorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerBody(emulator::Endpoint::Token, R"({"token": "x"})", emulator::Occasion::nth(2));
    });
    examine();
    expectWrong(u"token"_s, FindingCode::TokenMissing, Adviser::Operator, 8);
}

TEST_F(AccessTest, registryFailsAtTheToken_theOperatorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerStatus(emulator::Endpoint::Token, 500, emulator::Occasion::nth(2));
    });
    examine();
    expectWrong(u"token"_s, FindingCode::RegistryUnavailable, Adviser::Operator, 8);
}

TEST_F(AccessTest, connectionEndsAtTheToken_theNetworkAdministratorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().closeBeforeAnswer(emulator::Endpoint::Token, emulator::Occasion::nth(2));
    });
    examine();
    expectWrong(u"token"_s, FindingCode::RequestFailed, Adviser::NetworkAdministrator, 4);
}

TEST_F(AccessTest, tooManyRequests_theOperatorIsAsked)
{
    ScriptedServer server;
    serve(server, Reaction::json(429, "{}"), Reaction::json(200, "{}"));
    useServer(server.url());
    examine();
    expectWrong(u"token"_s, FindingCode::RegistryBusy, Adviser::Operator, 8);
}

TEST_F(AccessTest, refusalRepeatsTheSecretAndCommandsATerminal_neitherIsShown)
{
    ScriptedServer server;
    serve(server,
          Reaction::json(401, R"({"error": "invalid_client", "issue": [{"severity": "error",)"
                              R"( "details": "no s&c+ret, s%26c%2Bret \u001b[2J\r\nOK"}]})"),
          Reaction::json(200, "{}"));
    useServer(server.url());
    examine();
    expectWrong(u"token"_s, FindingCode::ClientRefused, Adviser::Operator, 7);
    EXPECT_TRUE(shown().contains(u"secret: no ***, ***  [2J OK\n"_s)) << shown().toStdString();
}

TEST_F(AccessTest, oaisIsRefused_theTokenIsNotBlamed)
{
    startRegistry({{"oaisToken"_L1, "right-oais"_L1}});
    configure(u"oais"_s, u"wrong-oais"_s);
    secrets += {u"right-oais"_s, u"wrong-oais"_s};
    examine(testCard);
    expectFinding(u"token"_s, FindingCode::TokenOaisFirst);
    expectWrong(u"oais"_s, FindingCode::OaisRefused, Adviser::Operator, 7);
    expectNotReached(u"card"_s, u"token"_s);
}

TEST_F(AccessTest, oaisIsMissing_theOperatorIsAskedForOne)
{
    startRegistry({{"oaisToken"_L1, "right-oais"_L1}});
    secrets.append(u"right-oais"_s);
    examine();
    expectWrong(u"oais"_s, FindingCode::OaisMissing, Adviser::Operator, 7);
}

TEST_F(AccessTest, oaisIsRight_everythingIsGood)
{
    startRegistry({{"oaisToken"_L1, "right-oais"_L1}});
    configure(u"oais"_s, u"right-oais"_s);
    secrets.append(u"right-oais"_s);
    examine(testCard);
    expectFinding(u"oais"_s, FindingCode::OaisGood);
    expectFinding(u"card"_s, FindingCode::CardGood);
    EXPECT_EQ(exitStatus(results), 0);
}

TEST_F(AccessTest, oaisIsRefusedAtTheLookUpOnly_theCardsCheckSaysSo)
{
    ScriptedServer server;
    serve(server, granted(),
          Reaction::json(401, R"({"issue": [{"severity": "error", "details": "Токен ОАИС не принят"}]})"));
    useServer(server.url());
    configure(u"oais"_s, u"some-oais"_s);
    secrets += {u"some-oais"_s, u"tok-en-17"_s};
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardOaisRefused, Adviser::Operator, 7);
}

TEST_F(AccessTest, tokenIsRefusedAtTheLookUp_theOperatorIsAskedWhetherTheServersBelongTogether)
{
    ScriptedServer server;
    serve(server, granted(), Reaction::json(401, "{}"));
    useServer(server.url());
    secrets.append(u"tok-en-17"_s);
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardTokenRefused, Adviser::Operator, 7);
}

TEST_F(AccessTest, lookUpNeedsAScopeThatIsNotAskedFor_theOperatorIsAsked)
{
    startRegistry({{"prescriptionScope"_L1, "read"_L1}});
    configure(u"scope"_s, u"dispense"_s);
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardScopeMissing, Adviser::Operator, 7);
}

TEST_F(AccessTest, noCard_theLookUpIsNotMade)
{
    startRegistry();
    examine();
    expectFinding(u"card"_s, FindingCode::CardNotGiven);
    EXPECT_EQ(exitStatus(results), 0);
}

TEST_F(AccessTest, cardWithoutPrescriptions_isGood)
{
    startRegistry();
    examine(emptyCard);
    expectFinding(u"card"_s, FindingCode::CardWithoutPrescriptions);
    EXPECT_EQ(exitStatus(results), 0);
}

TEST_F(AccessTest, cardIsUnknown_theOperatorIsAskedForATestCard)
{
    startRegistry();
    secrets.append(u"4700000000000011"_s);
    examine(u"4700000000000011"_s);
    expectWrong(u"card"_s, FindingCode::CardUnknown, Adviser::Operator, 8);
}

TEST_F(AccessTest, requestsAddressIsWrong_theCardIsNotBlamed)
{
    startRegistry();
    configure(u"requestsUrl"_s, registry->url().toString() + u"/fhir"_s);
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardPathUnknown, Adviser::Operator, 8);
}

TEST_F(AccessTest, lookUpIsNoBundle_theOperatorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerBody(emulator::Endpoint::PrescriptionsByCard, R"({"resourceType": "Patient"})");
    });
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardAnswerUnusable, Adviser::Operator, 8);
}

TEST_F(AccessTest, lookUpIsRefusedWithTheCardAndAName_neitherIsShown)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerIssue(emulator::Endpoint::PrescriptionsByCard, 422,
                                      u"Карта 1100000000000017, Пробный: отказ"_s);
    });
    examine(testCard);
    expectWrong(u"card"_s, FindingCode::CardRefused, Adviser::Operator, 8);
}

TEST_F(AccessTest, allIsWell_oneTokenIsAskedFor)
{
    startRegistry();
    examine(testCard);
    expectFinding(u"card"_s, FindingCode::CardGood);
    const auto count = [this](emulator::Endpoint endpoint) {
        return registry->ask([endpoint](auto& emulated) { return emulated.journal().count(endpoint); });
    };
    EXPECT_EQ(count(emulator::Endpoint::Token), 2) << "the GET without credentials, and the request for a token";
    EXPECT_EQ(count(emulator::Endpoint::PrescriptionsByCard), 1);
    EXPECT_EQ(count(emulator::Endpoint::Any), 3);
}
