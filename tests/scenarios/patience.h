// SPDX-License-Identifier: MIT
#pragma once

/// How long a test waits for another program, in milliseconds; long, since it only bounds a failure.
inline constexpr int patience = 60'000;
