// SPDX-License-Identifier: MIT
#include "database.h"

#include "emulatorerror.h"

#include <QSqlError>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
[[noreturn]] void fail(const QSqlError& error)
{
    throw EmulatorError(u"the database fails: "_s + error.text());
}
} // namespace

Database::Database(const QString& file)
    : m_connectionName(u"registry-emulator-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connectionName))
{
    m_database.setDatabaseName(file.isEmpty() ? u":memory:"_s : file);
    QString reason;
    if (!m_database.open()) {
        reason = m_database.lastError().text();
    } else if (QSqlQuery probe(m_database); !probe.exec(u"PRAGMA user_version"_s)) {
        reason = probe.lastError().text(); // the file is opened before it is found to be no database
    } else {
        return;
    }
    close();
    throw EmulatorError(u"cannot open the data file %1: %2"_s.arg(file, reason));
}

Database::~Database()
{
    close();
}

void Database::close()
{
    m_database = {};
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlQuery Database::run(const QString& statement, const QVariantList& values) const
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (qsizetype index = 0; done && index < values.size(); ++index) {
        query.bindValue(int(index), values.at(index));
    }
    done = done && query.exec();
    if (!done) {
        fail(query.lastError());
    }
    return query;
}

void Database::inTransaction(const std::function<void()>& change)
{
    if (!m_database.transaction()) {
        fail(m_database.lastError());
    }
    try {
        change();
    } catch (...) {
        m_database.rollback();
        throw;
    }
    if (!m_database.commit()) {
        const QSqlError error = m_database.lastError();
        m_database.rollback();
        fail(error);
    }
}

int Database::schemaVersion() const
{
    QSqlQuery row = run(u"PRAGMA user_version"_s);
    return row.next() ? row.value(0).toInt() : 0;
}

void Database::setSchemaVersion(int version) const
{
    run(u"PRAGMA user_version = "_s + QString::number(version));
}
} // namespace emulator
