// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <functional>

namespace emulator
{
/// A connection to an SQLite file. Every failure throws EmulatorError. Belongs to the thread that opened it.
class Database
{
public:
    /// Opens the file, and creates it when it is missing; an empty name keeps everything in memory.
    explicit Database(const QString& file);
    Q_DISABLE_COPY_MOVE(Database)
    ~Database();

    /// @param values what the statement's question marks stand for, in their order
    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    /// Makes all changes or none. Does not nest.
    void inTransaction(const std::function<void()>& change);

    /// The number that PRAGMA user_version keeps in the file; 0 in a file that never had one.
    int schemaVersion() const;
    void setSchemaVersion(int version) const;

private:
    void close();

    QString m_connectionName;
    QSqlDatabase m_database;
};
} // namespace emulator
