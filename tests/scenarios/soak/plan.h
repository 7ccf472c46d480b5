// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>

#include <cstdint>

/// Many customers, planned beforehand: what the cashier does, which requests go wrong, and what must come of it.
namespace soak
{

/// One customer, who buys or returns something.
struct Visit {
    QByteArrayList steps;      ///< of the scenario
    QJsonArray faults;         ///< orders for the emulator; each hits one of the visit's requests
    bool isComparable = false; ///< a prescription sale without a fault
    int document = 0;          ///< its number; it is closed in the end
    qint64 total = 0;          ///< kopecks that came in; negative: that were paid out
};

struct Plan {
    QList<Visit> visits;
    QJsonObject seed; ///< of the emulator: the patients and their prescriptions
    int prescriptionSales = 0;
    int returns = 0;
};

/// Half of the sales are with prescriptions, a tenth is returned a few customers later. Two in five prescription sales
/// and half of the returns meet a fault. The cashier repeats the command, and the register finds out what became of the
/// request; now and then its question fails, too.
///
/// @param sales a multiple of 20
/// @param seed the same seed makes the same plan
Plan planFor(int sales, uint32_t seed);

/// Sales without prescriptions and without faults.
Plan planWithoutRegistry(int sales, uint32_t seed);

} // namespace soak
