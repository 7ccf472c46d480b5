// SPDX-License-Identifier: MIT
#pragma once

#include "emulatorsettings.h"

#include <QStringList>

namespace emulator
{
/// What the program is asked to do.
struct CommandLine {
    EmulatorSettings settings;
    QString seedFile; ///< empty: none

    /// Reads the application's arguments. --help and --version end the program here. Throws EmulatorError for
    /// arguments that cannot be used.
    static CommandLine read(const QStringList& arguments);
};
} // namespace emulator
