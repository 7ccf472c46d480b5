// SPDX-License-Identifier: MIT
#include "queryguard.h"

#include "logcapture.h"

#include <QElapsedTimer>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// Counts without an end.
const QString endless =
    u"WITH RECURSIVE number(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number) SELECT max(n) FROM number"_s;

/// Takes some seconds in a single step: every place of a long text is compared with nearly as long a text.
const QString longStep = u"SELECT instr(hex(zeroblob(2000000)), hex(zeroblob(1000000)) || '1')"_s;

/// Each table is the square of the one before: to prepare it takes minutes.
QString nestedTables(int depth)
{
    QString statement = u"WITH t0 AS (SELECT 1 AS n)"_s;
    for (int level = 1; level < depth; ++level) {
        statement += u", t%1 AS (SELECT p.n FROM t%2 p, t%2 q)"_s.arg(level).arg(level - 1);
    }
    return statement + u" SELECT n FROM t%1"_s.arg(depth - 1);
}

class GuardedSqlite : public ::testing::Test
{
protected:
    GuardedSqlite()
    {
        m_connection.setDatabaseName(u":memory:"_s);
        EXPECT_TRUE(m_connection.open());
    }
    ~GuardedSqlite() override
    {
        m_connection = {};
        QSqlDatabase::removeDatabase(u"guarded"_s);
    }

    /// The error that the statement ends with; empty when it succeeds.
    QString errorOf(const QString& statement) const
    {
        QSqlQuery query(m_connection);
        return query.exec(statement) ? QString() : query.lastError().text();
    }

    QSqlDatabase m_connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"guarded"_s);
};

TEST_F(GuardedSqlite, queryWithoutAnEnd_isEndedWithAnErrorAfterItsTime)
{
    const QueryGuard guard(m_connection, 100ms);
    QElapsedTimer timer;
    timer.start();

    EXPECT_TRUE(errorOf(endless).contains(u"interrupted"_s));

    EXPECT_GE(timer.elapsed(), 90);
    EXPECT_LT(timer.elapsed(), 20000);
}

TEST_F(GuardedSqlite, longStep_failsBeforeItBegins)
{
    const QueryGuard guard(m_connection, 10min);

    EXPECT_TRUE(errorOf(longStep).contains(u"too big"_s));
}

TEST_F(GuardedSqlite, statementThatTakesLongToPrepare_failsBeforeItBegins)
{
    const QueryGuard guard(m_connection, 10min);

    EXPECT_NE(errorOf(nestedTables(40)), QString());
}

TEST_F(GuardedSqlite, plainQuery_isAnswered)
{
    const QueryGuard guard(m_connection, 10min);
    QSqlQuery query(m_connection);

    ASSERT_TRUE(query.exec(u"SELECT 'Парацетамол'"_s)) << query.lastError().text().toStdString();
    ASSERT_TRUE(query.next());
    EXPECT_EQ(query.value(0).toString(), u"Парацетамол"_s);
}

TEST_F(GuardedSqlite, afterTheGuard_connectionIsAsBefore)
{
    {
        const QueryGuard guard(m_connection, 1ms);
        EXPECT_NE(errorOf(endless), QString());
    }

    EXPECT_EQ(errorOf(u"SELECT length(hex(zeroblob(1000000)))"_s), QString());
    EXPECT_EQ(errorOf(u"SELECT '"_s + QString(10000, u'x') + u'\''), QString());
    EXPECT_EQ(errorOf(u"WITH RECURSIVE number(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < 200000) "
                      "SELECT max(n) FROM number"_s),
              QString());
}

TEST_F(GuardedSqlite, closedMeanwhile_isLeftAlone)
{
    {
        const QueryGuard guard(m_connection, 1min);
        m_connection.close();
    }

    EXPECT_TRUE(m_connection.open());
    EXPECT_EQ(errorOf(u"SELECT length(hex(zeroblob(1000000)))"_s), QString());
}

TEST_F(GuardedSqlite, notOpen_isLeftAloneAndNotLogged)
{
    m_connection.close();
    const LogCapture log;

    const QueryGuard guard(m_connection, 1min);

    EXPECT_TRUE(log.text().isEmpty()) << log.text().toStdString();
}

/// What the servers' drivers were asked to run, and what they refuse.
struct Server {
    static inline QStringList statements;
    static inline QString refused; ///< the beginning of statements that fail; empty: none
};

class ServerResult : public QSqlResult
{
public:
    explicit ServerResult(const QSqlDriver* driver)
        : QSqlResult(driver)
    {
    }

protected:
    bool reset(const QString& statement) override
    {
        Server::statements << statement;
        const bool fails = !Server::refused.isEmpty() && statement.startsWith(Server::refused);
        if (fails) {
            setLastError(QSqlError(u"unknown variable"_s));
        }
        setActive(!fails);
        return !fails;
    }
    QVariant data(int) override { return {}; }
    bool isNull(int) override { return true; }
    bool fetch(int) override { return false; }
    bool fetchFirst() override { return false; }
    bool fetchLast() override { return false; }
    int size() override { return 0; }
    int numRowsAffected() override { return 0; }
};

class ServerDriver : public QSqlDriver
{
public:
    bool hasFeature(DriverFeature) const override { return false; }
    void close() override { setOpen(false); }
    QSqlResult* createResult() const override { return new ServerResult(this); }
    bool open(const QString&, const QString&, const QString&, const QString&, int, const QString&) override
    {
        setOpen(true);
        return true;
    }
};

