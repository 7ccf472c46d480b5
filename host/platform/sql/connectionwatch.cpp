// SPDX-License-Identifier: MIT
#include "connectionwatch.h"

#include <QSqlDriver>
#include <QVariant>

#include <libpq-fe.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

/// Qt names the handle as its documentation says, or as libpq declares it.
bool isServerHandle(const QVariant& handle)
{
    return qstrcmp(handle.typeName(), "PGconn*") == 0 || qstrcmp(handle.typeName(), "pg_conn*") == 0;
}

/// -1: the connection is closed, or it has no socket that could be cut off.
int socketOf(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver()->handle();
    if (!connection.isOpen() || !isServerHandle(handle)) {
        return -1;
    }
    const int socket = PQsocket(*static_cast<PGconn* const*>(handle.constData()));
    return socket < 0 ? -1 : dup(socket);
}

} // namespace

ConnectionWatch::ConnectionWatch(const QSqlDatabase& connection, std::chrono::milliseconds limit)
    : m_limit(limit)
    , m_socket(socketOf(connection))
    , m_deadline(Clock::now() + limit)
{
    if (m_socket >= 0) {
        m_thread = std::thread([this] { watch(); });
    }
}

ConnectionWatch::~ConnectionWatch()
{
    if (m_socket < 0) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_over.notify_one();
    m_thread.join();
    close(m_socket);
}

void ConnectionWatch::restart()
{
    const std::lock_guard lock(m_mutex);
    m_deadline = Clock::now() + m_limit;
}

void ConnectionWatch::cut()
{
    {
        const std::lock_guard lock(m_mutex);
        m_deadline = Clock::now();
    }
    m_over.notify_one();
}

bool ConnectionWatch::hasCut() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasCut;
}

void ConnectionWatch::watch()
{
    std::unique_lock lock(m_mutex);
    while (!m_isOver && Clock::now() < m_deadline) {
        m_over.wait_until(lock, m_deadline);
    }
    if (!m_isOver) {
        m_hasCut = true;
        shutdown(m_socket, SHUT_RDWR);
    }
}
