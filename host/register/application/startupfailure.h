// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Why the register cannot start.
struct StartupFailure {
    int exitStatus;
    QString message;
};

/// The register's exit statuses.
namespace exitstatus
{
inline constexpr int done = 0;
inline constexpr int scenarioFailed = 1;
inline constexpr int wrongOptions = 2;
inline constexpr int noConfiguration = 3;
inline constexpr int noDataFolder = 4;
inline constexpr int alreadyRunning = 5;
inline constexpr int noScenario = 6;
inline constexpr int noDisplay = 7;
inline constexpr int damagedDocumentInTheWay = 8;
inline constexpr int actionWithoutEnd = 9;
} // namespace exitstatus
