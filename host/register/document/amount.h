// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// An amount of money in whole kopecks.
using Kopecks = qint64;

/// The nearest whole kopecks of an amount in roubles, halves away from zero. An amount of more than a million million
/// roubles, which only a damaged file or database holds, counts as that much.
Kopecks kopecks(double roubles);

/// As the cashier reads it: "1 234,50", thousands apart by a no-break space, always two decimals.
QString amountText(Kopecks amount);

/// Roubles as a person types them: up to eight digits and two decimals after a comma or point. Nothing for anything
/// else, such as a barcode.
std::optional<Kopecks> typedAmount(const QString& text);
