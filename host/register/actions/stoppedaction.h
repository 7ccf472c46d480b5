// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "tr.h"

/// Messages for an action that a plug-in ended before the register's own part.
namespace stoppedaction
{

/// The plug-in stopped the action. Repeats the last message that the cashier has read, FormHost::lastMessage.
tr::Tr stopped(const control::Action& action);

/// The plug-in does not know the position or the document that the action is about.
tr::Tr notFound(const control::Action& action);

} // namespace stoppedaction
