// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <cstdint>
#include <random>
#include <utility>

namespace soak
{

/// Random numbers that are the same for a seed on every platform, which those of std::uniform_int_distribution are not.
class Chance
{
public:
    explicit Chance(uint32_t seed)
        : m_numbers(seed)
    {
    }

    /// From `least` to `most`, both included.
    int between(int least, int most) { return least + int(m_numbers() % uint32_t(most - least + 1)); }
    bool oneIn(int times) { return between(1, times) == 1; }

    template <typename List>
    const auto& anyOf(const List& list)
    {
        return list[std::size_t(between(0, int(std::size(list)) - 1))];
    }

    template <typename T>
    void shuffle(QList<T>& list)
    {
        for (qsizetype last = list.size() - 1; last > 0; --last) {
            std::swap(list[last], list[between(0, int(last))]);
        }
    }

private:
    std::mt19937 m_numbers;
};

/// Deals each card once in a random order, then all of them again in another one.
template <typename T>
class Deck
{
public:
    explicit Deck(QList<T> cards)
        : m_cards(std::move(cards))
    {
    }

    T deal(Chance& chance)
    {
        if (m_left.isEmpty()) {
            m_left = m_cards;
            chance.shuffle(m_left);
        }
        return m_left.takeLast();
    }

private:
    QList<T> m_cards;
    QList<T> m_left;
};

} // namespace soak
