// SPDX-License-Identifier: MIT
#pragma once

#include "connection.h"

#include <QSslConfiguration>
#include <QTcpServer>

#include <memory>
#include <optional>

namespace emulator
{
/// Listens on a loopback port and holds its connections.
class HttpServer : public QObject
{
    Q_OBJECT

public:
    explicit HttpServer(RequestHandler handler, QObject* parent = nullptr);
    ~HttpServer() override;

    /// Listens on 127.0.0.1; port 0 takes a free one. With `tls` it speaks HTTPS. Throws EmulatorError.
    void listen(quint16 port, const std::optional<QSslConfiguration>& tls = {});

    /// The port that is listened on.
    quint16 port() const;
    /// How many connections were accepted so far; over TLS those whose handshake was completed.
    quint64 connectionCount() const { return m_connectionCount; }

private:
    void accept();

    RequestHandler m_handler;
    std::unique_ptr<QTcpServer> m_server;
    quint64 m_connectionCount = 0;
};
} // namespace emulator
