// SPDX-License-Identifier: MIT
#pragma once

namespace emulator
{
/// Which requests a fault hits, counted from the moment it is ordered.
struct Occasion {
    static constexpr int everyTime = 0;

    int skip = 0;  ///< requests that pass before the first hit
    int times = 1; ///< how many are hit then; everyTime: all

    /// The next request, or the next few.
    static Occasion next(int times = 1) { return {0, times}; }
    /// Only the nth request, counted from 1.
    static Occasion nth(int number) { return {number - 1, 1}; }
    /// Every request until the faults are cleared.
    static Occasion always() { return {0, everyTime}; }
};
} // namespace emulator
