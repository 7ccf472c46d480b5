// SPDX-License-Identifier: MIT
#include "scriptedserver.h"

#include <QEventLoop>
#include <QFile>
#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>
#include <QWaitCondition>

#include <deque>
#include <future>
#include <optional>
#include <stdexcept>
#include <thread>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int longestWaitMs = 20'000;

QByteArray readFile(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("Cannot read " + name.toStdString());
    }
    return file.readAll();
}

QSslConfiguration tlsConfiguration(const ServerIdentity& identity)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(readFile(identity.certificateFile())));
    configuration.setPrivateKey(QSslKey(readFile(identity.keyFile()), QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

/// Shared by the test's and the server's thread.
struct Shared {
    mutable QMutex mutex;
    QWaitCondition connectionEnded;
    std::deque<Reaction> reactions;
    std::function<Reaction(const ReceivedRequest&)> choose;
    std::optional<Reaction> greeting;
    QList<ReceivedRequest> requests;
    int connections = 0;
    int openConnections = 0;
};

} // namespace

QByteArray ReceivedRequest::header(const QByteArray& name) const
{
    for (const QByteArray& line : headers) {
        const qsizetype colon = line.indexOf(':');
        if (line.first(colon).compare(name, Qt::CaseInsensitive) == 0) {
            return line.sliced(colon + 1).trimmed();
        }
    }
    return {};
}

Reaction Reaction::json(int status, const QByteArray& body, const QList<QByteArray>& headers)
{
    QByteArray bytes =
        "HTTP/1.1 " + QByteArray::number(status) +
        " Scripted\r\nContent-Type: application/json\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n";
    for (const QByteArray& header : headers) {
        bytes += header + "\r\n";
    }
    return raw(bytes + "\r\n" + body, End::KeepOpen);
}

Reaction Reaction::redirect(int status, const QByteArray& location)
{
    return json(status, "{}", {"Location: " + location});
}

Reaction Reaction::halfAnswer(int status, const QByteArray& body, End end)
{
    return raw("HTTP/1.1 " + QByteArray::number(status) +
                   " Scripted\r\nContent-Type: application/json\r\nContent-Length: " +
                   QByteArray::number(body.size() * 2) + "\r\n\r\n" + body,
               end);
}

Reaction Reaction::raw(const QByteArray& bytes, End end)
{
    Reaction reaction;
    reaction.bytes = bytes;
    reaction.end = end;
    return reaction;
}

Reaction Reaction::closeBeforeAnswer()
{
    return raw({}, End::Close);
}

Reaction Reaction::resetBeforeAnswer()
{
    return raw({}, End::Reset);
}

Reaction Reaction::neverAnswer()
{
    return raw({}, End::KeepOpen);
}

Reaction Reaction::then(End ending) const
{
    Reaction reaction = *this;
    reaction.end = ending;
    return reaction;
}

Reaction Reaction::dripping(int pause) const
{
    Reaction reaction = *this;
    reaction.pauseMs = pause;
    return reaction;
}

/// Lives in the server's thread.
class ScriptedServer::Worker : public QTcpServer
{
public:
    Worker(Shared& shared, std::optional<QSslConfiguration> tls)
        : m_shared(shared)
        , m_tls(std::move(tls))
    {
    }

    void closeAll()
    {
        for (const auto& connection : findChildren<QSslSocket*>()) {
            end(connection, Reaction::End::Close);
        }
    }

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto* socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        std::optional<Reaction> greeting;
        {
            const QMutexLocker lock(&m_shared.mutex);
            m_states[socket].connection = m_shared.connections++;
            ++m_shared.openConnections;
            greeting = m_shared.greeting;
        }
        connect(socket, &QSslSocket::disconnected, this, [this, socket] { forget(socket); });
        if (greeting) {
            perform(socket, *greeting);
            return;
        }
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { read(socket); });
        if (m_tls) {
            socket->setSslConfiguration(*m_tls);
            socket->startServerEncryption();
        }
    }

