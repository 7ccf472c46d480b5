// SPDX-License-Identifier: MIT
#pragma once

#include "connection.h"

#include <QSslConfiguration>
#include <QTcpServer>

#include <memory>
#include <optional>

namespace emulator
{
/// Listens on a loopback port, and owns its connections.
class HttpServer : public QObject
{
    Q_OBJECT

public:
    /// @param readTimeout see Connection
    HttpServer(RequestHandler handler, std::chrono::milliseconds readTimeout, QObject* parent = nullptr);
    ~HttpServer() override;

    /// Listens on 127.0.0.1. Throws EmulatorError.
    /// @param port 0: a free one
    /// @param tls  for HTTPS
    void listen(quint16 port, const std::optional<QSslConfiguration>& tls = {});

    /// 0 before listen().
    quint16 port() const;
    /// The number of connections so far; over TLS, of completed handshakes.
    quint64 connectionCount() const { return m_connectionCount; }

private:
    void accept();

    RequestHandler m_handler;
    std::chrono::milliseconds m_readTimeout;
    std::unique_ptr<QTcpServer> m_server;
    quint64 m_connectionCount = 0;
};
} // namespace emulator
