// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <utility>

/// Runs a function when its scope is left, also by an exception.
///
/// The function must not throw: it runs in a destructor.
class Finally
{
public:
    explicit Finally(std::function<void()> function)
        : m_function(std::move(function))
    {
    }
    ~Finally()
    {
        if (m_function) {
            m_function();
        }
    }
    Q_DISABLE_COPY_MOVE(Finally)

private:
    std::function<void()> m_function;
};
