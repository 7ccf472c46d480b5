// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QSqlDatabase>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Bounds the time that a call waits for a server which is reached and does not answer.
///
/// When the time is over while the watch lives, the connection is cut off: the call that waits on it returns with the
/// driver's error, and the connection has to be closed and opened again.
///
/// It watches connections of QPSQL; a driver of MySQL has time-outs of its own, and SQLite has no server. Make it
/// before the query, so that it outlives it. The connection's thread only.
class REGISTERPLATFORM_EXPORT ConnectionWatch
{
public:
    ConnectionWatch(const QSqlDatabase& connection, std::chrono::milliseconds limit);
    ~ConnectionWatch();
    Q_DISABLE_COPY_MOVE(ConnectionWatch)

    /// The server has answered: the time begins again.
    void restart();

    /// Cuts the connection off now.
    void cut();

    /// True when the connection was cut off.
    bool hasCut() const;

private:
    using Clock = std::chrono::steady_clock;

    void watch();

    const std::chrono::milliseconds m_limit;
    /// The connection's socket under a number of its own: the driver's may be closed and stand for another one.
    const int m_socket;
    mutable std::mutex m_mutex;
    std::condition_variable m_over;
    Clock::time_point m_deadline;
    bool m_isOver = false;
    bool m_hasCut = false;
    std::thread m_thread; ///< none when there is no socket
};
