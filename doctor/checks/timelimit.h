// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QString>

#include <algorithm>
#include <chrono>

namespace doctor
{

/// How long the doctor may take.
struct Limits {
    std::chrono::milliseconds whole{240'000}; ///< all checks together
    std::chrono::milliseconds step{10'000};   ///< one step below the requests: a name, a connection, a first answer
};

/// The time that is left, from its construction on.
class TimeLimit
{
public:
    explicit TimeLimit(const Limits& limits)
        : m_limits(limits)
        , m_end(limits.whole)
    {
    }

    bool isOver() const { return m_end.hasExpired(); }
    /// Milliseconds that the next step may take.
    int step() const { return int(std::min<qint64>(m_limits.step.count(), m_end.remainingTime())); }
    /// Seconds that each of so many requests may take, at least one.
    int request(int count) const { return int(std::max<qint64>(1, m_end.remainingTime() / 1000 / count)); }

    /// For a text: seconds of all steps together.
    QString wholeSeconds() const { return QString::number(double(m_limits.whole.count()) / 1000); }

private:
    const Limits m_limits;
    const QDeadlineTimer m_end;
};

} // namespace doctor
