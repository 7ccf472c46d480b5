// SPDX-License-Identifier: MIT
#include "registryemulator.h"

#include "adminapi.h"
#include "emulatorerror.h"
#include "seedreader.h"
#include "syntheticprescriptions.h"
#include "tlsidentity.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// The status that goes to the client; 0 when none does.
int statusOf(const Delivery& delivery)
{
    switch (delivery.manner) {
    case Delivery::Manner::Close:
    case Delivery::Manner::Reset:
    case Delivery::Manner::Never:
        return 0;
    default:
        return delivery.answer.status;
    }
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw EmulatorError(u"cannot read the seed %1: %2"_s.arg(path, file.errorString()));
    }
    return file.readAll();
}

QUrl loopbackUrl(const QString& scheme, quint16 port)
{
    QUrl url;
    url.setScheme(scheme);
    url.setHost(u"127.0.0.1"_s);
    url.setPort(port);
    return url;
}
} // namespace

RegistryEmulator::RegistryEmulator(EmulatorSettings settings, QObject* parent)
    : QObject(parent)
    , m_settings(std::move(settings))
    , m_store(m_settings.dataFile)
    , m_api(m_store, m_settings.clock, m_settings.basePath)
    , m_admin(std::make_unique<AdminApi>(*this))
{
}

RegistryEmulator::~RegistryEmulator() = default;

void RegistryEmulator::start()
{
    std::optional<QSslConfiguration> tls;
    if (!m_settings.tlsCertificate.isEmpty() || !m_settings.tlsKey.isEmpty()) {
        tls = tlsIdentity(m_settings.tlsCertificate, m_settings.tlsKey);
    }
    auto registryServer = std::make_unique<HttpServer>(
        RequestHandler{[this](const HttpRequest& request) { return answer(request); },
                       [this](const HttpRequest& request, int status) { return answerUnreadable(request, status); }});
    registryServer->listen(m_settings.port, tls);
    std::unique_ptr<HttpServer> adminServer;
    if (m_settings.adminPort) {
        adminServer = std::make_unique<HttpServer>(
            RequestHandler{[this](const HttpRequest& request) { return m_admin->answer(request); },
                           [](const HttpRequest&, int status) { return AdminApi::unreadable(status); }});
        adminServer->listen(*m_settings.adminPort);
        m_settings.adminPort = adminServer->port();
    }
    m_settings.port = registryServer->port();
    m_registryServer = std::move(registryServer);
    m_adminServer = std::move(adminServer);
}

void RegistryEmulator::stop()
{
    m_registryServer.reset();
    m_adminServer.reset();
}

QUrl RegistryEmulator::url() const
{
    if (!m_registryServer) {
        return {};
    }
    QUrl url = loopbackUrl(m_settings.tlsCertificate.isEmpty() ? u"http"_s : u"https"_s, m_registryServer->port());
    url.setPath(m_settings.basePath);
    return url;
}

QUrl RegistryEmulator::adminUrl() const
{
    return m_adminServer ? loopbackUrl(u"http"_s, m_adminServer->port()) : QUrl();
}

quint64 RegistryEmulator::connectionCount() const
{
    return m_registryServer ? m_registryServer->connectionCount() : 0;
}

void RegistryEmulator::seed(const QByteArray& json)
{
    SeedReader(today()).read(json);
    m_seed = json;
    reset();
}

void RegistryEmulator::seedFromFile(const QString& path)
{
    keepSeedFile(path);
    reset();
}

void RegistryEmulator::keepSeedFile(const QString& path)
{
    const QByteArray json = contentOf(path);
    try {
        SeedReader(today()).read(json);
    } catch (const EmulatorError& error) {
        throw EmulatorError(path + u": "_s + error.message());
    }
    m_seed = json;
}

void RegistryEmulator::reset()
{
    m_store.replace(m_seed.isEmpty() ? Seed() : SeedReader(today()).read(m_seed));
    tokens().expireAll();
    m_faults.clear();
    m_journal.clear();
}

void RegistryEmulator::fillCard(const QString& card, int count)
{
    addSyntheticPrescriptions(m_store, card, count, today());
}

QDate RegistryEmulator::today() const
{
    return m_settings.clock().date();
}

Delivery RegistryEmulator::answer(const HttpRequest& request)
{
    const Route route = m_api.routeOf(request);
    const auto fault = m_faults.takeFor(route.endpoint);

    Delivery delivery;
    if (!fault) {
        delivery.answer = m_api.answer(request, route);
    } else {
        delivery = fault->deliver(fault->isCarriedOut ? m_api.answer(request, route) : HttpAnswer());
    }
    JournalEntry entry;
    entry.connection = request.connection;
    entry.received = m_settings.clock();
    entry.endpoint = route.endpoint;
    entry.method = request.method;
    entry.target = request.target;
    entry.headers = request.headers;
    entry.body = request.body;
    entry.status = statusOf(delivery);
    if (fault) {
        entry.fault = fault->name;
    }
    return deliver(m_journal.add(std::move(entry)), std::move(delivery));
}

Delivery RegistryEmulator::answerUnreadable(const HttpRequest& request, int status)
{
    Delivery delivery;
    delivery.answer = RegistryApi::unreadable(status);
    JournalEntry entry;
    entry.connection = request.connection;
    entry.received = m_settings.clock();
    entry.status = status;
    return deliver(m_journal.add(std::move(entry)), std::move(delivery));
}

Delivery RegistryEmulator::deliver(qint64 journalNumber, Delivery delivery)
{
    delivery.finished = [this, journalNumber](bool whole) { m_journal.answered(journalNumber, whole); };
    return delivery;
}
} // namespace emulator
