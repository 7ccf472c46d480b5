// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "obstacle.h"
#include "payment.h"

#include <QString>

/// Cash payments.
namespace cashpayment
{

/// The cash that a customer gives for `due`, as the cashier typed it: roubles, see typedAmount(). An empty input means
/// the exact sum. For more, the customer gets change.
Expected<Payment, Obstacle> received(Kopecks due, const QString& typed);

} // namespace cashpayment
