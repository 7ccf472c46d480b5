// SPDX-License-Identifier: MIT
#pragma once

#include "configured.h"
#include "electronicprescriptioninterface.h"
#include "goodsitem.h"
#include "registryemulator.h"
#include "serveridentity.h"
#include "tr.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSharedPointer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

/// The outcome of a request: none, or one of the plug-in's exceptions.
struct RequestFailure {
    bool isFailure = false;
    bool isNoPrescriptions = false;
    QString key;  ///< of the text
    QString text; ///< as the cashier reads it

    explicit operator bool() const { return isFailure; }
};

/// The registry client of a pharmacy with its real HTTP client, and an emulated registry in the same process, over HTTP
/// or HTTPS. The HTTP client runs the event loop while it waits, so the emulator can answer.
class RegistryClientTest : public ::testing::TestWithParam<const char*>
{
protected:
    RegistryClientTest();

    void configure(const char* name, const QString& value);
    /// Has the pharmacy trust that authority alone.
    void trust(const TestAuthority& authority);

    /// Each makes a new client, which reads the configuration as it is then.
    RequestFailure askForCard(const QString& card, const QString& status = u"active"_s);
    RequestFailure registerDispense();
    RequestFailure cancelDispense();

    /// The operation that sends a request to that endpoint.
    RequestFailure ask(emulator::Endpoint endpoint);

    int asked(emulator::Endpoint endpoint) { return registry->journal().count(endpoint); }
    emulator::JournalEntry lastOf(emulator::Endpoint endpoint);

    /// Ten doses, not registered, of the prescription of which the patient pays half.
    static const QString dueOptions;
    QString dispenseId() const;

    std::unique_ptr<emulator::RegistryEmulator> registry;
    QSharedPointer<GoodsItem> position;
    QJsonArray prescriptions;
    QJsonObject patient;

private:
    bool isHttps() const { return GetParam() == "https"_L1; }

    TestAuthority m_authority;
    std::optional<ServerIdentity> m_identity;
    Configured m_config;
};

/// Every endpoint that the client uses.
inline constexpr emulator::Endpoint everyEndpoint[] = {
    emulator::Endpoint::Token,
    emulator::Endpoint::PrescriptionsByCard,
    emulator::Endpoint::DispenseRegistration,
    emulator::Endpoint::DispenseCancellation,
};
const char* nameOf(emulator::Endpoint endpoint);

#define OVER_HTTP_AND_HTTPS(suite)                                                                                     \
    INSTANTIATE_TEST_SUITE_P(Over, suite, ::testing::Values("http", "https"),                                          \
                             [](const auto& row) { return std::string(row.param); })
