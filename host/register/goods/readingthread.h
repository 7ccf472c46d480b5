// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QObject>
#include <QThread>

#include <chrono>
#include <functional>

/// A thread for work that may have to wait. Its jobs run one after the other; the window lives on meanwhile. Its
/// functions are called in the main thread.
class ReadingThread
{
public:
    ReadingThread() = default;
    ~ReadingThread();
    Q_DISABLE_COPY_MOVE(ReadingThread)

    /// Runs a job sometime.
    void post(const std::function<void()>& job);

    enum class Ending : int {
        Done,
        Late,    ///< the job did not end within its time; it may still run
        Stopped, ///< the cashier did not want to wait; the job may still run
    };

    /// Runs a job that only reads, and waits for it. After a moment the busy screen shows `message` and `limit`, and
    /// input is thrown away, but for Esc, which stops the waiting.
    Ending run(const std::function<void()>& job, std::chrono::milliseconds limit, const tr::Tr& message);

    /// Runs a last job and waits for the end of the thread. One that does not end is left to the end of the process.
    void finish(const std::function<void()>& lastJob);

private:
    QThread* m_thread = nullptr; ///< null until the first job
    QObject* m_place = nullptr;  ///< in that thread
};
