// SPDX-License-Identifier: MIT
#include "registryemulator.h"

#include "tlsidentity.h"

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QUrl loopbackUrl(const QString& scheme, quint16 port)
{
    QUrl url;
    url.setScheme(scheme);
    url.setHost(u"127.0.0.1"_s);
    url.setPort(port);
    return url;
}
} // namespace

RegistryEmulator::RegistryEmulator(EmulatorSettings settings)
    : m_settings(std::move(settings))
    , m_registry(m_settings.dataFile, m_settings.basePath, m_settings.clock)
    , m_admin(m_registry)
{
}

void RegistryEmulator::start()
{
    std::optional<QSslConfiguration> tls;
    if (!m_settings.tlsCertificate.isEmpty() || !m_settings.tlsKey.isEmpty()) {
        tls = tlsIdentity(m_settings.tlsCertificate, m_settings.tlsKey);
    }
    auto registryServer = std::make_unique<HttpServer>(
        RequestHandler{
            [this](const HttpRequest& request) { return m_registry.answer(request); },
            [this](const HttpRequest& request, int status) { return m_registry.answerUnreadable(request, status); }},
        m_settings.readTimeout);
    registryServer->listen(m_settings.port, tls);
    std::unique_ptr<HttpServer> adminServer;
    if (m_settings.adminPort) {
        adminServer = std::make_unique<HttpServer>(
            RequestHandler{[this](const HttpRequest& request) { return m_admin.answer(request); },
                           [](const HttpRequest&, int status) { return AdminApi::unreadable(status); }},
            m_settings.readTimeout);
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
} // namespace emulator
