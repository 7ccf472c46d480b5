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

/// The cash that a customer gives when the rest of `due` is paid by card: less than `due`. An empty input means 0.
Expected<Kopecks, Obstacle> besideCard(Kopecks due, const QString& typed);

/// True when nobody gives so much: the change holds the greatest banknote, 5000 roubles, so that the customer would
/// have handed over at least one too many. A scanned EAN-8 looks like such an amount.
bool isAbsurd(Kopecks due, Kopecks received);

} // namespace cashpayment
