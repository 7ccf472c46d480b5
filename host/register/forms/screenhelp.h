// SPDX-License-Identifier: MIT
#pragma once

#include "formhelp.h"

/// What the help says of a screen of the register. A plug-in's forms bring theirs themselves, see BasicForm::help().
///
/// @param screen the object name of a form's root; "idle", "positions", "subtotal", "payment" or "payOut" of the sales
///        screen. Of another one: what holds in every form
FormHelp screenHelp(const QString& screen);
