// SPDX-License-Identifier: MIT
#pragma once

#include "singleton.h"

#include <QtGlobal>

#include <utility>

/// Puts an object in a singleton's place for as long as it lives, and the former one back.
template <typename T>
class InPlace
{
public:
    /// @param object outlives this; null: the singleton is made when it is first asked for
    explicit InPlace(T* object)
        : m_former(std::exchange(Singleton<T>::instance, object))
    {
    }
    ~InPlace() { Singleton<T>::instance = m_former; }
    Q_DISABLE_COPY_MOVE(InPlace)

private:
    T* m_former;
};

/// A singleton of the test's own, in its place for as long as it lives.
///
/// @tparam Object what is put there: the class itself, or one that derives from it
template <typename T, typename Object = T>
class Own
{
public:
    /// @param arguments those of Object's constructor
    template <typename... Arguments>
    explicit Own(Arguments&&... arguments)
        : object(std::forward<Arguments>(arguments)...)
    {
    }

    Object object;

private:
    InPlace<T> m_place{&object};
};
