// SPDX-License-Identifier: MIT
// Connections to a real server, and what becomes of them when it stops, stands still or works too long.
#include "activitynotifier.h"
#include "configured.h"
#include "connectionfactory.h"
#include "inputblocker.h"
#include "logcapture.h"
#include "postgresserver.h"
#include "queryguard.h"
#include "runningrequest.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

const QString selectName = u"SELECT dictname FROM medicine WHERE dictcode = 7"_s;

class DatabaseServer : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        server = std::make_unique<PostgresServer>();
        start();
        ASSERT_TRUE(server->execute(u"CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)"_s));
        ASSERT_TRUE(server->execute(u"INSERT INTO medicine VALUES (7, 'Парацетамол')"_s));
    }
    static void TearDownTestSuite() { server.reset(); }
    static void start()
    {
        const Expected<void> started = server->start();
        ASSERT_TRUE(started) << started.failure().detail.toStdString();
    }

    DatabaseServer()
        : m_config({{u"Database:driver"_s, u"QPSQL"_s},
                    {u"Database:host"_s, server->host()},
                    {u"Database:name"_s, server->database()},
                    {u"Database:user"_s, server->user()},
                    {u"Database:timeout"_s, u"2"_s}})
    {
        start();
    }
    ~DatabaseServer() override { server->goOn(); }

    /// What the query finds, or its error.
    static QString valueOf(const QSqlDatabase& connection, const QString& statement)
    {
        QSqlQuery query(connection);
        return query.exec(statement) && query.next() ? query.value(0).toString() : query.lastError().text();
    }

    static inline std::unique_ptr<PostgresServer> server;
    Configured m_config;
    ConnectionFactory m_factory;
};

/// What the window hears of a wait, and does in it.
class WaitingWindow : public BaseActivityListener
{
public:
    WaitingWindow()
    {
        Singleton<ActivityNotifier>::get()->subscribe(this);
        QObject::connect(&m_heart, &QTimer::timeout, this, [this] { beat(); });
        m_heart.start(50);
    }
    void handleEvent(const Event& event) override
    {
        codes.append(event.getCode());
        seconds.append(event.value(u"seconds"_s).toInt());
    }

    std::function<void()> meanwhile;
    QList<int> codes;
    QList<int> seconds;
    int beats = 0; ///< while input is thrown away

private:
    void beat()
    {
        beats += InputBlocker::isActive() ? 1 : 0;
        if (meanwhile) {
            meanwhile();
        }
    }

    QTimer m_heart;
};

} // namespace

