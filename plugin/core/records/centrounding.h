// SPDX-License-Identifier: MIT
#pragma once

/// Rounds an amount, a percentage or a quantity to two decimals, halves away from zero:
/// trunc((x + 0.005 s) 100 + 0.001 s) / 100, where s is the sign of x.
///
/// The extra 0.001 hundredths absorb the error of the binary representation, so that 2.675 becomes 2.68. The registry
/// compares amounts that were rounded this way. A library's rounding gives other cents for such halves, and so does a
/// fused multiply-add. Infinities and NaN are returned unchanged.
double roundToCents(double value);
