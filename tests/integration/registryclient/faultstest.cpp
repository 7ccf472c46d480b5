// SPDX-License-Identifier: MIT
#include "registryclienttest.h"

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::FaultScript;

namespace
{

class FaultsTest : public RegistryClientTest
{
protected:
    /// Sends a request to the endpoint after `order` has ordered a fault. The request arrives exactly once, nothing is
    /// sent after a failed token, and the position stays as it was.
    RequestFailure askWithFault(Endpoint endpoint, const std::function<void(FaultScript&)>& order)
    {
        registry->journal().clear();
        registry->faults().clear();
        prescriptions = {};
        position->setExtendedOptions(dueOptions);
        order(registry->faults());

        const RequestFailure failure = ask(endpoint);
        EXPECT_EQ(asked(endpoint), 1) << nameOf(endpoint);
        EXPECT_EQ(registry->journal().entries().size(), endpoint == Endpoint::Token ? 1 : 2) << nameOf(endpoint);
        EXPECT_TRUE(registry->faults().pending().isEmpty()) << "the fault was used";
        EXPECT_TRUE(prescriptions.isEmpty());
        EXPECT_EQ(position->getExtendedOptions(), dueOptions);
        return failure;
    }
};

/// True for a request that changes what the registry holds.
bool books(Endpoint endpoint)
{
    return endpoint == Endpoint::DispenseRegistration || endpoint == Endpoint::DispenseCancellation;
}

struct StatusText {
    int status;
    const char* key;
};

constexpr StatusText statusTexts[] = {
    {401, "restClientStatusUnauthorized"},    {403, "restClientStatusForbidden"},   {404, "restClientStatusNotFound"},
    {429, "restClientStatusTooManyRequests"}, {500, "restClientStatusServerError"},
};

TEST_P(FaultsTest, errorStatusWithoutAnIssue_raisesTheHttpClientsText)
{
    for (const auto& [status, key] : statusTexts) {
        for (const Endpoint endpoint : everyEndpoint) {
            const RequestFailure failure = askWithFault(
                endpoint, [&, code = status](FaultScript& faults) { faults.answerStatus(endpoint, code); });
            const bool isOpen = status == 500 && books(endpoint);
            EXPECT_EQ(failure.key, isOpen ? "restClientStatusServerErrorUncertain" : key) << nameOf(endpoint);
            EXPECT_TRUE(failure.text.contains(QString::number(status))) << failure.text.toStdString();
        }
    }
}

TEST_P(FaultsTest, errorStatusWithAnIssue_raisesTheRegistrysText)
{
    for (const auto& [status, key] : statusTexts) {
        for (const Endpoint endpoint : everyEndpoint) {
            const QString details = u"Причина %1 "_s + QString::number(status);
            const RequestFailure failure = askWithFault(
                endpoint, [&, code = status](FaultScript& faults) { faults.answerIssue(endpoint, code, details); });
            EXPECT_EQ(failure.key, tr::undefined) << nameOf(endpoint);
            EXPECT_EQ(failure.text, details) << nameOf(endpoint);
        }
    }
}

/// The key of the text for an answer that the operation cannot use.
const char* textOfUselessAnswer(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return "Ошибка при получении токена для авторизации";
    case Endpoint::PrescriptionsByCard:
        return "Ошибка при получении списка рецептов";
    case Endpoint::DispenseRegistration:
        return "Ошибка при отпуске лекарственного препарата по рецепту";
    default:
        return "Ошибка при отмене отпуска лекарственного препарата по рецепту";
    }
}

TEST_P(FaultsTest, successWithHtmlNothingOrHalfOfJson_raisesTheOperationsOwnError)
{
    for (const Endpoint endpoint : everyEndpoint) {
        const std::pair<const char*, std::function<void(FaultScript&)>> orders[] = {
            {"html", [&](FaultScript& faults) { faults.answerHtml(endpoint); }},
            {"nothing", [&](FaultScript& faults) { faults.answerNothing(endpoint); }},
            {"half a JSON", [&](FaultScript& faults) { faults.answerHalfOfJson(endpoint); }},
        };
        for (const auto& [name, order] : orders) {
            // Half of a refusal is known by its status, so there has to be something to cancel.
            if (endpoint == Endpoint::DispenseCancellation && QLatin1StringView(name) == "half a JSON"_L1) {
                continue;
            }
            EXPECT_EQ(askWithFault(endpoint, order).text, textOfUselessAnswer(endpoint)) << name;
        }
    }
}

TEST_P(FaultsTest, halfOfACancellationsAnswer_raisesTheCancelErrorAndTheDispenseIsCancelled)
{
    ASSERT_FALSE(registerDispense());
    registry->faults().answerHalfOfJson(Endpoint::DispenseCancellation);
    EXPECT_EQ(cancelDispense().text, textOfUselessAnswer(Endpoint::DispenseCancellation));
    EXPECT_TRUE(registry->store().dispense(dispenseId())->isCancelled);
}

