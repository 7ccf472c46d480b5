// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QList>

/// Doses have two decimals, but are sent as binary fractions.
namespace emulator::doses
{
inline constexpr double tolerance = 0.005;

/// The doses of all dispenses that are not cancelled.
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
