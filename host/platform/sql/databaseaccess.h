// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>

#include <chrono>

/// How a database is reached: its section of the configuration. A value type.
struct REGISTERPLATFORM_EXPORT DatabaseAccess {
    QString section; ///< the name in the configuration, for messages: "Database" or "Database.<name>"
    QString driver;  ///< a Qt SQL driver
    QString name;    ///< for SQLite the file
    QString host;
    int port = -1; ///< -1: the driver's own
    QString user;
    QString password;
    /// After it a server that does not answer counts as not reachable. It holds for connecting and for each statement.
    std::chrono::seconds timeout{3};

    /// As it is configured now. Main thread.
    static DatabaseAccess configured(const QString& section);

    /// True when there is no server.
    bool isFile() const;

    bool operator==(const DatabaseAccess&) const = default;
};
