// SPDX-License-Identifier: MIT
#include "readonlyconnection.h"

#include "connectionwatch.h"
#include "sqlfailure.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>
#include <atomic>
#include <iterator>

using namespace Qt::StringLiterals;

namespace
{

/// How a driver is kept from writing and from waiting.
struct DriverMode {
    const char* driver;
    const char*
        connectOptions;    ///< of QSqlDatabase::setConnectOptions; %1: the time-out in seconds, %2: in milliseconds
    const char* statement; ///< run once after opening
};

constexpr DriverMode driverModes[] = {
    {"QSQLITE", "QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=%2", "PRAGMA query_only = ON"},
    {"QPSQL",
     "connect_timeout=%1;tcp_user_timeout=%2;keepalives_idle=10;keepalives_interval=3;keepalives_count=3;"
     "options='-c statement_timeout=%2'", // so that RESET comes back to it
     "SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY"},
    {"QMYSQL", "MYSQL_OPT_CONNECT_TIMEOUT=%1;MYSQL_OPT_READ_TIMEOUT=%1;MYSQL_OPT_WRITE_TIMEOUT=%1",
     "SET SESSION TRANSACTION READ ONLY"},
    {"QMARIADB", "MYSQL_OPT_CONNECT_TIMEOUT=%1;MYSQL_OPT_READ_TIMEOUT=%1;MYSQL_OPT_WRITE_TIMEOUT=%1",
     "SET SESSION TRANSACTION READ ONLY"},
};

const DriverMode* modeOf(const QString& driver)
{
    const auto found = std::find_if(std::begin(driverModes), std::end(driverModes),
                                    [&driver](const auto& mode) { return driver == QLatin1StringView(mode.driver); });
    return found == std::end(driverModes) ? nullptr : found;
}

Log4Qt::Logger* logger()
{
    return Log4Qt::LogManager::logger(u"database"_s);
}

QString uniqueName(const QString& section)
{
    static std::atomic<int> count = 0;
    return u"read-only %1 %2"_s.arg(section).arg(++count);
}

/// One that is not installed, or for which no read-only mode is known.
Failure noDriver(const QString& driver)
{
    return {tr::Tr(u"databaseDriverMissing"_s, u"нет драйвера %1"_s).arg(driver),
            u"the driver %1 is not installed, or no read-only mode is known for it"_s.arg(driver)};
}

Failure notSet(const QString& key)
{
    return {tr::Tr(u"databaseKeyMissing"_s, u"%1 не задано в настройках"_s).arg(key), key + u" is not set"_s};
}

/// Whether it is a database at all: SQLite opens any file.
Expected<void> isDatabase(const QSqlDatabase& database)
{
    QSqlQuery query(database);
    return query.exec(u"PRAGMA schema_version"_s) ? Expected<void>() : sqlFailure(query.lastError());
}

/// Whether each table and column of `former` is in `database` too.
Expected<void> hasAllOf(const QSqlDatabase& former, const QSqlDatabase& database)
{
    for (const QString& table : former.tables()) {
        const QSqlRecord columns = database.record(table);
        const QSqlRecord wanted = former.record(table);
        for (int column = 0; column < wanted.count(); ++column) {
            const QString name = wanted.fieldName(column);
            if (!columns.contains(name)) {
                return Failure{tr::Tr(u"databaseColumnMissing"_s, u"нет столбца %1"_s).arg(table + u'.' + name),
                               u"the column "_s + table + u'.' + name + u" is missing"_s};
            }
        }
    }
    return {};
}

} // namespace

ReadOnlyConnection::ReadOnlyConnection(const DatabaseAccess& access)
    : m_access(access)
    , m_name(uniqueName(access.section))
{
    if (!QSqlDatabase::isDriverAvailable(access.driver)) { // Qt would warn; open() says so
        return;
    }
    QSqlDatabase added = QSqlDatabase::addDatabase(access.driver, m_name);
    added.setDatabaseName(access.name);
    added.setHostName(access.host);
    added.setPort(access.port);
    added.setUserName(access.user);
    added.setPassword(access.password);
}

ReadOnlyConnection::~ReadOnlyConnection()
{
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase ReadOnlyConnection::database() const
{
    return QSqlDatabase::database(m_name, false);
}

Expected<void> ReadOnlyConnection::open()
{
    QSqlDatabase connection = database();
    if (connection.isOpen()) {
        return {};
    }
    const DriverMode* mode = modeOf(m_access.driver);
    if (!mode || !connection.isValid()) {
        return noDriver(m_access.driver);
    }
    if (m_access.name.isEmpty() && m_access.host.isEmpty()) { // SQLite would make an empty one up
        return notSet(m_access.section + u":name"_s);
    }
    m_file = FileIdentity::of(m_access.name);
    const std::chrono::milliseconds limit = m_access.timeout;
    connection.setConnectOptions(QString::fromLatin1(mode->connectOptions)
                                     .replace("%1"_L1, QString::number(m_access.timeout.count()))
                                     .replace("%2"_L1, QString::number(limit.count())));
    if (!connection.open()) {
        return sqlFailure(connection.lastError());
    }
    const ConnectionWatch watch(connection, limit);
    QSqlQuery query(connection);
    if (!query.exec(QString::fromLatin1(mode->statement))) {
        const Failure unprotected = sqlFailure(query.lastError());
        query.clear();
        connection.close();
        return unprotected;
    }
    return {};
}

void ReadOnlyConnection::close()
{
    database().close();
}

bool ReadOnlyConnection::answers() const
{
    if (m_access.isFile()) {
        return true;
    }
    const ConnectionWatch watch(database(), answerTime);
    QSqlQuery query(database());
    return query.exec(u"SELECT 1"_s) && query.next();
}

Expected<bool> ReadOnlyConnection::takeReplacedFile(const FileCheck& check)
{
    if (!m_access.isFile() || !isOpen()) {
        return false;
    }
    const std::optional<FileIdentity> found = FileIdentity::of(m_access.name);
    if (!found || found == m_file || found == m_refused) {
        return false;
    }
    if (const Expected<void> usable = tryFile(check); !usable) {
        m_refused = found;
        logger()->error(m_access.section + u": the new file "_s + m_access.name +
                        u" is not taken, the old one stays in use: "_s + usable.failure().detail);
        return usable.failure();
    }
    close();
    if (const Expected<void> opened = open(); !opened) {
        return opened.failure();
    }
    logger()->info(m_access.section + u": the new file "_s + m_access.name + u" is in use"_s);
    return true;
}

Expected<void> ReadOnlyConnection::tryFile(const FileCheck& check) const
{
    ReadOnlyConnection trial(m_access);
    Expected<void> usable = trial.open();
    if (usable) {
        usable = isDatabase(trial.database());
    }
    if (usable) {
        usable = hasAllOf(database(), trial.database());
    }
    return usable && check ? check(trial.database()) : usable;
}
