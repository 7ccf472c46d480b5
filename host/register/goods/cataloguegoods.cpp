// SPDX-License-Identifier: MIT
#include "cataloguegoods.h"

using namespace Qt::StringLiterals;

std::optional<tr::Tr> CatalogueGoods::obstacleToSelling() const
{
    const std::pair<const GoodsPrice&, tr::Tr> prices[] = {
        {price, {u"goodsNotSoldPrice"_s, u"Товар «%1» не продаётся.\nЕго цена: %2.\n%3"_s}},
        {cataloguePrice,
         {u"goodsNotSoldCataloguePrice"_s, u"Товар «%1» не продаётся.\nЕго цена по каталогу: %2.\n%3"_s}},
        {minRetailPrice,
         {u"goodsNotSoldMinRetailPrice"_s, u"Товар «%1» не продаётся.\nЕго наименьшая цена: %2.\n%3"_s}},
    };
    const tr::Tr next(u"goodsNotSoldNext"_s,
                      u"Выберите другой товар или позовите администратора: цену исправляют в базе товаров."_s);
    for (const auto& [checked, text] : prices) {
        if (!checked) {
            return text.arg(name).arg(checked.failure().ui()).arg(next.ui());
        }
    }
    return std::nullopt;
}
