// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

/// "GUI:touchMode" of the configuration: the cashier works with a finger, so that targets are larger and a keyboard is
/// on the screen.
REGISTERPLATFORM_EXPORT bool isTouchMode();
