// SPDX-License-Identifier: MIT
#include "connectionfactory.h"

#include "config.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

template struct Singleton<ConnectionFactory>;

namespace
{

/// How a driver is kept from writing.
struct ReadOnlyMode {
    const char* driver;
    const char* connectOptions; ///< of QSqlDatabase::setConnectOptions
    const char* statement;      ///< run once after opening
};

constexpr ReadOnlyMode readOnlyModes[] = {
    {"QSQLITE", "QSQLITE_OPEN_READONLY", "PRAGMA query_only = ON"},
    {"QPSQL", "", "SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY"},
    {"QMYSQL", "", "SET SESSION TRANSACTION READ ONLY"},
    {"QMARIADB", "", "SET SESSION TRANSACTION READ ONLY"},
};

const ReadOnlyMode* readOnlyModeOf(const QString& driver)
{
    const auto found = std::find_if(std::begin(readOnlyModes), std::end(readOnlyModes),
                                    [&driver](const auto& mode) { return driver == QLatin1StringView(mode.driver); });
    return found == std::end(readOnlyModes) ? nullptr : found;
}

void logFailure(const QString& section, const QString& reason)
{
    Log4Qt::LogManager::logger(u"database"_s)->error(section + u" cannot be opened: "_s + reason);
}

/// Opens the connection so that it cannot write; leaves it closed when either does not succeed.
void openReadOnly(QSqlDatabase& connection, const QString& section)
{
    const ReadOnlyMode* mode = readOnlyModeOf(connection.driverName());
    if (!mode) {
        logFailure(section, u"no read-only mode is known for the driver "_s + connection.driverName());
        return;
    }
    if (connection.databaseName().isEmpty() && connection.hostName().isEmpty()) { // SQLite would make an empty one up
        logFailure(section, section + u":name is not set"_s);
        return;
    }
    connection.setConnectOptions(QString::fromLatin1(mode->connectOptions));
    if (!connection.open()) {
        logFailure(section, connection.lastError().text());
        return;
    }
    QSqlQuery query(connection);
    if (!query.exec(QString::fromLatin1(mode->statement))) {
        logFailure(section, query.lastError().text());
        query.clear();
        connection.close();
    }
}

} // namespace

ConnectionFactory::~ConnectionFactory()
{
    for (auto opened = m_parameters.cbegin(); opened != m_parameters.cend(); ++opened) {
        QSqlDatabase::removeDatabase(opened.key());
    }
}

QSqlDatabase ConnectionFactory::getConnection(const QString& database, const QString& connection)
{
    QString section = u"Database"_s;
    if (!database.isEmpty()) {
        section += u'.' + database;
    }
    const QString name = u"read-only "_s + section + u'\n' + connection;

    const Parameters wanted = configuredParameters(section);
    if (m_parameters.contains(name) && m_parameters.value(name) != wanted) {
        QSqlDatabase::removeDatabase(name);
    }
    if (!QSqlDatabase::contains(name)) {
        QSqlDatabase added = QSqlDatabase::addDatabase(wanted.driver, name);
        added.setDatabaseName(wanted.name);
        added.setHostName(wanted.host);
        added.setPort(wanted.port);
        added.setUserName(wanted.user);
        added.setPassword(wanted.password);
        m_parameters.insert(name, wanted);
    }
    QSqlDatabase found = QSqlDatabase::database(name, false);
    if (!found.isOpen()) {
        openReadOnly(found, section);
    }
    return found;
}

ConnectionFactory::Parameters ConnectionFactory::configuredParameters(const QString& section) const
{
    const Config* config = Singleton<Config>::get();
    return {
        config->getString(section + u":driver"_s, u"QSQLITE"_s),
        config->getString(section + u":name"_s),
        config->getString(section + u":host"_s),
        config->getInt(section + u":port"_s, -1),
        config->getString(section + u":user"_s),
        config->getString(section + u":password"_s),
    };
}
