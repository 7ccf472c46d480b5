// SPDX-License-Identifier: MIT
#include "server.h"

#include <QNetworkProxy>

#include <utility>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr int httpPort = 80;
constexpr int httpsPort = 443;
constexpr int proxyPort = 1080; // the default of libcurl, which sends the till's requests

} // namespace

Server::Server(QUrl operation, const QUrl& proxy)
    : m_operation(std::move(operation))
    , m_proxy(proxy.isEmpty() ? std::nullopt : std::optional(proxy))
{
}

int Server::port() const
{
    return m_operation.port(isSecure() ? httpsPort : httpPort);
}

QString Server::name() const
{
    const QString shown = host().contains(u':') ? u'[' + host() + u']' : host();
    return shown + u':' + QString::number(port());
}

Endpoint Server::nextHop() const
{
    return hasProxy() ? Endpoint{m_proxy->host(), m_proxy->port(proxyPort)} : Endpoint{host(), port()};
}

std::unique_ptr<QSslSocket> Server::newSocket() const
{
    auto made = std::make_unique<QSslSocket>();
    if (usesTunnel()) {
        const Endpoint proxy = nextHop();
        made->setProxy(QNetworkProxy(QNetworkProxy::HttpProxy, proxy.host, quint16(proxy.port), m_proxy->userName(),
                                     m_proxy->password()));
    } else {
        made->setProxy(QNetworkProxy::NoProxy);
    }
    return made;
}

} // namespace doctor