TEST_P(FaultsTest, postWhoseConnectionEndsBeforeTheAnswer_isSentOnceAndIsUncertainWhereItBooks)
{
    for (const Endpoint endpoint : everyEndpoint) {
        if (endpoint == Endpoint::PrescriptionsByCard) {
            continue;
        }
        for (const bool reset : {false, true}) {
            const RequestFailure failure = askWithFault(endpoint, [&](FaultScript& faults) {
                reset ? faults.resetBeforeAnswer(endpoint) : faults.closeBeforeAnswer(endpoint);
            });
            EXPECT_EQ(failure.key, books(endpoint) ? "restClientConnectionLostUncertain" : "restClientConnectionLost")
                << nameOf(endpoint) << reset;
        }
    }
}

// The HTTP client may send a GET again when a kept connection ends.
TEST_P(FaultsTest, searchWhoseConnectionsEndBeforeTheAnswer_isGivenUpAfterTheSecond)
{
    for (const bool reset : {false, true}) {
        registry->faults().clear();
        registry->journal().clear();
        reset ? registry->faults().resetBeforeAnswer(Endpoint::PrescriptionsByCard, emulator::Occasion::always())
              : registry->faults().closeBeforeAnswer(Endpoint::PrescriptionsByCard, emulator::Occasion::always());
        EXPECT_EQ(askForCard("1100").key, "restClientConnectionLost") << reset;
        EXPECT_GE(asked(Endpoint::PrescriptionsByCard), 1) << reset;
        EXPECT_LE(asked(Endpoint::PrescriptionsByCard), 2) << reset;
        EXPECT_TRUE(prescriptions.isEmpty());
    }
}

TEST_P(FaultsTest, answerCutOff_isAFailureThoughTheStatusWasGood)
{
    for (const Endpoint endpoint : everyEndpoint) {
        const RequestFailure failure =
            askWithFault(endpoint, [&](FaultScript& faults) { faults.cutAnswerOff(endpoint); });
        EXPECT_TRUE(failure) << nameOf(endpoint);
        EXPECT_EQ(failure.key.endsWith("Uncertain"), books(endpoint)) << failure.key.toStdString();
    }
}

TEST_P(FaultsTest, registrySlowerThanTheTimeout_raisesATimeout)
{
    configure("timeout", "1");
    for (const Endpoint endpoint : everyEndpoint) {
        const RequestFailure failure =
            askWithFault(endpoint, [&](FaultScript& faults) { faults.neverAnswer(endpoint); });
        EXPECT_EQ(failure.key, books(endpoint) ? "restClientTimedOutUncertain" : "restClientTimedOut")
            << nameOf(endpoint);
    }
}

TEST_P(FaultsTest, answerDrippingBeyondTheTimeout_isGivenUp)
{
    configure("timeout", "1");
    using namespace std::chrono_literals;
    const RequestFailure failure = askWithFault(
        Endpoint::PrescriptionsByCard, [](FaultScript& faults) { faults.drip(Endpoint::PrescriptionsByCard, 200ms); });
    EXPECT_EQ(failure.key, "restClientTimedOut");
}

TEST_P(FaultsTest, registrationCarriedOutWithoutAnAnswer_raisesAnUncertainErrorAndIsBookedOnce)
{
    registry->faults().carryOutThenClose(Endpoint::DispenseRegistration);
    EXPECT_EQ(registerDispense().key, "restClientConnectionLostUncertain");
    EXPECT_EQ(registry->store().dispensesOf("rx-half").size(), 1);
    EXPECT_EQ(asked(Endpoint::DispenseRegistration), 1);
    EXPECT_EQ(position->getExtendedOptions(), dueOptions);
}

TEST_P(FaultsTest, requestAfterOneWhoseConnectionEnded_succeeds)
{
    for (const Endpoint endpoint : {Endpoint::Token, Endpoint::DispenseRegistration}) {
        askWithFault(endpoint, [&](FaultScript& faults) { faults.resetBeforeAnswer(endpoint); });
        const RequestFailure failure = ask(endpoint);
        EXPECT_FALSE(failure) << nameOf(endpoint) << ' ' << failure.text.toStdString();
    }
}

TEST_P(FaultsTest, registryDown_raisesTheHttpClientsText)
{
    registry->stop();
    EXPECT_EQ(askForCard("1100").key, "restClientNotReachable");
    EXPECT_EQ(registerDispense().key, "restClientNotReachable");
    EXPECT_EQ(cancelDispense().key, "restClientNotReachable");
    EXPECT_EQ(position->getExtendedOptions(), dueOptions);
}

OVER_HTTP_AND_HTTPS(FaultsTest);

class CertificateTest : public RegistryClientTest
{
};

TEST_P(CertificateTest, certificateOfAnUnknownAuthority_isRefusedBeforeAnythingIsSent)
{
    const TestAuthority another(u"Another authority"_s);
    trust(another);
    EXPECT_EQ(askForCard("1100").key, "restClientCertificateNotVerified");
    EXPECT_EQ(registerDispense().key, "restClientCertificateNotVerified");
    EXPECT_TRUE(registry->journal().entries().isEmpty());
    EXPECT_EQ(position->getExtendedOptions(), dueOptions);
}

INSTANTIATE_TEST_SUITE_P(Over, CertificateTest, ::testing::Values("https"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
