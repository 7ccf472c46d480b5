// SPDX-License-Identifier: MIT
#include "goodsprice.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace goodsprice
{

namespace
{

constexpr double greatest = 1e8;
/// In roubles; more than what a binary fraction loses.
constexpr double lostInBinary = 1e-7;

bool isMissing(const QVariant& value)
{
    return value.isNull() || value.toString().trimmed().isEmpty();
}

bool isWholeKopecks(double roubles)
{
    const auto rounded = Kopecks::fromRoubles(roubles);
    return rounded && std::abs(roubles - rounded->toRoubles()) <= lostInBinary;
}

GoodsPrice wrong(const tr::Tr& what, const QVariant& value)
{
    return what.arg(value.toString());
}

/// A price of 0 or more.
GoodsPrice number(const QVariant& value)
{
    bool isNumber = false;
    const double roubles = value.toDouble(&isNumber);
    if (!isNumber || std::isnan(roubles)) {
        return wrong({u"goodsPriceNoNumber"_s, u"«%1» — не число"_s}, value);
    }
    if (roubles < 0.0) {
        return wrong({u"goodsPriceNegative"_s, u"%1 — меньше нуля"_s}, value.toString().replace(u'-', u'\u2212'));
    }
    if (roubles > greatest) {
        return wrong({u"goodsPriceTooGreat"_s, u"%1 — больше 100 000 000"_s}, value);
    }
    if (!isWholeKopecks(roubles)) {
        return wrong({u"goodsPriceTooFine"_s, u"%1 — больше двух знаков после запятой"_s}, value);
    }
    return *Kopecks::fromRoubles(roubles);
}

} // namespace

GoodsPrice asked(const QVariant& value)
{
    if (isMissing(value)) {
        return missing();
    }
    GoodsPrice price = number(value);
    if (price && *price == Kopecks{}) {
        return wrong({u"goodsPriceZero"_s, u"%1 — не больше нуля"_s}, value);
    }
    return price;
}

GoodsPrice optional(const QVariant& value)
{
    return isMissing(value) ? Kopecks{} : number(value);
}

GoodsPrice missing()
{
    return tr::Tr(u"goodsPriceMissing"_s, u"не указана"_s);
}

} // namespace goodsprice
