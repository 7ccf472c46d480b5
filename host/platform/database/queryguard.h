// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QDeadlineTimer>
#include <QSqlDatabase>

#include <chrono>
#include <memory>

struct sqlite3;

/// Keeps a statement that holds text from elsewhere from hanging the register. Such a text can be an expression whose
/// evaluation does not end.
///
/// While the guard lives, its connection is bounded; afterwards it is as before. Make it right before the query, and
/// one at a time for a connection:
///
///     const QueryGuard guard(connection, std::chrono::seconds(2));
///     QSqlQuery query(connection);
///
/// A query that takes longer fails with the driver's error. On a server the limit holds for each statement; on SQLite
/// it begins when the guard is made. SQLite cannot end what it does within one step, so there a statement longer than
/// 250 bytes fails too, and so does a value longer than 10 000 bytes that a query reads or computes.
///
/// When a connection cannot be bounded, the reason is logged and its queries run without a limit. A connection that is
/// not open is left alone. The connection's thread only.
class REGISTERPLATFORM_EXPORT QueryGuard
{
public:
    /// @param time that a query may take; at least a millisecond
    QueryGuard(const QSqlDatabase& connection, std::chrono::milliseconds time);
    ~QueryGuard();
    Q_DISABLE_COPY_MOVE(QueryGuard)

private:
    struct SqliteBounds;

    void boundSqlite(std::chrono::milliseconds time);
    void releaseSqlite();
    void boundServer(std::chrono::milliseconds time);

    QSqlDatabase m_connection;
    std::unique_ptr<SqliteBounds> m_sqlite; ///< null: not SQLite, or not bounded
    const char* m_release = nullptr;        ///< statement that ends the bound on a server; null: none
};
