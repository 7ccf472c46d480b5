// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>

#include <functional>

/// Lets a test replace an object that the code under test creates for itself.
///
/// A class derives from `MockFactory` of itself and is created with `T::create()`, which makes a new `T`. A test sets
/// `mocked`, and `create()` returns the test's object instead.
///
/// A `T` that several libraries share is forward-declared, then `extern template struct EXPORT MockFactory<T>;`, then
/// defined; it is instantiated in one source file of the library that owns it. `MockFactory` has no virtual members.
template <typename T>
struct MockFactory {
    static QSharedPointer<T> create()
    {
        if (mocked) {
            return mocked();
        }
        return QSharedPointer<T>(new T());
    }

    static std::function<QSharedPointer<T>()> mocked;
};

template <typename T>
std::function<QSharedPointer<T>()> MockFactory<T>::mocked;
