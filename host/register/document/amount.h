// SPDX-License-Identifier: MIT
#pragma once

#include "kopecks.h"

#include <QString>

#include <optional>

/// The amount as a sentence says it: amountFigures() and the currency, "1 234,50 BYN". No line breaks within it.
QString amountText(Kopecks amount);

/// The amount without its currency, for columns and fields: "1 234,50". Thousands are separated by a no-break space,
/// there are always two decimals, and what is below zero has a minus sign (U+2212).
QString amountFigures(Kopecks amount);

/// What `Register:currency` names, by default BYN (ISO 4217); empty: amounts are shown without a currency.
QString currency();

/// The caption of amounts that are shown without their currency: "Сумма, BYN".
QString captionWithCurrency(const QString& caption);

/// Reads roubles as a person types them: up to eight digits, and up to two decimals after a comma or a point. Empty for
/// anything else, for example a barcode.
std::optional<Kopecks> typedAmount(const QString& text);

/// The packs as they are shown: "2", "0,5"; up to three decimals.
QString packsText(double packs);
