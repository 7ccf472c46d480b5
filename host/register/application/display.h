// SPDX-License-Identifier: MIT
#pragma once

#include "startupfailure.h"

#include <optional>

/// Sees to it that Qt finds a display, since without one it ends the program in the middle of QApplication's
/// constructor. To be called before that.
///
/// There is one when DISPLAY or WAYLAND_DISPLAY names it, or QT_QPA_PLATFORM says how to do without.
/// @param played a scenario is played: without a display it is played off the screen
std::optional<StartupFailure> chooseDisplay(bool played);
