// SPDX-License-Identifier: MIT
#pragma once

#include "serveridentity.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

/// A request as it came over the wire.
struct ReceivedRequest {
    QByteArray method;
    /// Path and query, byte for byte.
    QByteArray target;
    /// All header lines, without their line breaks.
    QList<QByteArray> headers;
    QByteArray body;
    /// The number of its connection, from 0.
    int connection = 0;
    /// False when the server reacted, or the connection ended, before the whole body was there.
    bool isWhole = false;

    /// The value of the header of that name (whatever the case), or a null array.
    QByteArray header(const QByteArray& name) const;
};

/// What the server does with a request.
struct Reaction {
    enum class End : int {
        KeepOpen, ///< keeps the connection for the next request
        Close,    ///< closes it in good order, over TLS with a close_notify
        Cut,      ///< closes it without a close_notify
        Reset     ///< resets it
    };

    /// The bytes of the answer, status line and headers included.
    QByteArray bytes;
    End end = End::KeepOpen;
    /// Greater than 0: the bytes are sent one by one with that pause, in milliseconds.
    int pauseMs = 0;
    /// True: the server reacts to the headers and does not wait for the body.
    bool atHeaders = false;

    static Reaction json(int status, const QByteArray& body, const QList<QByteArray>& headers = {});
    static Reaction redirect(int status, const QByteArray& location);
    /// An answer that ends at half of its content length.
    static Reaction halfAnswer(int status, const QByteArray& body, End end);
    static Reaction raw(const QByteArray& bytes, End end);
    static Reaction closeBeforeAnswer();
    static Reaction resetBeforeAnswer();
    static Reaction neverAnswer();

    /// The same, with that end of the connection after the last byte.
    Reaction then(End ending) const;
    /// The same, byte by byte.
    Reaction dripping(int pause) const;
};

/// A server on the loopback interface, in a thread of its own, that reacts exactly as the test says, also as no
/// well-behaved server does. It keeps every request.
class ScriptedServer
{
public:
    /// @param identity for HTTPS; null: HTTP
    explicit ScriptedServer(const ServerIdentity* identity = nullptr);
    ~ScriptedServer();
    Q_DISABLE_COPY_MOVE(ScriptedServer)

    /// Reactions to the next requests, in order. Later requests are answered with 200 and "{}".
    void react(const QList<Reaction>& reactions);
    /// Chooses the reaction to every request.
    ///
    /// @param choose runs in the server's thread
    void reactBy(std::function<Reaction(const ReceivedRequest&)> choose);
    /// Reacts in this way to every connection at once, before any request.
    void greetWith(const Reaction& greeting);

    /// The URL, such as "http://127.0.0.1:1234/".
    ///
    /// @param path empty, or begins with "/"
    QUrl url(const QString& path = u"/"_s) const;
    quint16 port() const;

    /// Every request whose headers have come, in order.
    QList<ReceivedRequest> requests() const;
    /// How many connections were accepted.
    int connectionCount() const;
    /// Waits until the clients have ended every connection too; false when that takes longer than 20 s.
    bool waitUntilAllConnectionsEnded();
    /// Closes every open connection in good order, and returns when the server has done so.
    void closeConnections();

private:
    class Worker;
    class Host;
    std::unique_ptr<Host> m_host;
};
