// SPDX-License-Identifier: MIT
#pragma once

#include "configurationkeys.h"
#include "expected.h"

#include <QString>

class Config;

/// The file that a key such as "Database:passwordFile" names. A relative path is taken in the folder that the
/// environment's CREDENTIALS_DIRECTORY names, where systemd puts credentials, otherwise in the folder of the
/// configuration.
QString secretFilePath(const QString& configured, const QString& configurationFile);

/// The content of a file that holds one secret, without the line break at its end: UTF-8 of at most 64 KiB. It is a
/// failure when the file is missing, is no file, cannot be read, is empty, too large, or no text; the detail names the
/// file, and nothing of its content.
Expected<QString> readSecretFile(const QString& file);

/// Gives each secret whose file is configured the content of that file, for this run. The file wins over a value.
/// A failure's detail also names the key.
Expected<void> readSecretFiles(Config& config, const ConfigurationKeys& keys, const QString& configurationFile);
