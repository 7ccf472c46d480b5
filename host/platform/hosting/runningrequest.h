// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>

/// A request that a RestClient waits for, as the register sees it. Main thread.
class REGISTERPLATFORM_EXPORT RunningRequest
{
public:
    /// @param limit the time that the request may take
    /// @param changesSomething false: the server is the same afterwards, so that nobody has to wait for the answer
    /// @param step what the request is sent for, in lines; may be empty
    RunningRequest(std::chrono::seconds limit, bool changesSomething, const QString& step = {});
    ~RunningRequest();
    Q_DISABLE_COPY_MOVE(RunningRequest)

    /// The innermost one; null: no request runs.
    static RunningRequest* current();

    /// What Esc does while a request runs. Empty: nothing, as every other key.
    /// The function may show forms; the request goes on afterwards.
    using Escape = std::function<void(RunningRequest&)>;
    /// Replaces the former one.
    /// @param owner Esc does nothing once this object is destroyed
    static void setEscape(const QObject* owner, Escape escape);
    /// Does what Esc does.
    void escape();

    std::chrono::seconds limit() const { return m_limit; }
    std::chrono::seconds elapsed() const;
    const QString& step() const { return m_step; }
    bool changesSomething() const { return m_changesSomething; }

    /// Ends the waiting, unless the answer is there already.
    void stop() { m_isStopped = true; }
    bool isStopped() const { return m_isStopped; }

private:
    const std::chrono::seconds m_limit;
    const bool m_changesSomething;
    const QString m_step;
    QElapsedTimer m_since;
    bool m_isStopped = false;
    RunningRequest* const m_outer;
};
