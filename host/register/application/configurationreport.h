// SPDX-License-Identifier: MIT
#pragma once

#include "commandline.h"
#include "configurationkeys.h"

#include <QString>
#include <QStringList>

class Config;

/// The keys of the register and of the plug-ins in a folder, and what is wrong with the configuration.
struct ConfigurationReport {
    ConfigurationKeys keys;
    QStringList problems;       ///< in English, with file, line and key; of values they hold names and paths only
    bool preventsStart = false; ///< the register does not start with one of them

    /// @param config as it was read from the file of `commandLine`. When it could not be read, the lines that are wrong
    ///        are named.
    ConfigurationReport(const Config& config, const CommandLine& commandLine);
};

/// What `--check-config` prints: each problem on a line of its own.
struct ConfigurationCheckResult {
    bool isGood;
    QString output; ///< lines
};

ConfigurationCheckResult checkConfiguration(const CommandLine& commandLine);

/// True when a database of the configuration is a file, and not on a server.
/// @param database its section, such as "Database"
bool isDatabaseFile(const Config& config, const QString& database);

/// What is wrong with a folder of the command line.
QString describe(const NamedFolder& unusable);
