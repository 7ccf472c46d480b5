// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

/// Runs a function when the scope is left, by whatever path.
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
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;
    Finally(Finally&&) = delete;
    Finally& operator=(Finally&&) = delete;

private:
    std::function<void()> m_function;
};
