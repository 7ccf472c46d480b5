// SPDX-License-Identifier: MIT
#pragma once

/// How long a test waits for another program, in milliseconds. It only ends a test that fails.
inline constexpr int patience = 60'000;
