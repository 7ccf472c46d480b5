// SPDX-License-Identifier: MIT
#pragma once

#include "emulatorsettings.h"

#include <QStringList>

namespace emulator
{
/// What the program was asked to do. With --help or --version it never comes into being: the program ends there.
struct CommandLine {
    EmulatorSettings settings;
    QString seedFile; ///< empty: none

    /// Reads the application's arguments. Throws EmulatorError for those that cannot be used.
    static CommandLine read(const QStringList& arguments);
};
} // namespace emulator
