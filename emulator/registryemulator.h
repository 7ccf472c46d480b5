// SPDX-License-Identifier: MIT
#pragma once

#include "emulatorsettings.h"
#include "faultscript.h"
#include "httpserver.h"
#include "journal.h"
#include "prescriptionstore.h"
#include "registryapi.h"

#include <QUrl>

namespace emulator
{
class AdminApi;

/// A stand-in for the national prescription registry: its token server, prescriptions by card, registration and
/// cancellation of dispenses, with faults to order and a journal of what was asked.
///
/// It lives in one thread, whose event loop answers the requests; every member is to be called from that thread.
/// A test whose client blocks its thread without an event loop constructs and uses the emulator in another one.
class RegistryEmulator : public QObject
{
    Q_OBJECT

public:
    /// Opens the state, without listening yet. Throws EmulatorError.
    explicit RegistryEmulator(EmulatorSettings settings = {}, QObject* parent = nullptr);
    ~RegistryEmulator() override;

    /// Listens on the ports. Throws EmulatorError.
    void start();
    /// Closes the ports and every connection; start() may follow, and a port of 0 then becomes the former one.
    void stop();

    /// Base of the registry's paths, for example http://127.0.0.1:41234; empty before start().
    QUrl url() const;
    /// Empty when there is no admin port.
    QUrl adminUrl() const;
    /// How many connections were accepted since start().
    quint64 connectionCount() const;

    /// Takes this seed (JSON, see docs/emulator.md), and begins again with it. Throws EmulatorError and leaves
    /// everything as it was when the seed has a mistake.
    void seed(const QByteArray& json);
    /// The same with a file's content.
    void seedFromFile(const QString& path);
    /// Only keeps the seed for reset(), for a data file that already holds a state. Throws as seed() does.
    void keepSeedFile(const QString& path);
    /// Begins again with the seed, or with nothing when there is none: state, tokens, faults and journal.
    void reset();

    /// Puts that many more active prescriptions on a card.
    void fillCard(const QString& card, int count);

    FaultScript& faults() { return m_faults; }
    Journal& journal() { return m_journal; }
    PrescriptionStore& store() { return m_store; }
    TokenService& tokens() { return m_api.tokens(); }

private:
    Delivery answer(const HttpRequest& request);
    Delivery answerUnreadable(const HttpRequest& request, int status);
    Delivery deliver(qint64 journalNumber, Delivery delivery);
    QDate today() const;

    EmulatorSettings m_settings;
    PrescriptionStore m_store;
    RegistryApi m_api;
    FaultScript m_faults;
    Journal m_journal;
    QByteArray m_seed;
    std::unique_ptr<AdminApi> m_admin;
    std::unique_ptr<HttpServer> m_registryServer;
    std::unique_ptr<HttpServer> m_adminServer;
};
} // namespace emulator
