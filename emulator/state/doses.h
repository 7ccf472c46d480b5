// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QList>

/// Doses are counted in hundredths, but travel as binary fractions.
namespace emulator::doses
{
inline constexpr double tolerance = 0.005;

/// Doses that were handed out and not taken back.
inline double handedOut(const QList<Dispense>& dispenses)
{
    double sum = 0;
    for (const Dispense& dispense : dispenses) {
        if (!dispense.isCancelled) {
            sum += dispense.quantity;
        }
    }
    return sum;
}
} // namespace emulator::doses
