// SPDX-License-Identifier: MIT
#include "fileidentity.h"

#include <QFile>

#include <sys/stat.h>

namespace
{
constexpr qint64 nanosecondsPerSecond = 1'000'000'000;
}

std::optional<FileIdentity> FileIdentity::of(const QString& path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0) {
        return std::nullopt;
    }
    return FileIdentity{
        .device = status.st_dev,
        .inode = status.st_ino,
        .size = status.st_size,
        .modified = status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec,
    };
}
