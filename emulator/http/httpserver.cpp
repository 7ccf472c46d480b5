// SPDX-License-Identifier: MIT
#include "httpserver.h"

#include "emulatorerror.h"

#include <QSslServer>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
constexpr int waitingConnections = 4096; // at once, handshakes included
} // namespace

HttpServer::HttpServer(RequestHandler handler, std::chrono::milliseconds readTimeout, QObject* parent)
    : QObject(parent)
    , m_handler(std::move(handler))
    , m_readTimeout(readTimeout)
{
}

HttpServer::~HttpServer()
{
    const auto connections = findChildren<Connection*>(QString(), Qt::FindDirectChildrenOnly);
    qDeleteAll(connections); // they refer to the handler
}

void HttpServer::listen(quint16 port, const std::optional<QSslConfiguration>& tls)
{
    if (tls) {
        auto secure = std::make_unique<QSslServer>();
        secure->setSslConfiguration(*tls);
        m_server = std::move(secure);
    } else {
        m_server = std::make_unique<QTcpServer>();
    }
    m_server->setMaxPendingConnections(waitingConnections);
    m_server->setListenBacklogSize(waitingConnections);
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &HttpServer::accept);
    if (!m_server->listen(QHostAddress::LocalHost, port)) {
        throw EmulatorError(u"cannot listen on port %1: %2"_s.arg(QString::number(port), m_server->errorString()));
    }
}

quint16 HttpServer::port() const
{
    return m_server ? m_server->serverPort() : 0;
}

void HttpServer::accept()
{
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        new Connection(socket, ++m_connectionCount, m_handler, m_readTimeout, this);
    }
}
} // namespace emulator
