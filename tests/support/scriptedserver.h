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
    /// Every header line, without its line break.
    QList<QByteArray> headers;
    QByteArray body;
    /// Number of the connection that it came over, from 0.
    int connection = 0;
    /// False when it was acted upon, or lost, before its body had come whole.
    bool isWhole = false;

    /// The value of the header of that name (whatever the case), or a null array.
    QByteArray header(const QByteArray& name) const;
};

/// What the server does about a request.
struct Reaction {
    enum class End : int {
        KeepOpen, ///< leaves the connection to the next request
        Close,    ///< closes it in good order, over TLS with a farewell
        Cut,      ///< closes it without TLS's farewell
        Reset     ///< resets it
    };

    /// The bytes of the answer, status line and headers included.
    QByteArray bytes;
    End end = End::KeepOpen;
    /// Greater than 0: the bytes go out one by one, with that pause between them.
    int pauseMs = 0;
    /// True: happens as soon as the headers are there, without waiting for the body.
    bool atHeaders = false;

    static Reaction json(int status, const QByteArray& body, const QList<QByteArray>& headers = {});
    static Reaction redirect(int status, const QByteArray& location);
    /// An answer that promises more than it brings and ends there.
    static Reaction halfAnswer(int status, const QByteArray& body, End end);
    static Reaction raw(const QByteArray& bytes, End end);
    static Reaction closeBeforeAnswer();
    static Reaction resetBeforeAnswer();
    static Reaction neverAnswer();

    /// The same, the connection ending as given after the last byte.
    Reaction then(End ending) const;
    /// The same, byte by byte.
    Reaction dripping(int pause) const;
};

/// A server on the loopback interface, in a thread of its own, that does exactly what a test tells it to, also what no
/// well-behaved server does. It counts what comes over the wire.
class ScriptedServer
{
public:
    /// Over HTTP; with an identity over HTTPS.
    explicit ScriptedServer(const ServerIdentity* identity = nullptr);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    /// Reactions to the next requests, in their order. Later requests are answered with 200 and "{}".
    void react(const QList<Reaction>& reactions);
    /// A reaction for every request, chosen by a function that runs in the server's thread.
    void reactBy(std::function<Reaction(const ReceivedRequest&)> choose);
    /// Sends these bytes to whoever connects, at once, and ends the connection so.
    void greetWith(const Reaction& greeting);

    /// "http://127.0.0.1:port" or "https://…", with the path, which begins with "/".
    QUrl url(const QString& path = u"/"_s) const;
    quint16 port() const;

    /// Every request whose headers came, in the order of their coming.
    QList<ReceivedRequest> requests() const;
    /// How many connections were accepted.
    int connectionCount() const;
    /// Waits (bounded) until every connection has ended, the clients' part included; false when one has not.
    bool waitUntilAllConnectionsEnded();
    /// Closes in good order every connection that is open, and waits until that has gone out.
    void closeConnections();

private:
    class Worker;
    class Host;
    std::unique_ptr<Host> m_host;
};
