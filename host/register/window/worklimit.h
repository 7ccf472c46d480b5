// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>

#include <chrono>

/// How long a piece of long work takes at most, counted from its beginning. A value type.
class WorkLimit
{
public:
    /// Of work of which it is not known.
    WorkLimit() = default;
    /// Of work that begins now.
    /// @param most 0 or less: it is not known
    explicit WorkLimit(std::chrono::seconds most)
        : m_most(most)
    {
        m_begun.start();
    }

    bool isKnown() const { return m_most > std::chrono::seconds(0); }
    std::chrono::seconds most() const { return m_most; }
    /// Since the beginning, in whole seconds.
    std::chrono::seconds elapsed() const { return std::chrono::seconds(m_begun.elapsed() / 1000); }

private:
    std::chrono::seconds m_most{0};
    QElapsedTimer m_begun;
};
