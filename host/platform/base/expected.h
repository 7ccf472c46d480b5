// SPDX-License-Identifier: MIT
#pragma once

#include "failure.h"

#include <type_traits>
#include <utility>
#include <variant>

/// What reading or writing something comes to: the value, or why there is none.
///
/// A value type. It converts from both, so that a function returns either as it is. Asking for the side that is not
/// there throws std::bad_variant_access: look first.
template <typename T, typename F = Failure>
class [[nodiscard]] Expected
{
    static_assert(!std::is_same_v<T, F>, "the value and the failure have to be told apart");

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

    const T& operator*() const { return std::get<0>(m_outcome); }
    T& operator*() { return std::get<0>(m_outcome); }
    const T* operator->() const { return &std::get<0>(m_outcome); }
    T* operator->() { return &std::get<0>(m_outcome); }

    const F& failure() const { return std::get<1>(m_outcome); }

private:
    std::variant<T, F> m_outcome;
};
