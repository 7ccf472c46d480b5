// SPDX-License-Identifier: MIT
#pragma once

#include "timelimit.h"

#include <QByteArray>
#include <QHostAddress>
#include <QList>
#include <QSslSocket>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

namespace doctor
{

/// Where the till connects to for a server: the server itself, or the proxy on the way to it.
struct Endpoint {
    QString host;
    int port = 0;
};

/// The head of a server's answer.
struct AnswerHead {
    int status = 0;
    QByteArray date; ///< values of these headers; empty when there is none
    QByteArray contentType;
    QByteArray location;
};

/// A server of the registry while it is looked at. Each check leaves here what the next one builds on.
class Server
{
public:
    /// @param operation URL of an operation there
    /// @param proxy what [RestClient] proxy names; empty: none
    Server(QUrl operation, const QUrl& proxy);

    QString host() const { return m_operation.host(); }
    int port() const;
    /// "host:port"
    QString name() const;
    bool isSecure() const { return m_operation.scheme() == u"https"; }
    QUrl operation() const { return m_operation; }

    /// Where the first connection leads to.
    Endpoint nextHop() const;
    bool hasProxy() const { return m_proxy.has_value(); }
    /// The proxy that is asked to connect to the server, as it is for https. A request with http is given to the proxy
    /// itself.
    bool usesTunnel() const { return hasProxy() && isSecure(); }

    /// A socket that is connected to nothing yet. With a tunnel it connects to server and port through the proxy.
    std::unique_ptr<QSslSocket> newSocket() const;

    QList<QHostAddress> addresses; ///< of the next hop
    std::unique_ptr<QSslSocket> socket;
    AnswerHead answer;
    bool isReached = false; ///< it has answered as a registry may
    QString failedCheck;    ///< the check that failed; empty: none has

private:
    QUrl m_operation;
    std::optional<QUrl> m_proxy;
};

} // namespace doctor
