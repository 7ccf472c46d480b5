// SPDX-License-Identifier: MIT
#include "queryguard.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace
{

// Between two steps SQLite asks whether to go on. Within one step these bound the time: of functions, which is at worst
// the square of the longest value, and of preparing a statement, which is at worst exponential in its length.
constexpr int stepsBetweenQuestions = 100;
constexpr int longestValue = 10000;
constexpr int longestStatement = 250;

/// How a server is told the limit. A driver can stand for several servers: the first statement that one takes counts.
struct ServerLimit {
    const char* driver;
    const char* statement; ///< %1: the limit
    double unit;           ///< of the limit, in seconds
    const char* release;
};

constexpr ServerLimit serverLimits[] = {
    {"QPSQL", "SET statement_timeout = %1", 0.001, "RESET statement_timeout"},
    {"QMYSQL", "SET SESSION max_execution_time = %1", 0.001, "SET SESSION max_execution_time = DEFAULT"},
    {"QMYSQL", "SET SESSION max_statement_time = %1", 1.0, "SET SESSION max_statement_time = DEFAULT"},
    {"QMARIADB", "SET SESSION max_statement_time = %1", 1.0, "SET SESSION max_statement_time = DEFAULT"},
    {"QMARIADB", "SET SESSION max_execution_time = %1", 0.001, "SET SESSION max_execution_time = DEFAULT"},
};

void logUnbounded(const QString& reason)
{
    Log4Qt::LogManager::logger(u"database"_s)->warn(u"A query cannot be limited in time: "_s + reason);
}

/// The connection in SQLite's own terms; null when it is closed or not SQLite's.
sqlite3* handleOf(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver()->handle();
    return qstrcmp(handle.typeName(), "sqlite3*") == 0 ? *static_cast<sqlite3* const*>(handle.constData()) : nullptr;
}

/// False when Qt's driver brings an SQLite of its own, which must not be mixed with the one that is linked here.
bool isLinkedSqlite(const QSqlDatabase& connection)
{
    QSqlQuery query(connection);
    return query.exec(u"SELECT sqlite_source_id()"_s) && query.next() &&
           query.value(0).toString() == QLatin1StringView(sqlite3_sourceid());
}

/// Reads the schema, as it is now, while there are no bounds: SQLite applies them to the schema's own statements too,
/// and takes a database with a longer one for damaged.
void readSchema(const QSqlDatabase& connection)
{
    QSqlQuery(connection).exec(u"SELECT 1 FROM sqlite_master LIMIT 1"_s);
}

int isOver(void* deadline)
{
    return static_cast<const QDeadlineTimer*>(deadline)->hasExpired() ? 1 : 0;
}

} // namespace

struct QueryGuard::SqliteBounds {
    QDeadlineTimer deadline;
    int formerValueLength = 0;
    int formerStatementLength = 0;
};

QueryGuard::QueryGuard(const QSqlDatabase& connection, std::chrono::milliseconds time)
    : m_connection(connection)
{
    if (!connection.isOpen()) {
        return;
    }
    if (handleOf(connection)) {
        boundSqlite(time);
    } else {
        boundServer(time);
    }
}

QueryGuard::~QueryGuard()
{
    if (m_sqlite) {
        releaseSqlite();
    } else if (m_release && m_connection.isOpen()) {
        QSqlQuery(m_connection).exec(QString::fromLatin1(m_release));
    }
}

void QueryGuard::boundSqlite(std::chrono::milliseconds time)
{
    if (!isLinkedSqlite(m_connection)) {
        logUnbounded(u"Qt's driver has an SQLite of its own"_s);
        return;
    }
    readSchema(m_connection);
    sqlite3* const handle = handleOf(m_connection);
    m_sqlite.reset(new SqliteBounds{
        .deadline = QDeadlineTimer(time),
        .formerValueLength = sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, longestValue),
        .formerStatementLength = sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, longestStatement),
    });
    sqlite3_progress_handler(handle, stepsBetweenQuestions, isOver, &m_sqlite->deadline);
}

/// A connection that was closed in the meantime has taken its bounds with it.
void QueryGuard::releaseSqlite()
{
    sqlite3* const handle = handleOf(m_connection);
    if (!handle) {
        return;
    }
    sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, m_sqlite->formerValueLength);
    sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, m_sqlite->formerStatementLength);
}

void QueryGuard::boundServer(std::chrono::milliseconds time)
{
    QString failure = u"no statement is known for the driver "_s + m_connection.driverName();
    for (const ServerLimit& limit : serverLimits) {
        if (m_connection.driverName() != QLatin1StringView(limit.driver)) {
            continue;
        }
        QSqlQuery query(m_connection);
        const double value = std::chrono::duration<double>(time).count() / limit.unit;
        if (query.exec(QString::fromLatin1(limit.statement).arg(value))) {
            m_release = limit.release;
            return;
        }
        failure = query.lastError().text();
    }
    logUnbounded(failure);
}
