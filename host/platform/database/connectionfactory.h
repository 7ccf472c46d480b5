// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QHash>
#include <QSqlDatabase>
#include <QString>

/// Hands out connections to the goods database.
///
/// The database is named in the configuration: "Database:driver" (a Qt SQL driver, default "QSQLITE"),
/// "Database:name" (the file, for SQLite), "Database:host", "Database:port", "Database:user", "Database:password".
/// The register writes through connections of its own; a connection from here cannot write.
class REGISTERPLATFORM_EXPORT ConnectionFactory
{
public:
    ConnectionFactory() = default;
    virtual ~ConnectionFactory();
    Q_DISABLE_COPY_MOVE(ConnectionFactory)

    /// An open read-only connection, the same one for the same arguments until the configuration is changed.
    ///
    /// A statement that would change the database fails with the driver's error. If the database cannot be opened, the
    /// connection is not open, its lastError() says why, and queries on it fail in prepare(). A missing SQLite file is
    /// not created.
    ///
    /// @param database a configured database's name: the configuration section is then "Database.<name>"; empty: the
    ///        goods database
    /// @param connection for a connection of one's own to that database; empty: the shared one
    virtual QSqlDatabase getConnection(const QString& database, const QString& connection);

private:
    struct Parameters {
        QString driver;
        QString name;
        QString host;
        int port = -1; ///< -1: the driver's own
        QString user;
        QString password;

        bool operator==(const Parameters&) const = default;
    };

    Parameters configuredParameters(const QString& section) const;

    QHash<QString, Parameters> m_parameters; ///< by the name of the Qt connection
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ConnectionFactory>;
