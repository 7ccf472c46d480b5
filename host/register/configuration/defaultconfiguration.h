// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The configuration that a program reads without the option --config: the user's own, or the machine's
/// (docs/installing.md).
QString defaultConfiguration();

/// @return the user's own when it is there, otherwise the machine's when that is there; the user's when neither is
QString defaultConfiguration(const QString& ofUser, const QString& ofMachine);
