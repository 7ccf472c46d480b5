// SPDX-License-Identifier: MIT
#pragma once

#include "failure.h"

#include <type_traits>
#include <utility>
#include <variant>

/// A value, or why there is none: what a function that reads or writes returns.
///
///     const Expected<QJsonObject> settings = readJsonObject(file);
///     if (!settings) {
///         return settings.failure();
///     }
///     use(*settings);
///
/// A value type. It converts from both, so that a function returns either as it is. Reading the side that is not there
/// throws std::bad_variant_access.
template <typename T, typename F = Failure>
class [[nodiscard]] Expected
{
    static_assert(!std::is_same_v<T, F>, "the value and the failure need different types");

public:
    Expected(T value)
        : m_outcome(std::in_place_index<0>, std::move(value))
    {
    }
    Expected(F failure)
        : m_outcome(std::in_place_index<1>, std::move(failure))
    {
    }

    /// True when there is a value.
    explicit operator bool() const { return m_outcome.index() == 0; }

    const T& operator*() const& { return std::get<0>(m_outcome); }
    T& operator*() & { return std::get<0>(m_outcome); }
    T&& operator*() && { return std::get<0>(std::move(m_outcome)); }
    const T* operator->() const { return &std::get<0>(m_outcome); }
    T* operator->() { return &std::get<0>(m_outcome); }

    const F& failure() const { return std::get<1>(m_outcome); }

private:
    std::variant<T, F> m_outcome;
};

/// Success without a value, or why it failed. `return {};` is success.
template <typename F>
class [[nodiscard]] Expected<void, F>
{
public:
    Expected() = default;
    Expected(F failure)
        : m_outcome(std::in_place_index<1>, std::move(failure))
    {
    }

    /// True for success.
    explicit operator bool() const { return m_outcome.index() == 0; }

    const F& failure() const { return std::get<1>(m_outcome); }

private:
    std::variant<std::monostate, F> m_outcome;
};
