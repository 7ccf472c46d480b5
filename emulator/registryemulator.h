// SPDX-License-Identifier: MIT
#pragma once

#include "adminapi.h"
#include "emulatorsettings.h"
#include "httpserver.h"
#include "scriptedregistry.h"

#include <QUrl>

#include <memory>

namespace emulator
{
/// A stand-in for the national prescription registry: its token server, prescriptions by card, registration and
/// cancellation of dispenses, with faults to order and a journal of requests.
///
/// It lives in one thread, whose event loop answers the requests; every member is to be called from that thread.
/// A test whose client blocks its thread without an event loop constructs and uses the emulator in another one.
class RegistryEmulator
{
public:
    /// Opens the data file; it does not listen yet. Throws EmulatorError.
    explicit RegistryEmulator(EmulatorSettings settings = {});
    Q_DISABLE_COPY_MOVE(RegistryEmulator)
    ~RegistryEmulator() = default;

    /// Listens on the ports. Throws EmulatorError.
    void start();
    /// Closes the ports and every connection; start() may follow, and a port of 0 then becomes the former one.
    void stop();

    /// Base of the registry's paths, for example http://127.0.0.1:41234; empty before start().
    QUrl url() const;
    /// Empty when there is no admin port.
    QUrl adminUrl() const;
    /// The number of connections accepted since start().
    quint64 connectionCount() const;

    /// Takes this seed (JSON, see docs/emulator.md), and begins again with it. Throws EmulatorError, and changes
    /// nothing, when the seed has a mistake.
    void seed(const QByteArray& json) { m_registry.seed(JsonNode::parse(json)); }
    /// The same with a file's content.
    void seedFromFile(const QString& path) { m_registry.seed(JsonNode::fromFile(path)); }
    /// Takes the seed for reset() only, for a data file that already holds a state. Throws as seed() does.
    void keepSeedFile(const QString& path) { m_registry.keepSeed(JsonNode::fromFile(path)); }
    /// Begins again with the seed, or with nothing when there is none: state, tokens, faults and journal.
    void reset() { m_registry.reset(); }
    /// Puts more active prescriptions on a card.
    void fillCard(const QString& card, int count) { m_registry.fillCard(card, count); }
    /// Books a dispense that another pharmacy, or another till of the same one, registered: no request of it is in the
    /// journal, and no fault hits it. Returns its new id. Throws EmulatorError when the prescription is unknown, not
    /// valid, or has not so many doses left.
    /// @param dispense its id and documents are not used, so one from the store gives an equal one; without a day
    /// it is of today
    QString dispenseElsewhere(const Dispense& dispense) { return m_registry.dispenseElsewhere(dispense); }

    FaultScript& faults() { return m_registry.faults(); }
    Journal& journal() { return m_registry.journal(); }
    PrescriptionStore& store() { return m_registry.store(); }
    TokenService& tokens() { return m_registry.tokens(); }

private:
    EmulatorSettings m_settings;
    ScriptedRegistry m_registry;
    AdminApi m_admin;
    std::unique_ptr<HttpServer> m_registryServer;
    std::unique_ptr<HttpServer> m_adminServer;
};
} // namespace emulator
