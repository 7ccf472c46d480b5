// SPDX-License-Identifier: MIT
#pragma once

#include "configurationkeys.h"

#include <QList>
#include <QString>

class Config;

/// Something in the configuration that does not do what its writer meant.
struct ConfigurationFinding {
    QString key;  ///< "section:key"
    int line;     ///< in the file, from 1; 0: it cannot be found there
    QString text; ///< what is wrong and what to do, in English; of values it has paths of files and folders only
    bool preventsStart = false; ///< the register does not start with it

    /// For a person: "register.ini:12: [Register] UnlockCode: unknown key …".
    QString description(const QString& file) const;
};

/// Holds each key of the configuration against what is known of it: unknown keys, values of a wrong type or out of
/// range, files and folders that are missing or cannot be read, and secrets that other users of the machine can read.
///
/// @param config as it was read, before anything is set for this run
/// @param file where it was read from
/// @return in the order of the lines
QList<ConfigurationFinding> checkConfiguration(const Config& config, const QString& file,
                                               const ConfigurationKeys& keys);
