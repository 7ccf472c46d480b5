// SPDX-License-Identifier: MIT
#include "registryclienttest.h"

using namespace Qt::StringLiterals;

using emulator::Endpoint;

namespace
{

using AdmissionTest = RegistryClientTest;

TEST_P(AdmissionTest, oaisToken_isSentWithTheTokenRequestAndTheResourceRequest)
{
    emulator::Rules rules = registry->store().rules();
    rules.oaisToken = u"oais-1"_s;
    registry->store().setRules(rules);
    configure("oais", "oais-1");

    EXPECT_FALSE(askForCard("1100"));
    EXPECT_FALSE(registerDispense());
    const auto& entries = registry->journal().entries();
    ASSERT_EQ(entries.size(), 4);
    EXPECT_EQ(entries[0].header("Authorization"), "Bearer oais-1");
    EXPECT_TRUE(entries[0].header("OAIS").isNull());
    for (const int resource : {1, 3}) {
        EXPECT_EQ(entries[resource].header("OAIS"), "Bearer oais-1");
        EXPECT_NE(entries[resource].header("Authorization"), "Bearer oais-1");
    }
}

TEST_P(AdmissionTest, missingOrWrongOaisToken_raisesTheRegistrysText)
{
    emulator::Rules rules = registry->store().rules();
    rules.oaisToken = u"oais-1"_s;
    registry->store().setRules(rules);

    EXPECT_EQ(askForCard("1100").text, "В запросе токена не указан токен ОАИС");
    configure("oais", "another");
    const RequestFailure failure = askForCard("1100");
    EXPECT_TRUE(failure);
    EXPECT_EQ(failure.key, tr::undefined);
    EXPECT_EQ(asked(Endpoint::PrescriptionsByCard), 0);
}

TEST_P(AdmissionTest, wrongSecret_raisesTheRegistrysTextAndSendsNothingMore)
{
    configure("clientSecret", "s&c ret");
    for (const Endpoint endpoint :
         {Endpoint::PrescriptionsByCard, Endpoint::DispenseRegistration, Endpoint::DispenseCancellation}) {
        const RequestFailure failure = ask(endpoint);
        EXPECT_EQ(failure.key, tr::undefined) << nameOf(endpoint);
        EXPECT_EQ(failure.text, "Неверный секрет клиента") << nameOf(endpoint);
        EXPECT_EQ(asked(endpoint), 0) << nameOf(endpoint);
    }
    EXPECT_EQ(asked(Endpoint::Token), 3);
    EXPECT_EQ(position->getExtendedOptions(), dueOptions);
}

TEST_P(AdmissionTest, tokenExpired_raisesTheRegistrysTextAndIsNotRenewed)
{
    emulator::Rules rules = registry->store().rules();
    rules.tokenLifetime = -1;
    registry->store().setRules(rules);

    const RequestFailure failure = askForCard("1100");
    EXPECT_EQ(failure.key, tr::undefined);
    EXPECT_FALSE(failure.text.isEmpty());
    EXPECT_EQ(lastOf(Endpoint::PrescriptionsByCard).status, 401);
    EXPECT_EQ(asked(Endpoint::Token), 1);
    EXPECT_EQ(asked(Endpoint::PrescriptionsByCard), 1);
}

TEST_P(AdmissionTest, missingScope_raisesTheRegistrysText)
{
    emulator::Rules rules = registry->store().rules();
    rules.dispenseScope = u"dispense"_s;
    registry->store().setRules(rules);
    configure("scope", "read");

    EXPECT_FALSE(askForCard("1100"));
    const RequestFailure failure = registerDispense();
    EXPECT_EQ(failure.text, "Для операции нужна область доступа dispense");
    EXPECT_EQ(position->getExtendedOptions(), dueOptions);
}

TEST_P(AdmissionTest, everyRequest_fetchesATokenOfItsOwn)
{
    EXPECT_FALSE(askForCard("1100"));
    EXPECT_FALSE(askForCard("1100"));
    const auto searches = registry->journal().entriesOf(Endpoint::PrescriptionsByCard);
    ASSERT_EQ(searches.size(), 2);
    EXPECT_EQ(asked(Endpoint::Token), 2);
    EXPECT_NE(searches[0].header("Authorization"), searches[1].header("Authorization"));
}

TEST_P(AdmissionTest, tokenAddressWithImpossiblePort_isReportedAndNoSecretIsSent)
{
    configure("authorizationUrl", QString::fromLatin1(GetParam()) + u"://127.0.0.1:84433"_s);
    for (const Endpoint endpoint :
         {Endpoint::PrescriptionsByCard, Endpoint::DispenseRegistration, Endpoint::DispenseCancellation}) {
        EXPECT_EQ(ask(endpoint).key, "restClientAddressNotUsable") << nameOf(endpoint);
    }
    EXPECT_TRUE(registry->journal().entries().isEmpty());
}

TEST_P(AdmissionTest, registryAddressWithImpossiblePort_isReportedAndNoTokenIsSentThere)
{
    configure("requestsUrl", QString::fromLatin1(GetParam()) + u"://127.0.0.1:84433"_s);
    EXPECT_EQ(askForCard("1100").key, "restClientAddressNotUsable");
    EXPECT_EQ(registerDispense().key, "restClientAddressNotUsable");
    EXPECT_EQ(asked(Endpoint::PrescriptionsByCard), 0);
    EXPECT_EQ(asked(Endpoint::DispenseRegistration), 0);
}

OVER_HTTP_AND_HTTPS(AdmissionTest);

} // namespace
