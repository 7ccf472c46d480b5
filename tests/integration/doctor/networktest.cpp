// SPDX-License-Identifier: MIT
// The doctor and the network: names, connections, proxies.
#include "doctortest.h"

#include "scriptedserver.h"

#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>

#include <future>
#include <thread>
#include <vector>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace doctor;

namespace
{

using NetworkTest = DoctorTest;

/// A port of this machine where nobody listens.
int closedPort()
{
    QTcpServer server;
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    return server.serverPort();
}

QUrl urlOf(const QString& host, int port)
{
    return QUrl(u"http://%1:%2"_s.arg(host).arg(port));
}

/// A port that drops what comes to it, as a firewall does: its queue of connections is full, and nobody accepts them.
class DroppingPort
{
public:
    DroppingPort()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        const int listening = newSocket();
        EXPECT_EQ(::bind(listening, reinterpret_cast<const sockaddr*>(&address), size), 0);
        EXPECT_EQ(::listen(listening, 0), 0);
        EXPECT_EQ(::getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size), 0);
        m_port = ntohs(address.sin_port);
        constexpr int moreThanFit = 8;
        for (int count = 0; count < moreThanFit; ++count) {
            ::connect(newSocket(), reinterpret_cast<const sockaddr*>(&address), size);
        }
    }
    ~DroppingPort()
    {
        for (const int socket : m_sockets) {
            ::close(socket);
        }
    }
    Q_DISABLE_COPY_MOVE(DroppingPort)

    int port() const { return m_port; }

private:
    int newSocket()
    {
        m_sockets.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        return m_sockets.back();
    }

    std::vector<int> m_sockets;
    int m_port = 0;
};

/// A proxy that connects to any address (RFC 9110, 9.3.6), in a thread of its own.
class TunnellingProxy
{
public:
    TunnellingProxy()
    {
        std::promise<int> listening;
        std::future<int> portOfServer = listening.get_future();
        m_thread = std::thread([this, listening = std::move(listening)]() mutable {
            QEventLoop events;
            QTcpServer server;
            QObject::connect(&server, &QTcpServer::newConnection, &server,
                             [&server] { serve(server.nextPendingConnection()); });
            m_events = &events;
            listening.set_value(server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0);
            events.exec();
        });
        m_port = portOfServer.get();
    }
    ~TunnellingProxy()
    {
        QMetaObject::invokeMethod(m_events, &QEventLoop::quit, Qt::QueuedConnection);
        m_thread.join();
    }
    Q_DISABLE_COPY_MOVE(TunnellingProxy)

    int port() const { return m_port; }

private:
    /// The requests of these tests come in one piece.
    static void serve(QTcpSocket* client)
    {
        auto* server = new QTcpSocket(client);
        QObject::connect(server, &QTcpSocket::connected, client,
                         [client] { client->write("HTTP/1.1 200 Connected\r\n\r\n"); });
        QObject::connect(server, &QTcpSocket::readyRead, client, [=] { client->write(server->readAll()); });
        QObject::connect(server, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
        QObject::connect(client, &QTcpSocket::readyRead, server, [=] {
            const QByteArray bytes = client->readAll();
            if (server->state() == QAbstractSocket::UnconnectedState) {
                const QList<QByteArray> target = bytes.split(' ').value(1).split(':');
                server->connectToHost(QString::fromLatin1(target.value(0)), target.value(1).toUShort());
            } else {
                server->write(bytes);
            }
        });
    }

    QEventLoop* m_events = nullptr;
    int m_port = 0;
    std::thread m_thread;
};

} // namespace

TEST_F(NetworkTest, nameIsFoundBySystem_itsAddressesAreShown)
{
    startRegistry();
    useServer(urlOf(u"localhost"_s, registry->url().port()));
    examine();
    EXPECT_EQ(resultOf(u"name"_s).finding.state, State::Good) << shown().toStdString();
    EXPECT_TRUE(resultOf(u"name"_s).finding.text.ui().contains(u"127.0.0.1"_s)) << shown().toStdString();
    expectFinding(u"connection"_s, FindingCode::ConnectionMade);
}

TEST_F(NetworkTest, nameIsNotFound_theNetworkAdministratorIsAskedAndNothingElseIsChecked)
{
    const ResolverDouble resolver({});
    useServer(urlOf(u"registry.test"_s, 80));
    examine(testCard);
    expectWrong(u"name"_s, FindingCode::NameNotFound, Adviser::NetworkAdministrator, 4);
    EXPECT_TRUE(shown().contains(u"registry.test is not found"_s));
    for (const auto& check : {u"connection"_s, u"tls"_s, u"answer"_s, u"clock"_s, u"token"_s}) {
        expectNotReached(check, u"name"_s);
    }
    expectNotReached(u"card"_s, u"token"_s);
}

