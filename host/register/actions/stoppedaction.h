// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "tr.h"

/// What the cashier reads when a plug-in ended an action before the register's part of it.
namespace stoppedaction
{

/// The plug-in stopped the action.
tr::Tr stopped(const control::Action& action);

/// The plug-in knows nothing of what the action is about.
tr::Tr notFound(const control::Action& action);

} // namespace stoppedaction
