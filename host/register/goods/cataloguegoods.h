// SPDX-License-Identifier: MIT
#pragma once

#include "goodsprice.h"

#include <QMetaType>
#include <QString>

#include <optional>

/// One kind of goods in the catalogue. Prices are per pack.
struct CatalogueGoods {
    QString code;
    QString barcode;
    QString nonProprietaryName;
    QString name;
    GoodsPrice price = goodsprice::missing();
    GoodsPrice cataloguePrice = Kopecks{};
    GoodsPrice minRetailPrice = Kopecks{}; ///< 0: none
    std::optional<int> stock;              ///< in packs; empty: it is not kept

    /// False when nothing is left. Goods whose stock is not kept are in stock.
    bool isInStock() const { return !stock || *stock > 0; }

    /// Why these goods can be seen and not sold: a price of theirs cannot be used. Nothing when they can be sold.
    ///
    /// The catalogue price and the minimum retail price count, too: plug-ins compute what a patient pays from them.
    std::optional<tr::Tr> obstacleToSelling() const;
};

/// Goods that the cashier picked, and the number of packs.
struct SelectedGoods {
    CatalogueGoods goods;
    int packs = 1;
};

Q_DECLARE_METATYPE(SelectedGoods)
