// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "goodskey.h"

/// What a position of these goods is known by.
inline GoodsKey keyOf(const CatalogueGoods& goods)
{
    return {goods.code, goods.barcode, goods.name};
}
