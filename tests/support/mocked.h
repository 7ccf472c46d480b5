// SPDX-License-Identifier: MIT
#pragma once

#include "mockfactory.h"

#include <QSharedPointer>

#include <functional>
#include <utility>

/// Has T::create() give what the test says for as long as it lives.
template <typename T>
class Mocked
{
public:
    /// @param make called by each T::create()
    explicit Mocked(std::function<QSharedPointer<T>()> make)
        : m_former(std::exchange(MockFactory<T>::mocked, std::move(make)))
    {
    }
    /// @param object given by every T::create()
    explicit Mocked(const QSharedPointer<T>& object)
        : Mocked([object] { return object; })
    {
    }
    ~Mocked() { MockFactory<T>::mocked = std::move(m_former); }
    Q_DISABLE_COPY_MOVE(Mocked)

private:
    std::function<QSharedPointer<T>()> m_former;
};
