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
    bool preventsStart = false; ///< one of them is about a file or a folder that cannot be used

    /// @param config as it was read from `file`. When it could not be read, the lines that are wrong are named.
    ConfigurationReport(const Config& config, const QString& file, const QString& pluginFolder);
};

/// What `--check-config` prints: each problem on a line of its own.
struct ConfigurationCheckResult {
    bool isGood;
    QString output; ///< lines
};

ConfigurationCheckResult checkConfiguration(const CommandLine& commandLine);

/// What is wrong with a folder of the command line.
QString describe(const NamedFolder& unusable);
/// What is wrong with a key of the configuration file, with the line where it is.
QString describe(const QString& key, const QString& text, const QString& file);
