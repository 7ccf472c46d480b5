// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>

/// What a process holds and uses, and how that changes over many sales.
namespace soak
{

struct Footprint {
    qint64 memory = 0;         ///< resident, in KiB
    qint64 descriptors = 0;    ///< open files, sockets included
    qint64 processorTime = 0;  ///< since the start, in milliseconds
    double stepTime = 0;       ///< of the customer served before, milliseconds a step
    bool isComparable = false; ///< taken after a prescription sale without a fault: one connection is kept
};

/// Reads it from /proc. What cannot be read is 0.
Footprint footprintOf(qint64 process);

/// What the samples of some sales have in common.
struct Window {
    qint64 memory = 0;         ///< median, in KiB
    QList<qint64> descriptors; ///< the different counts of comparable samples
    double stepTime = 0;       ///< median of comparable samples, in milliseconds
    double processorTime = 0;  ///< for each customer, in milliseconds
};

/// @param size samples in a window; the rest of an incomplete last window is left out
QList<Window> windowsOf(const QList<Footprint>& samples, int size);

/// What grew between the second window and the last one, a sentence each. The first window warms caches up.
/// Memory may grow by a tenth, the greatest count of descriptors not at all: the register may hold one less for a
/// while, for example after it has written its journal of requests again.
QStringList growthIn(const QList<Window>& windows);

/// Whether a step takes longer at the end: the median of the last quarter of the comparable samples is more than three
/// times that of the first quarter. A time that grows with each sale makes it seven times as long; a machine that is
/// busy now and then does not make it three. Fewer than 80 comparable samples say nothing.
QStringList slowdownIn(const QList<Footprint>& samples);

} // namespace soak
