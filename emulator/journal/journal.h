// SPDX-License-Identifier: MIT
#pragma once

#include "journalentry.h"

namespace emulator
{
/// Remembers every request to the registry, the latest ten thousand of them. It is kept in memory and is written
/// nowhere, since requests hold tokens and secrets.
class Journal
{
public:
    static constexpr qsizetype capacity = 10'000;

    /// Adds a request and returns its number, counted from 1 since the emulator was started.
    qint64 add(JournalEntry entry);
    /// Tells how a request was answered; for one that is no longer there, nothing happens.
    void answered(qint64 number, bool whole);

    /// Oldest first.
    const QList<JournalEntry>& entries() const { return m_entries; }
    /// The requests to that endpoint, oldest first.
    QList<JournalEntry> entriesOf(Endpoint endpoint) const;
    int count(Endpoint endpoint) const;
    /// Forgets all; numbers go on.
    void clear();

private:
    QList<JournalEntry> m_entries;
    qint64 m_lastNumber = 0;
};
} // namespace emulator
