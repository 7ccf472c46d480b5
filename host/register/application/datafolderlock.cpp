// SPDX-License-Identifier: MIT
#include "datafolderlock.h"

#include <QFileInfo>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace
{

struct LockOwner {
    qint64 process = 0;
    QString host;
    QString application;
};

/// Nothing when the lock file does not say.
std::optional<LockOwner> ownerOf(const QLockFile& lock)
{
    LockOwner owner;
    if (!lock.getLockInfo(&owner.process, &owner.host, &owner.application)) {
        return std::nullopt;
    }
    return owner;
}

bool tryLock(QLockFile& lock)
{
    lock.setStaleLockTime(0); // only a lock whose process is gone is stale, whatever its age
    if (lock.tryLock(0)) {
        return true;
    }
    const bool saysNothing = lock.error() == QLockFile::LockFailedError && !ownerOf(lock);
    return saysNothing && lock.removeStaleLockFile() && lock.tryLock(0);
}

StartupFailure cannotBeWritten(const QString& file)
{
    return {exitstatus::noDataFolder, u"The lock file "_s + file +
                                          u" cannot be written\nMake room on the disk, or give the register the right "
                                          "to write there"_s};
}

StartupFailure heldElsewhere(const QString& file, const LockOwner& owner)
{
    return {
        exitstatus::alreadyRunning,
        u"The data folder is locked by process %1 of the computer %2: %3\nIf no register works with it there, delete "
        "that file. Otherwise name another folder with --data DIR"_s.arg(owner.process)
            .arg(owner.host, file)};
}

StartupFailure heldHere(const QString& file, const std::optional<LockOwner>& owner)
{
    const QString process = owner ? u" (process %1)"_s.arg(owner->process) : QString();
    return {exitstatus::alreadyRunning,
            u"Another register%1 works with the data folder %2\nIts lock file is %3\n"
            "Close it, or name another folder with --data DIR"_s.arg(process, QFileInfo(file).path(), file)};
}

} // namespace

std::optional<StartupFailure> takeLock(QLockFile& lock)
{
    if (tryLock(lock)) {
        return std::nullopt;
    }
    const QString file = lock.fileName();
    if (lock.error() != QLockFile::LockFailedError || !QFileInfo(file).isFile()) {
        return cannotBeWritten(file);
    }
    const std::optional<LockOwner> owner = ownerOf(lock);
    if (owner && owner->host != QSysInfo::machineHostName()) {
        return heldElsewhere(file, *owner);
    }
    return heldHere(file, owner);
}
