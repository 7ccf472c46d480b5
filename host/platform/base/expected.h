// SPDX-License-Identifier: MIT
#pragma once

#include "failure.h"

#include <utility>
#include <variant>

/// A value, or why there is none: what a function that reads or writes returns.
///
///     const Expected<QJsonObject> settings = readJsonObject(file);
///     if (!settings) {
///         log(settings.error().detail);
///         return settings.error();
///     }
///     use(*settings);
///
/// Named like std::expected (C++23, ISO/IEC 14882:2024, 22.8), as far as it goes, except that an error is returned as
/// it is. To ask for the value of an error, or for the error of a value, throws std::bad_variant_access.
template <typename T, typename E = Failure>
class [[nodiscard]] Expected
{
public:
    Expected(T value)
        : m_outcome(std::in_place_index<0>, std::move(value))
    {
    }
    Expected(E error)
        : m_outcome(std::in_place_index<1>, std::move(error))
    {
    }

    bool has_value() const { return m_outcome.index() == 0; }
    explicit operator bool() const { return has_value(); }

    const T& operator*() const& { return std::get<0>(m_outcome); }
    T& operator*() & { return std::get<0>(m_outcome); }
    T&& operator*() && { return std::get<0>(std::move(m_outcome)); }
    const T* operator->() const { return &**this; }
    T* operator->() { return &**this; }

    const E& error() const { return std::get<1>(m_outcome); }

private:
    std::variant<T, E> m_outcome;
};

/// Success without a value, or why it failed: `return {};` is success.
template <typename E>
class [[nodiscard]] Expected<void, E>
{
public:
    Expected() = default;
    Expected(E error)
        : m_outcome(std::in_place_index<1>, std::move(error))
    {
    }

    bool has_value() const { return m_outcome.index() == 0; }
    explicit operator bool() const { return has_value(); }

    const E& error() const { return std::get<1>(m_outcome); }

private:
    std::variant<std::monostate, E> m_outcome;
};
