// SPDX-License-Identifier: MIT
#pragma once

#include "startupfailure.h"

#include <optional>

/// Makes sure that Qt finds a display; without one the constructor of QApplication ends the program. Call it before.
///
/// A display is named by DISPLAY or WAYLAND_DISPLAY; QT_QPA_PLATFORM may name a platform that needs none.
/// @param playsScenario without a display a scenario is played on an off-screen window
std::optional<StartupFailure> chooseDisplay(bool playsScenario);