TEST_F(DatabaseServer, asked_isReadAndCannotBeWritten)
{
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    EXPECT_EQ(valueOf(connection, selectName), u"Парацетамол"_s);
    EXPECT_TRUE(valueOf(connection, u"DELETE FROM medicine"_s).contains(u"read-only"_s));
    EXPECT_EQ(valueOf(connection, selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, statementTakesTooLong_isEndedByTheServerAndTheConnectionStays)
{
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    EXPECT_EQ(valueOf(connection, u"SHOW statement_timeout"_s), u"2s"_s);
    m_config.set(u"Database:timeout"_s, u"60"_s);
    const QSqlDatabase patient = m_factory.getConnection({}, {});
    EXPECT_EQ(valueOf(patient, u"SHOW statement_timeout"_s), u"1min"_s);
    const QueryGuard guard(patient, 50ms);
    EXPECT_TRUE(valueOf(patient, u"SELECT pg_sleep(1000)"_s).contains(u"statement timeout"_s));
    EXPECT_EQ(valueOf(patient, selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, queryGuardGone_theConnectionsOwnLimitHoldsAgain)
{
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    {
        const QueryGuard guard(connection, 50ms);
        EXPECT_EQ(valueOf(connection, u"SHOW statement_timeout"_s), u"50ms"_s);
    }
    EXPECT_EQ(valueOf(connection, u"SHOW statement_timeout"_s), u"2s"_s);
}

TEST_F(DatabaseServer, restarted_nextConnectionIsOpen)
{
    EXPECT_TRUE(m_factory.getConnection({}, {}).isOpen());
    server->stop();
    const QSqlDatabase stopped = m_factory.getConnection({}, {});
    EXPECT_FALSE(stopped.isOpen());
    EXPECT_FALSE(stopped.lastError().text().trimmed().isEmpty());
    start();
    EXPECT_EQ(valueOf(m_factory.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, standsStillBeforeItIsAsked_isGivenUpAndTheErrorSaysWhy)
{
    EXPECT_TRUE(m_factory.getConnection({}, {}).isOpen());
    server->pause();
    const LogCapture log;
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(connection.lastError().text().contains(u"timeout expired"_s))
        << connection.lastError().text().toStdString();
    EXPECT_TRUE(log.text().contains(u"Database cannot be opened"_s)) << log.text().toStdString();

    // It is left alone for a while, even when it answers again.
    server->goOn();
    EXPECT_FALSE(m_factory.getConnection({}, {}).isOpen());
    EXPECT_EQ(log.lines().size(), 1);
    ConnectionFactory another;
    EXPECT_EQ(valueOf(another.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, standsStillBeforeItIsAsked_theWindowLivesBehindTheBusyScreen)
{
    WaitingWindow window;
    EXPECT_TRUE(m_factory.getConnection({}, {}).isOpen());
    window.codes.clear(); // a busy machine may take its time to connect
    window.seconds.clear();
    window.beats = 0;
    server->pause();
    EXPECT_FALSE(m_factory.getConnection({}, {}).isOpen());
    EXPECT_EQ(window.codes, (QList<int>{EActivityListener::LongWorkBegins, EActivityListener::LongWorkEnds}));
    EXPECT_EQ(window.seconds.value(0), 6) << "for an answer, for connecting, and for the first statement";
    EXPECT_GT(window.beats, 5);
    EXPECT_FALSE(InputBlocker::isActive());

    m_factory.getConnection({}, {});
    EXPECT_EQ(window.codes.size(), 2) << "it is left alone for a while";
}

TEST_F(DatabaseServer, askedAgainWhileItStandsStill_theSecondGetsNoConnectionAndTheFirstTheUsualOne)
{
    WaitingWindow window;
    EXPECT_TRUE(m_factory.getConnection({}, {}).isOpen());
    server->pause();
    int refused = 0;
    window.meanwhile = [&] {
        refused += InputBlocker::isActive() && !m_factory.getConnection({}, {}).isValid() ? 1 : 0;
        if (refused == 3) {
            server->goOn();
        }
    };
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    window.meanwhile = {};
    EXPECT_GE(refused, 3);
    EXPECT_EQ(valueOf(connection, selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, standsStillDuringAQuery_theQueryFails)
{
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    server->pause();
    QSqlQuery query(connection);
    EXPECT_FALSE(query.exec(selectName));
    EXPECT_FALSE(query.lastError().text().trimmed().isEmpty());
    server->goOn();
    EXPECT_EQ(valueOf(m_factory.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, statementAsked_isAnsweredWithinItsTimeAndTheConnectionsOwnLimitHoldsAgain)
{
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    QString name;
    QString limit;
    QString late;
    m_factory.ask(connection, 50ms, [&] {
        name = valueOf(connection, selectName);
        limit = valueOf(connection, u"SHOW statement_timeout"_s);
        late = valueOf(connection, u"SELECT pg_sleep(1000)"_s);
    });
    EXPECT_EQ(name, u"Парацетамол"_s);
    EXPECT_EQ(limit, u"50ms"_s);
    EXPECT_TRUE(late.contains(u"statement timeout"_s)) << late.toStdString();
    EXPECT_EQ(valueOf(connection, u"SHOW statement_timeout"_s), u"2s"_s) << "the connection is this thread's again";
}

TEST_F(DatabaseServer, standsStillBetweenConnectionAndStatement_theWindowLivesAndTheStatementFails)
{
    WaitingWindow window;
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    ASSERT_TRUE(connection.isOpen());
    window.codes.clear(); // a busy machine may take its time to connect
    window.seconds.clear();
    window.beats = 0;
    server->pause();
    QString name;
    m_factory.ask(connection, 500ms, [&] { name = valueOf(connection, selectName); });
    EXPECT_NE(name, u"Парацетамол"_s);
    EXPECT_EQ(window.codes, (QList<int>{EActivityListener::LongWorkBegins, EActivityListener::LongWorkEnds}));
    EXPECT_EQ(window.seconds.value(0), 3) << "for the statement and for an answer";
    EXPECT_GT(window.beats, 5);
    EXPECT_FALSE(InputBlocker::isActive());

    server->goOn();
    EXPECT_FALSE(m_factory.getConnection({}, {}).isOpen()) << "it is left alone for a while";
    ConnectionFactory another;
    EXPECT_EQ(valueOf(another.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, askedForWhileAStatementWaits_theSecondGetsNoConnectionAndTheStatementIsAnswered)
{
    WaitingWindow window;
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    server->pause();
    int refused = 0;
    window.meanwhile = [&] {
        refused += InputBlocker::isActive() && !m_factory.getConnection({}, {}).isValid() ? 1 : 0;
        if (refused == 3) {
            server->goOn();
        }
    };
    QString name;
    m_factory.ask(connection, 60s, [&] { name = valueOf(connection, selectName); });
    window.meanwhile = {};
    EXPECT_GE(refused, 3);
    EXPECT_EQ(name, u"Парацетамол"_s);
    EXPECT_EQ(valueOf(m_factory.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, keptConnectionAskedWhileItIsWaitedFor_otherStatementsAreNotRun)
{
    WaitingWindow window;
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    ASSERT_TRUE(connection.isOpen());
    server->pause();
    int asked = 0;
    int ran = 0;
    window.meanwhile = [&] {
        if (InputBlocker::isActive()) {
            m_factory.ask(connection, 1s, [&ran] { ++ran; });
            if (++asked == 3) {
                server->goOn();
            }
        }
    };
    QString name;
    m_factory.ask(connection, 60s, [&] { name = valueOf(connection, selectName); });
    EXPECT_EQ(name, u"Парацетамол"_s);
    EXPECT_GE(asked, 3) << "while a statement is waited for";

    server->pause();
    asked = 0;
    m_factory.getConnection({}, {});
    EXPECT_GE(asked, 3) << "while the connection is waited for";
    window.meanwhile = {};
    EXPECT_EQ(ran, 0);
    m_factory.ask(connection, 1s, [&ran] { ++ran; });
    EXPECT_EQ(ran, 1);
}

TEST_F(DatabaseServer, connectingIsStopped_thereIsNoConnectionUntilTheServerAnswers)
{
    m_config.set(u"Database:timeout"_s, u"60"_s);
    WaitingWindow window;
    server->pause();
    window.meanwhile = [] {
        if (RunningRequest* request = RunningRequest::current()) {
            EXPECT_FALSE(request->changesSomething());
            request->stop();
        }
    };
    const LogCapture log;
    EXPECT_FALSE(m_factory.getConnection({}, {}).isValid());
    EXPECT_EQ(window.codes, (QList<int>{EActivityListener::LongWorkBegins, EActivityListener::LongWorkEnds}));
    EXPECT_FALSE(InputBlocker::isActive());
    EXPECT_TRUE(log.text().contains(u"The cashier does not wait for Database"_s)) << log.text().toStdString();
    window.codes.clear();
    EXPECT_FALSE(m_factory.getConnection({}, {}).isValid()) << "it is still being opened";
    EXPECT_TRUE(window.codes.isEmpty()) << "nobody waits for it again";

    server->goOn();
    window.meanwhile = {};
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_factory.getConnection({}, {}).isOpen(); }, 60'000));
    EXPECT_EQ(valueOf(m_factory.getConnection({}, {}), selectName), u"Парацетамол"_s);
}

TEST_F(DatabaseServer, connectingIsStoppedAndTheFactoryGoes_nothingIsLeftBehind)
{
    WaitingWindow window;
    server->pause();
    window.meanwhile = [] {
        if (RunningRequest* request = RunningRequest::current()) {
            request->stop();
        }
    };
    const QStringList before = QSqlDatabase::connectionNames();
    {
        ConnectionFactory another;
        EXPECT_FALSE(another.getConnection({}, {}).isValid());
    }
    EXPECT_EQ(QSqlDatabase::connectionNames(), before);
}

TEST_F(DatabaseServer, statementIsStopped_itFailsAndTheConnectionIsLeftAloneForAWhile)
{
    WaitingWindow window;
    const QSqlDatabase connection = m_factory.getConnection({}, {});
    ASSERT_TRUE(connection.isOpen());
    server->pause();
    window.meanwhile = [] {
        if (RunningRequest* request = RunningRequest::current()) {
            request->stop();
        }
    };
    QString name;
    m_factory.ask(connection, 60s, [&] { name = valueOf(connection, selectName); });
    EXPECT_NE(name, u"Парацетамол"_s);
    EXPECT_FALSE(InputBlocker::isActive());
    window.meanwhile = {};
    server->goOn();
    EXPECT_FALSE(m_factory.getConnection({}, {}).isOpen());
}

TEST_F(DatabaseServer, connectionOfAnotherFactory_isAskedInThisThread)
{
    ConnectionFactory another;
    const QSqlDatabase connection = another.getConnection({}, {});
    const QThread* ran = nullptr;
    QString name;
    m_factory.ask(connection, 1s, [&] {
        ran = QThread::currentThread();
        name = valueOf(connection, selectName);
    });
    EXPECT_EQ(ran, QThread::currentThread());
    EXPECT_EQ(name, u"Парацетамол"_s);
}
