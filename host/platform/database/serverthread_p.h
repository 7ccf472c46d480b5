// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QThread>

#include <chrono>
#include <functional>
#include <memory>

/// A job on a connection, in a thread of its own. Until it is done the connection belongs to that thread. Main thread.
class ServerThread
{
public:
    /// Begins the job.
    /// @param connection one that nothing else uses meanwhile
    /// @param job throws nothing
    ServerThread(const QSqlDatabase& connection, const std::function<void()>& job);
    /// Waits until the job is done.
    ~ServerThread();
    Q_DISABLE_COPY_MOVE(ServerThread)

    /// Waits until the job is done or the cashier stops the waiting. After a moment the busy screen is shown, events
    /// run, and input is thrown away.
    /// @param limit how long it takes at most, for the cashier; the job sees to it
    /// @return false when it was stopped: the job goes on
    bool wait(std::chrono::seconds limit);

    bool isDone() const { return m_thread->isFinished(); }
    /// Calls the function in the event loop when the job is done, at least once.
    /// @param context the function is not called any more when this object is destroyed
    void whenDone(QObject* context, const std::function<void()>& function) const;

private:
    std::unique_ptr<QThread> m_thread;
};