private:
    struct State {
        int connection = 0;
        QByteArray input;
        /// Index of the request whose body is expected; -1: none.
        qsizetype request = -1;
        qsizetype bodyLength = 0;
        std::optional<Reaction> reaction;
    };

    void read(QSslSocket* socket)
    {
        if (socket->state() != QAbstractSocket::ConnectedState) {
            return;
        }
        State& state = m_states[socket];
        state.input += socket->readAll();
        if (state.request < 0 && !readHeaders(state)) {
            return;
        }
        if (state.input.size() < state.bodyLength && !state.reaction->atHeaders) {
            return;
        }
        {
            const QMutexLocker lock(&m_shared.mutex);
            ReceivedRequest& request = m_shared.requests[state.request];
            request.isWhole = state.input.size() >= state.bodyLength;
            request.body = state.input.first(std::min(state.bodyLength, state.input.size()));
        }
        state.input.remove(0, state.bodyLength);
        state.request = -1;
        const Reaction reaction = *state.reaction; // the state goes when the connection ends
        perform(socket, reaction);
    }

    /// False when some are still missing.
    bool readHeaders(State& state)
    {
        const qsizetype end = state.input.indexOf("\r\n\r\n");
        if (end < 0) {
            return false;
        }
        QList<QByteArray> lines = state.input.first(end).replace("\r\n", "\n").split('\n');
        const QList<QByteArray> requestLine = lines.takeFirst().split(' ');
        state.input.remove(0, end + 4);

        ReceivedRequest request;
        request.method = requestLine.value(0);
        request.target = requestLine.value(1);
        request.headers = lines;
        request.connection = state.connection;
        state.bodyLength = request.header("Content-Length").toLongLong();

        const QMutexLocker lock(&m_shared.mutex);
        state.request = m_shared.requests.size();
        state.reaction = nextReaction(request);
        m_shared.requests.append(request);
        return true;
    }

    Reaction nextReaction(const ReceivedRequest& request)
    {
        if (m_shared.choose) {
            return m_shared.choose(request);
        }
        if (m_shared.reactions.empty()) {
            return Reaction::json(200, "{}");
        }
        Reaction next = m_shared.reactions.front();
        m_shared.reactions.pop_front();
        return next;
    }

    void perform(QSslSocket* socket, const Reaction& reaction)
    {
        if (reaction.pauseMs > 0) {
            drip(socket, reaction, 0);
            return;
        }
        socket->write(reaction.bytes);
        end(socket, reaction.end);
    }

    void drip(QSslSocket* socket, const Reaction& reaction, qsizetype sent)
    {
        if (sent == reaction.bytes.size()) {
            end(socket, reaction.end);
            return;
        }
        socket->write(reaction.bytes.sliced(sent, 1));
        socket->flush();
        QTimer::singleShot(reaction.pauseMs, socket,
                           [this, socket, reaction, sent] { drip(socket, reaction, sent + 1); });
    }

    void end(QSslSocket* socket, Reaction::End end)
    {
        if (end == Reaction::End::KeepOpen) {
            return;
        }
        if (end == Reaction::End::Close) {
            socket->disconnectFromHost();
            return;
        }
        while (socket->encryptedBytesToWrite() + socket->bytesToWrite() > 0 &&
               socket->waitForBytesWritten(longestWaitMs)) {
        }
        if (end == Reaction::End::Reset) {
            const linger atOnce = {1, 0};
            setsockopt(int(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        }
        socket->abort();
    }

    void forget(QSslSocket* socket)
    {
        if (m_states.remove(socket)) {
            const QMutexLocker lock(&m_shared.mutex);
            --m_shared.openConnections;
            m_shared.connectionEnded.wakeAll();
        }
        socket->deleteLater();
    }

    Shared& m_shared;
    std::optional<QSslConfiguration> m_tls;
    QHash<QSslSocket*, State> m_states;
};

/// Owns the thread. It is a std::thread, which is joined: TLS keeps state for each thread, and a QThread that was
/// waited for may still hold it.
class ScriptedServer::Host
{
public:
    explicit Host(const ServerIdentity* identity)
        : isSecure(identity)
    {
        std::promise<quint16> listening;
        std::future<quint16> portOrFailure = listening.get_future();
        const std::optional<QSslConfiguration> tls =
            identity ? std::optional(tlsConfiguration(*identity)) : std::nullopt;
        thread = std::thread([this, tls, listening = std::move(listening)]() mutable {
            QEventLoop events;
            Worker server(shared, tls);
            worker = &server;
            loop = &events;
            listening.set_value(server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0);
            events.exec();
        });
        port = portOrFailure.get();
    }
    ~Host()
    {
        QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
        thread.join();
    }
    Q_DISABLE_COPY_MOVE(Host)

    Shared shared;
    bool isSecure;
    /// 0 when the server cannot listen.
    quint16 port = 0;
    Worker* worker = nullptr;
    QEventLoop* loop = nullptr;
    std::thread thread;
};

ScriptedServer::ScriptedServer(const ServerIdentity* identity)
    : m_host(std::make_unique<Host>(identity))
{
    if (m_host->port == 0) {
        throw std::runtime_error("Cannot listen on the loopback interface");
    }
}

ScriptedServer::~ScriptedServer() = default;

void ScriptedServer::react(const QList<Reaction>& reactions)
{
    const QMutexLocker lock(&m_host->shared.mutex);
    m_host->shared.reactions.assign(reactions.begin(), reactions.end());
}

void ScriptedServer::reactBy(std::function<Reaction(const ReceivedRequest&)> choose)
{
    const QMutexLocker lock(&m_host->shared.mutex);
    m_host->shared.choose = std::move(choose);
}

void ScriptedServer::greetWith(const Reaction& greeting)
{
    const QMutexLocker lock(&m_host->shared.mutex);
    m_host->shared.greeting = greeting;
}

QUrl ScriptedServer::url(const QString& path) const
{
    const QString scheme = m_host->isSecure ? u"https"_s : u"http"_s;
    return QUrl(scheme + u"://127.0.0.1:"_s + QString::number(m_host->port) + path);
}

quint16 ScriptedServer::port() const
{
    return m_host->port;
}

QList<ReceivedRequest> ScriptedServer::requests() const
{
    const QMutexLocker lock(&m_host->shared.mutex);
    return m_host->shared.requests;
}

int ScriptedServer::connectionCount() const
{
    const QMutexLocker lock(&m_host->shared.mutex);
    return m_host->shared.connections;
}

bool ScriptedServer::waitUntilAllConnectionsEnded()
{
    const QMutexLocker lock(&m_host->shared.mutex);
    while (m_host->shared.openConnections > 0) {
        if (!m_host->shared.connectionEnded.wait(&m_host->shared.mutex, longestWaitMs)) {
            return false;
        }
    }
    return true;
}

void ScriptedServer::closeConnections()
{
    QMetaObject::invokeMethod(
        m_host->worker, [this] { m_host->worker->closeAll(); }, Qt::BlockingQueuedConnection);
}
