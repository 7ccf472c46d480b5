// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <chrono>

/// Whether the screen is locked, and the wrong codes that were tried since. Kept in a file of the data folder: a
/// register that ended while it was locked comes back locked, and a restart does not shorten the wait for the next try.
class LockState
{
public:
    /// @param folder the register's data folder
    explicit LockState(const QString& folder);

    bool isLocked() const { return m_isLocked; }
    void lock();
    void unlock();

    void countWrongTry();
    /// How long the next code is not taken; 0: it is taken now. Two wrong codes cost nothing. After the third the wait
    /// is 5 seconds; it doubles with each further one, up to 5 minutes.
    std::chrono::seconds wait();

private:
    void read();
    void save() const;

    QString m_folder;
    bool m_isLocked = false;
    int m_wrongTries = 0;
    QDateTime m_lastTry; ///< the last wrong one
};
