// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QSqlDatabase>
#include <QString>

#include <chrono>
#include <functional>
#include <map>
#include <memory>

/// Hands out connections to the goods database.
///
/// The database is named in the configuration: "Database:driver" (a Qt SQL driver, default "QSQLITE"),
/// "Database:name" (the file, for SQLite), "Database:host", "Database:port", "Database:user", "Database:password",
/// "Database:timeout" (seconds).
/// The register writes through connections of its own; a connection from here cannot write.
class REGISTERPLATFORM_EXPORT ConnectionFactory
{
public:
    ConnectionFactory();
    virtual ~ConnectionFactory();
    Q_DISABLE_COPY_MOVE(ConnectionFactory)

    /// An open read-only connection, the same one for the same arguments until the configuration is changed.
    ///
    /// A statement that would change the database fails with the driver's error. If the database cannot be opened, the
    /// connection is not open, its lastError() says why, and queries on it fail in prepare(). A missing SQLite file is
    /// not created.
    ///
    /// A server that does not answer is waited for "Database:timeout" seconds at most, when connecting, for each
    /// statement, and from this call until the caller is back in the event loop; then the connection is cut off, and
    /// statements on it fail. So ask for the connection each time, and run statements with ask(). While this call waits
    /// for the server, events run behind the busy screen, as during a RestClient call, and the cashier can stop it.
    /// When it is stopped, and when it is asked for again before the server has answered, it returns an invalid
    /// connection. After a long wait in vain the connection stays closed for some seconds, so that the register is not
    /// slow at every step. An SQLite file that is replaced stays in use until the document is done.
    ///
    /// @param database a configured database's name: the configuration section is then "Database.<name>"; empty: the
    ///        goods database
    /// @param connection for a connection of one's own to that database; empty: the shared one
    virtual QSqlDatabase getConnection(const QString& database, const QString& connection);

    /// Runs statements on a connection, each bounded as by a QueryGuard, and returns when they are done.
    ///
    /// On a server they run in a thread of their own. A server that does not answer is cut off, and the statements
    /// fail; so they do when the cashier stops them. While they are waited for, events run behind the busy screen as in
    /// getConnection(), which returns an invalid connection meanwhile, and other statements on it are not run. On a
    /// file, or on a connection that is not from here, they run in this thread.
    /// @param connection from getConnection(); on one that is not open the statements fail
    /// @param time that each statement may take; at least a millisecond
    /// @param statements throws nothing, touches no widget, and keeps no query
    void ask(const QSqlDatabase& connection, std::chrono::milliseconds time, const std::function<void()>& statements);

    /// For the host: takes files that were replaced, where they can be read. Not while a document is open.
    void takeReplacedFiles();

private:
    struct Held;

    /// Null when it is not a connection to a server that was made here.
    Held* serverBehind(const QSqlDatabase& connection) const;

    std::map<QString, std::unique_ptr<Held>> m_held; ///< by database and connection
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ConnectionFactory>;
