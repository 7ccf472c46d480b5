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
    QStringList problems; ///< in English, with file, line and key; of values they hold paths only

    /// @param config as it was read from `file`
    ConfigurationReport(const Config& config, const QString& file, const QString& pluginFolder);
};

/// What `--check-config` prints: each problem on a line of its own.
struct ConfigurationCheckResult {
    bool isGood;
    QString output; ///< lines
};

ConfigurationCheckResult checkConfiguration(const CommandLine& commandLine);
