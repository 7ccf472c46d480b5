// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "failure.h"

/// The exception that is being handled, as a failure; to be called in a `catch` block.
///
/// The text is that of a BasicException, else that an internal error happened. The detail names the key of that text,
/// else the type of the exception. Neither what() nor a BasicException's text is in it: they may name a patient.
REGISTERPLATFORM_EXPORT Failure caughtFailure();
