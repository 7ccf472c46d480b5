// SPDX-License-Identifier: MIT
#pragma once

#include "findings.h"

#include <QList>
#include <QString>

class Config;

namespace doctor
{

/// Looks at what the plug-in needs in the configuration: missing keys, values of a wrong type, unknown keys beside
/// them, files that cannot be read, secrets that other users can read. Gives `config` the secrets of files of their
/// own.
///
/// @param file where `config` was read from
/// @return what is wrong, in order; one good finding when nothing is
QList<Finding> checkSettings(Config& config, const QString& file);

} // namespace doctor
