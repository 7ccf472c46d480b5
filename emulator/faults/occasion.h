// SPDX-License-Identifier: MIT
#pragma once

namespace emulator
{
/// Which requests a fault is to meet, counted from the moment in which it is ordered.
struct Occasion {
    static constexpr int everyTime = 0;

    int skip = 0;  ///< requests that pass before the first that is met
    int times = 1; ///< how many are met then; everyTime: all

    /// The next request, or the next few.
    static Occasion next(int times = 1) { return {0, times}; }
    /// Only the nth request, counted from 1.
    static Occasion nth(int number) { return {number - 1, 1}; }
    /// Every request until the faults are cleared.
    static Occasion always() { return {0, everyTime}; }
};
} // namespace emulator
