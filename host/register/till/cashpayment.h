// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "obstacle.h"
#include "payment.h"

#include <QString>

/// Cash across the counter.
namespace cashpayment
{

/// The cash that a customer gives for `due`, as the cashier typed it: roubles, see typedAmount(). Nothing typed means
/// exactly the sum; of more, the change is handed out.
Expected<Payment, Obstacle> received(Kopecks due, const QString& typed);

} // namespace cashpayment
