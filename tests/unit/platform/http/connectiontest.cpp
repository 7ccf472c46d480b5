// SPDX-License-Identifier: MIT
#include "clientandserver.h"

#include "namelookup.h"

#include <QTcpServer>

using namespace Qt::StringLiterals;

namespace
{

constexpr int codeNameNotFound = 4;
constexpr int codeNotReachable = 5;
constexpr int codeConnectionLost = 9;

QUrl urlWhereNobodyListens()
{
    const ScriptedServer gone;
    return gone.url();
}

} // namespace

class ConnectionOver : public testing::TestWithParam<Scheme>
{
};

TEST_P(ConnectionOver, severalClients_shareOneConnection)
{
    ClientAndServer both(GetParam());
    for (int round = 0; round < 5; ++round) {
        RestClient client;
        client.post(both.server.url(), "{}", {});
        EXPECT_THAT(client, Succeeded());
        client.get(both.server.url(), QJsonDocument(), {});
        EXPECT_THAT(client, Succeeded());
    }
    EXPECT_EQ(both.server.requests().size(), 10);
    EXPECT_EQ(both.server.connectionCount(), 1);
}

TEST_P(ConnectionOver, closedByServerWhileIdle_nextGetSucceeds)
{
    ClientAndServer both(GetParam());
    both.get();
    ASSERT_THAT(both.client, Succeeded());
    both.server.closeConnections();
    ASSERT_TRUE(both.server.waitUntilAllConnectionsEnded());
    both.get();
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.server.requests().size(), 2);
}

TEST_P(ConnectionOver, afterFailure_isNotUsedAgain)
{
    ClientAndServer both(GetParam());
    both.server.react({Reaction::halfAnswer(200, "[1, 2]", Reaction::End::KeepOpen), Reaction::json(200, "[3]")});
    both.client.setTimeout(1);
    both.get();
    ASSERT_GT(both.client.errorCode(), 0);
    both.get();
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.client.answer().toJson(QJsonDocument::Compact), "[3]");
    EXPECT_EQ(both.server.connectionCount(), 2);
}

TEST_P(ConnectionOver, getOnConnectionThatDies_isRepeatedOnFreshOne)
{
    ClientAndServer both(GetParam());
    both.server.react({Reaction::json(200, "{}"), Reaction::closeBeforeAnswer(), Reaction::json(200, "[1]")});
    both.get();
    both.get();
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.client.answer().toJson(QJsonDocument::Compact), "[1]");
}

TEST_P(ConnectionOver, getThatIsNeverAnswered_isReportedLost)
{
    ClientAndServer both(GetParam());
    both.server.reactBy([](const ReceivedRequest&) { return Reaction::closeBeforeAnswer(); });
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeConnectionLost, "restClientConnectionLost"));
}

INSTANTIATE_TEST_SUITE_P(Scheme, ConnectionOver, testing::Values(Scheme::Http, Scheme::Https),
                         [](const testing::TestParamInfo<Scheme>& instance) { return nameOf(instance.param); });

TEST(RestClientConnection, nobodyListens_postCannotHaveBeenCarriedOut)
{
    const Configured configuration;
    const QUrl url = urlWhereNobodyListens();
    RestClient client;
    client.get(url, QJsonDocument(), {});
    EXPECT_THAT(client, FailedWith(codeNotReachable, "restClientNotReachable"));
    client.post(url, "{}", {});
    EXPECT_THAT(client, FailedWith(codeNotReachable, "restClientNotReachable"));
    EXPECT_FALSE(client.errorText().ui().contains(u"мог быть выполнен"_s));
}

TEST(RestClientConnection, nameUnknown_postCannotHaveBeenCarriedOut)
{
    const Configured configuration;
    RestClient client;
    QUrl url = urlWhereNobodyListens();
    url.setHost(QString::fromLatin1(namelookup::unknownHost));
    client.post(url, "{}", {});
    EXPECT_THAT(client, FailedWith(codeNameNotFound, "restClientNameNotFound"));
    EXPECT_TRUE(client.errorText().ui().contains(QString::fromLatin1(namelookup::unknownHost)));
}

TEST(RestClientConnection, environmentNamesProxy_isNotUsed)
{
    const QByteArray dead = urlWhereNobodyListens().toEncoded();
    for (const char* variable : {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}) {
        qputenv(variable, dead);
    }
    for (const Scheme scheme : {Scheme::Http, Scheme::Https}) {
        ClientAndServer both(scheme);
        both.get();
        EXPECT_THAT(both.client, Succeeded());
    }
    for (const char* variable : {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}) {
        qunsetenv(variable);
    }
}

TEST(RestClientConnection, configuredProxy_getsTheRequestWhateverTheEnvironmentExcepts)
{
    qputenv("no_proxy", "*");
    ClientAndServer both;
    ScriptedServer proxy;
    proxy.react({Reaction::json(200, "[7]")});
    both.configuration.set(u"RestClient:proxy"_s, proxy.url().toString());
    both.get(u"/path"_s);
    qunsetenv("no_proxy");
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.client.answer().toJson(QJsonDocument::Compact), "[7]");
    EXPECT_EQ(both.server.connectionCount(), 0);
    ASSERT_EQ(proxy.requests().size(), 1);
    EXPECT_EQ(proxy.requests().first().target, both.server.url(u"/path"_s).toEncoded());
}

TEST(RestClientConnection, proxyRefusesTunnel_postCannotHaveBeenCarriedOut)
{
    ClientAndServer both(Scheme::Https);
    ScriptedServer proxy;
    proxy.react({Reaction::json(403, "{}")});
    both.configuration.set(u"RestClient:proxy"_s, proxy.url().toString());
    both.post("{}", {{u"Authorization"_s, u"Bearer token"_s}});
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_FALSE(both.client.errorText().ui().contains(u"мог быть выполнен"_s));
    ASSERT_EQ(proxy.requests().size(), 1);
    EXPECT_EQ(proxy.requests().first().method, "CONNECT");
    EXPECT_TRUE(proxy.requests().first().header("Authorization").isNull());
}
