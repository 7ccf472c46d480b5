// SPDX-License-Identifier: MIT
#include "display.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

std::optional<StartupFailure> chooseDisplay(bool playsScenario)
{
    constexpr std::array displays{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    if (!std::all_of(displays.begin(), displays.end(), qEnvironmentVariableIsEmpty)) {
        return std::nullopt;
    }
    if (!playsScenario) {
        return StartupFailure{exitstatus::noDisplay,
                              u"There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set\n"
                              "Start the register in a graphical session"_s};
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::nullopt;
}
