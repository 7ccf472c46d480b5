// SPDX-License-Identifier: MIT
#pragma once

#include "journalentry.h"

namespace emulator
{
/// The latest ten thousand requests to the registry. They are in memory only, because they hold tokens and secrets.
class Journal
{
public:
    static constexpr qsizetype capacity = 10'000;

    /// Adds a request, and returns its number, counted from 1 since the start of the emulator.
    qint64 add(JournalEntry entry);
    /// Notes whether the whole answer was sent. A request that is no longer there is ignored.
    void answered(qint64 number, bool whole);

    /// Oldest first.
    const QList<JournalEntry>& entries() const { return m_entries; }
    /// The requests to that endpoint, oldest first; Endpoint::Any: all.
    QList<JournalEntry> entriesOf(Endpoint endpoint) const;
    int count(Endpoint endpoint) const;
    /// Forgets all requests; the numbers go on.
    void clear();

private:
    QList<JournalEntry> m_entries;
    qint64 m_lastNumber = 0;
};
} // namespace emulator
