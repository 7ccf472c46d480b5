// SPDX-License-Identifier: MIT
#pragma once

#include "httpheaders.h"

#include <QJsonObject>
#include <QSslSocket>
#include <QUrl>

#include <functional>
#include <optional>

/// Handles events until `isSo`; false when that takes too long.
bool waitUntil(const std::function<bool()>& isSo);

/// An answer as it was on the wire.
struct RawAnswer {
    int status = 0;
    emulator::HttpHeaders headers;
    QByteArray body;

    QJsonObject json() const;
    /// The details of its issue, when it is an OperationOutcome with exactly one issue of severity "error".
    QString issue() const;
    QByteArray header(const QByteArray& name) const { return emulator::headerValue(headers, name); }
};

/// How a server ended a connection.
enum class End : int {
    Orderly, ///< it closed the connection
    Reset,   ///< it reset the connection
    Bytes,   ///< it did not: it sent something
    Waiting, ///< it did not: nothing came
};

/// Sends bytes on a connection of its own, and returns how the server ends it. Qt's sockets do not distinguish a reset
/// from an orderly close.
End endAfter(const QUrl& url, const QByteArray& bytes);

/// A client's connection that sends exactly the given bytes, once.
class RawConnection
{
public:
    /// Connects to a registry's URL; over HTTPS the certificate file is the only one trusted.
    explicit RawConnection(const QUrl& url, const QString& trustedCertificate = {});

    void send(const QByteArray& bytes);
    /// A request with Host and, for a body, Content-Length.
    static QByteArray requestBytes(const QByteArray& method, const QByteArray& target,
                                   const emulator::HttpHeaders& headers, const QByteArray& body);
    /// Sends requestBytes().
    void request(const QByteArray& method, const QByteArray& target, const emulator::HttpHeaders& headers = {},
                 const QByteArray& body = {});
    /// The next whole answer; nothing when the connection ends before it, or when it takes too long.
    std::optional<RawAnswer> answer(bool withBody = true);

    /// Waits for the server to end the connection.
    bool waitForEnd();
    bool isOpen() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    /// Bytes received that belong to no answer read so far.
    QByteArray unread();
    QSsl::SslProtocol protocol() const { return m_socket.sessionProtocol(); }
    void leave() { m_socket.abort(); }

private:
    QSslSocket m_socket; // not encrypted unless the URL is HTTPS
    QByteArray m_received;
};
