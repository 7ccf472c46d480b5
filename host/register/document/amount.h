// SPDX-License-Identifier: MIT
#pragma once

#include "kopecks.h"

#include <QString>

#include <optional>

/// The amount as it is shown: "1 234,50", thousands separated by a no-break space, always two decimals.
QString amountText(Kopecks amount);

/// Reads roubles as a person types them: up to eight digits, and up to two decimals after a comma or a point. Empty for
/// anything else, for example a barcode.
std::optional<Kopecks> typedAmount(const QString& text);

/// The packs as they are shown: "2", "0,5"; up to three decimals.
QString packsText(double packs);
