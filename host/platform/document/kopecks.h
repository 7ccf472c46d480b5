// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QtGlobal>

#include <compare>
#include <concepts>
#include <optional>

/// An amount of money in whole kopecks, a value type. Sums and products are exact; only forPacks() and fromRoubles()
/// round.
class REGISTERPLATFORM_EXPORT Kopecks
{
public:
    constexpr Kopecks() = default;
    template <std::integral Count>
    explicit constexpr Kopecks(Count count)
        : m_count(count)
    {
    }

    /// An amount in roubles, rounded to kopecks, halves away from zero. What binary fractions lose is made up
    /// for: 1.005 becomes 101 kopecks.
    /// @return empty for NaN, for infinities and beyond 1e13 roubles
    static std::optional<Kopecks> fromRoubles(double roubles);
    /// The number nearest to the amount in roubles: written as short as possible, it has two decimals at most.
    double toRoubles() const;

    constexpr qint64 count() const { return m_count; }

    /// The price of so many packs, this being the price of one; rounded to kopecks, halves away from zero.
    /// @param packs up to three decimals
    Kopecks forPacks(double packs) const;

    constexpr auto operator<=>(const Kopecks&) const = default; // NOLINT(modernize-use-nullptr): not in <=>

    constexpr Kopecks operator-() const { return Kopecks{-m_count}; }
    constexpr Kopecks& operator+=(Kopecks other)
    {
        m_count += other.m_count;
        return *this;
    }
    constexpr Kopecks& operator-=(Kopecks other) { return *this += -other; }

private:
    qint64 m_count = 0;
};

constexpr Kopecks operator+(Kopecks left, Kopecks right)
{
    return left += right;
}

constexpr Kopecks operator-(Kopecks left, Kopecks right)
{
    return left -= right;
}

constexpr Kopecks operator*(Kopecks amount, int times)
{
    return Kopecks{amount.count() * times};
}
