// SPDX-License-Identifier: MIT
#include "kopecks.h"

#include <cmath>

namespace
{

/// More than any till takes in. Two decimals of such an amount still fit into a double.
constexpr double largestRoubles = 1e13;

/// In kopecks; more than the error of a binary fraction, and less than anyone means.
constexpr double lostInBinary = 1e-6;

constexpr qint64 thousandthsOfAPack = 1000;

} // namespace

std::optional<Kopecks> Kopecks::fromRoubles(double roubles)
{
    if (!(std::abs(roubles) <= largestRoubles)) { // neither is NaN
        return std::nullopt;
    }
    return Kopecks{std::llround(roubles * 100.0 + std::copysign(lostInBinary, roubles))};
}

double Kopecks::toRoubles() const
{
    return double(m_count) / 100.0;
}

Kopecks Kopecks::forPacks(double packs) const
{
    const qint64 thousandths = std::llround(packs * thousandthsOfAPack);
    const qint64 rest = m_count * (thousandths % thousandthsOfAPack);
    const qint64 half = rest < 0 ? -thousandthsOfAPack / 2 : thousandthsOfAPack / 2;
    return Kopecks{m_count * (thousandths / thousandthsOfAPack) + (rest + half) / thousandthsOfAPack};
}
