// SPDX-License-Identifier: MIT
#pragma once

#include "startupfailure.h"

#include <QLockFile>

#include <optional>

/// Takes the lock of a data folder, so that no second register works with it.
///
/// A lock whose process is gone is taken over. So is a lock file that says nothing of its owner, as a power cut leaves
/// it, unless a living process holds it. The lock of another computer is not: whether its register lives cannot be seen
/// from here.
/// @param lock of the folder's lock file
/// @return why the register cannot work there, with the lock file's name and what to do
std::optional<StartupFailure> takeLock(QLockFile& lock);
