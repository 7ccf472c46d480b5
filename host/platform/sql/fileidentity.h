// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// Which file a path leads to, and which state of it. A value type.
struct FileIdentity {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;     ///< bytes
    qint64 modified = 0; ///< nanoseconds since 1970

    /// Nothing when there is no file.
    static std::optional<FileIdentity> of(const QString& path);

    bool operator==(const FileIdentity&) const = default;
};