TEST_F(NetworkTest, nameServersAreSilent_theNetworkAdministratorIsAsked)
{
    const ResolverDouble resolver({{}, false});
    useServer(urlOf(u"registry.test"_s, 80));
    examine();
    expectWrong(u"name"_s, FindingCode::NameServerSilent, Adviser::NetworkAdministrator, 4);
}

TEST_F(NetworkTest, onlyIpv6AndNobodyThere_theNetworkAdministratorIsAskedForARoute)
{
    const ResolverDouble resolver({{QHostAddress(u"::1"_s)}});
    useServer(urlOf(u"registry.test"_s, closedPort()));
    examine();
    expectFinding(u"name"_s, FindingCode::NameFoundIpv6Only);
    expectWrong(u"connection"_s, FindingCode::ConnectionIpv6Only, Adviser::NetworkAdministrator, 4);
    expectNotReached(u"token"_s, u"connection"_s);
}

TEST_F(NetworkTest, firstAddressRefuses_theNextOneIsTried)
{
    startRegistry();
    const ResolverDouble resolver({{QHostAddress(u"127.0.0.2"_s), QHostAddress(u"127.0.0.1"_s)}});
    useServer(urlOf(u"registry.test"_s, registry->url().port()));
    removeKey(u"clientSecret"_s); // the registry client would look the name up itself
    examine();
    expectFinding(u"connection"_s, FindingCode::ConnectionMade);
    EXPECT_TRUE(shown().contains(u"to 127.0.0.1"_s)) << shown().toStdString();
}

TEST_F(NetworkTest, portIsClosed_theOperatorIsAsked)
{
    const int port = closedPort();
    useServer(urlOf(u"127.0.0.1"_s, port));
    examine();
    expectWrong(u"connection"_s, FindingCode::ConnectionRefused, Adviser::Operator, 4);
    EXPECT_TRUE(shown().contains(u"Nothing accepts our connections at 127.0.0.1, port %1."_s.arg(port)));
    expectNotReached(u"tls"_s, u"connection"_s);
}

TEST_F(NetworkTest, packetsAreDropped_theNetworkAdministratorIsAskedToLetThemThrough)
{
    const DroppingPort dropping;
    useServer(urlOf(u"127.0.0.1"_s, dropping.port()));
    limits.step = std::chrono::milliseconds(300);
    examine();
    expectWrong(u"connection"_s, FindingCode::ConnectionSilent, Adviser::NetworkAdministrator, 4);
    EXPECT_TRUE(shown().contains(u"Please let the till connect to 127.0.0.1, TCP port %1."_s.arg(dropping.port())));
}

TEST_F(NetworkTest, proxyConnects_everyCheckIsGood)
{
    const TunnellingProxy proxy;
    startSecureRegistry({u"IP:127.0.0.1"_s, 60});
    ini[u"RestClient"_s][u"proxy"_s] = urlOf(u"127.0.0.1"_s, proxy.port()).toString();
    examine(testCard);
    EXPECT_EQ(exitStatus(results), 0) << shown().toStdString();
    expectFinding(u"tls"_s, FindingCode::TlsGood);
    expectFinding(u"answer"_s, FindingCode::AnswerGood);
    expectFinding(u"card"_s, FindingCode::CardGood);
}

TEST_F(NetworkTest, proxyIsClosed_theNetworkAdministratorIsAsked)
{
    startSecureRegistry();
    ini[u"RestClient"_s][u"proxy"_s] = urlOf(u"127.0.0.1"_s, closedPort()).toString();
    examine();
    expectWrong(u"connection"_s, FindingCode::ProxyUnusable, Adviser::NetworkAdministrator, 4);
}

TEST_F(NetworkTest, proxyRefusesTheWay_theNetworkAdministratorIsAsked)
{
    startSecureRegistry();
    ScriptedServer proxy;
    proxy.reactBy([](const ReceivedRequest&) { return Reaction::json(403, "{}").then(Reaction::End::Close); });
    ini[u"RestClient"_s][u"proxy"_s] = proxy.url().toString();
    examine();
    expectWrong(u"connection"_s, FindingCode::ProxyUnusable, Adviser::NetworkAdministrator, 4);
    ASSERT_GE(proxy.requests().size(), 1);
    EXPECT_EQ(proxy.requests().constFirst().method, QByteArray("CONNECT"));
}

TEST_F(NetworkTest, proxyWantsAPassword_theNetworkAdministratorIsAsked)
{
    ScriptedServer proxy;
    proxy.reactBy([](const ReceivedRequest&) { return Reaction::json(407, "{}"); });
    useServer(urlOf(u"registry.test"_s, 80));
    ini[u"RestClient"_s][u"proxy"_s] = proxy.url().toString();
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerProxyLogin, Adviser::NetworkAdministrator, 4);
    ASSERT_EQ(proxy.requests().size(), 1);
    EXPECT_EQ(proxy.requests().constFirst().target, QByteArray("http://registry.test:80/connect/token"));
}
