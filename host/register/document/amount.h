// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// An amount of money in whole kopecks.
using Kopecks = qint64;

/// An amount in roubles, rounded to kopecks, halves away from zero. Amounts beyond 1e12 roubles are clamped: only a
/// damaged file or database holds one.
Kopecks kopecks(double roubles);

/// The amount as it is shown: "1 234,50", thousands separated by a no-break space, always two decimals.
QString amountText(Kopecks amount);

/// Reads roubles as a person types them: up to eight digits, and up to two decimals after a comma or a point. Empty for
/// anything else, for example a barcode.
std::optional<Kopecks> typedAmount(const QString& text);
