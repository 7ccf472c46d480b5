// SPDX-License-Identifier: MIT
#pragma once

#include "currenttime.h"
#include "mocked.h"

#include <QDateTime>

/// The clock on the wall for as long as it lives: it shows one moment until the test sets another.
class ClockDouble
{
public:
    /// @param moment in local time
    explicit ClockDouble(const QDateTime& moment)
        : now(moment)
    {
    }

    QDateTime now;

private:
    class Clock : public CurrentTime
    {
    public:
        explicit Clock(const QDateTime& now)
            : m_now(now)
        {
        }
        QDateTime current() const override { return m_now; }

    private:
        const QDateTime& m_now;
    };

    Mocked<CurrentTime> m_mocked{[this] { return QSharedPointer<Clock>::create(now); }};
};
