// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "kopecks.h"
#include "tr.h"

#include <QVariant>

/// A price per pack, or what is wrong with it in the cashier's words, for example "«12,50» — не число".
using GoodsPrice = Expected<Kopecks, tr::Tr>;

/// Reads prices as the goods database holds them: docs/goods-database.md. Numbers may be texts, with a point.
namespace goodsprice
{

/// A price that goods are sold at: a number above 0, with at most two decimals, up to 100 000 000 roubles.
GoodsPrice asked(const QVariant& value);

/// A price that goods need not have: as asked(), or 0 for none. NULL and an empty text are none, too.
GoodsPrice optional(const QVariant& value);

/// What goods have whose price was not read.
GoodsPrice missing();

} // namespace goodsprice
