// SPDX-License-Identifier: MIT
#pragma once

/// The one object of its kind in the process.
///
/// `instance` is null at first. The host or a test may set it to an object of its own, and keeps owning that. `get()`
/// creates a default object when there is none; that one lives until the process ends. Main thread only.
///
/// A library built with hidden visibility has its own copy of a template's static member. A `T` that several
/// libraries share therefore declares `extern template struct EXPORT Singleton<T>;` beside itself and is instantiated
/// in one source file of the library that owns it.
template <typename T>
struct Singleton {
    static T* instance;

    static T* get()
    {
        if (!instance) {
            instance = new T();
        }
        return instance;
    }
};

template <typename T>
T* Singleton<T>::instance = nullptr;
