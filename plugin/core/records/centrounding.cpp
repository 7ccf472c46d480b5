// SPDX-License-Identifier: MIT
#include "centrounding.h"

#include <cmath>

double roundToCents(double value)
{
    const double sign = value > 0.0 ? 1.0 : (value < 0.0 ? -1.0 : 0.0);
    const double hundredths = (value + 0.005 * sign) * 100.0 + 0.001 * sign;
    // Adding 0.0 turns a negative zero, which would be sent as "-0", into zero.
    return (std::trunc(hundredths) + 0.0) / 100.0;
}