/// The drivers of the servers are replaced by one that notes what it is asked to run.
class GuardedServer : public ::testing::Test
{
protected:
    GuardedServer()
    {
        Server::statements.clear();
        Server::refused.clear();
        for (const QString& driver : drivers) {
            QSqlDatabase::registerSqlDriver(driver, new QSqlDriverCreator<ServerDriver>);
        }
    }
    ~GuardedServer() override
    {
        for (const QString& driver : drivers) {
            QSqlDatabase::registerSqlDriver(driver, nullptr);
        }
    }

    /// The statements that a query and its guard send, in their order.
    static QStringList sentThrough(const QString& driver)
    {
        {
            QSqlDatabase connection = QSqlDatabase::addDatabase(driver, u"guarded"_s);
            EXPECT_TRUE(connection.open());
            const QueryGuard guard(connection, 2500ms);
            QSqlQuery(connection).exec(u"SELECT 1"_s);
        }
        QSqlDatabase::removeDatabase(u"guarded"_s);
        return Server::statements;
    }

    const QStringList drivers{u"QPSQL"_s, u"QMYSQL"_s, u"QMARIADB"_s, u"QOTHER"_s};
};

TEST_F(GuardedServer, postgresql_limitIsSetInMillisecondsAndReset)
{
    EXPECT_EQ(sentThrough(u"QPSQL"_s),
              (QStringList{u"SET statement_timeout = 2500"_s, u"SELECT 1"_s, u"RESET statement_timeout"_s}));
}

TEST_F(GuardedServer, mysql_limitIsSetInMillisecondsAndReset)
{
    EXPECT_EQ(sentThrough(u"QMYSQL"_s), (QStringList{u"SET SESSION max_execution_time = 2500"_s, u"SELECT 1"_s,
                                                     u"SET SESSION max_execution_time = DEFAULT"_s}));
}

TEST_F(GuardedServer, mariadb_limitIsSetInSecondsAndReset)
{
    EXPECT_EQ(sentThrough(u"QMARIADB"_s), (QStringList{u"SET SESSION max_statement_time = 2.5"_s, u"SELECT 1"_s,
                                                       u"SET SESSION max_statement_time = DEFAULT"_s}));
}

TEST_F(GuardedServer, mariadbBehindTheDriverOfMysql_takesTheSecondStatement)
{
    Server::refused = u"SET SESSION max_execution_time"_s;

    EXPECT_EQ(sentThrough(u"QMYSQL"_s),
              (QStringList{u"SET SESSION max_execution_time = 2500"_s, u"SET SESSION max_statement_time = 2.5"_s,
                           u"SELECT 1"_s, u"SET SESSION max_statement_time = DEFAULT"_s}));
}

TEST_F(GuardedServer, serverRefusesTheLimit_queryRunsAndTheReasonIsLogged)
{
    Server::refused = u"SET"_s;
    const LogCapture log;

    EXPECT_EQ(sentThrough(u"QPSQL"_s), (QStringList{u"SET statement_timeout = 2500"_s, u"SELECT 1"_s}));

    EXPECT_TRUE(log.text().contains(u"WARN database A query cannot be limited in time: unknown variable"_s))
        << log.text().toStdString();
}

TEST_F(GuardedServer, unknownDriver_queryRunsAndTheReasonIsLogged)
{
    const LogCapture log;

    EXPECT_EQ(sentThrough(u"QOTHER"_s), QStringList{u"SELECT 1"_s});

    EXPECT_TRUE(log.text().contains(u"QOTHER"_s)) << log.text().toStdString();
}

} // namespace

namespace
{

/// Longer than a guarded statement may be.
const QString longTable =
    u"CREATE TABLE goods (code INTEGER, name TEXT, note TEXT DEFAULT '%1')"_s.arg(QString(300, u'n'));

/// A database file with a table whose CREATE statement is long, and two connections to it.
class LongSchema : public ::testing::Test
{
protected:
    LongSchema()
    {
        for (QSqlDatabase* connection : {&m_till, &m_import}) {
            connection->setDatabaseName(m_folder.filePath(u"goods.sqlite"_s));
            EXPECT_TRUE(connection->open());
        }
    }
    ~LongSchema() override
    {
        m_till = {};
        m_import = {};
        QSqlDatabase::removeDatabase(u"till"_s);
        QSqlDatabase::removeDatabase(u"import"_s);
    }

    void import(const QString& statement)
    {
        QSqlQuery query(m_import);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    }
    QString guardedName() const
    {
        const QueryGuard guard(m_till, 2s);
        QSqlQuery query(m_till);
        EXPECT_TRUE(query.exec(u"SELECT name FROM goods WHERE code = 7"_s)) << query.lastError().text().toStdString();
        return query.next() ? query.value(0).toString() : QString();
    }

    QTemporaryDir m_folder;
    QSqlDatabase m_till = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"till"_s);
    QSqlDatabase m_import = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"import"_s);
};

} // namespace

TEST_F(LongSchema, firstQueryOfAConnection_isRun)
{
    import(longTable);
    import(u"INSERT INTO goods (code, name) VALUES (7, 'Амлодипин')"_s);
    EXPECT_EQ(guardedName(), u"Амлодипин"_s);
}

TEST_F(LongSchema, schemaReplacedByAnotherConnection_isReadAgain)
{
    import(u"CREATE TABLE goods (code INTEGER, name TEXT)"_s);
    EXPECT_EQ(guardedName(), QString());
    import(u"DROP TABLE goods"_s);
    import(longTable);
    import(u"INSERT INTO goods (code, name) VALUES (7, 'Амлодипин')"_s);
    EXPECT_EQ(guardedName(), u"Амлодипин"_s);
}
