// SPDX-License-Identifier: MIT
#pragma once

#include "goodsprice.h"

#include <QMetaType>
#include <QString>

#include <optional>

/// One kind of goods in the catalogue. Prices are per pack, the stock is in packs.
struct CatalogueGoods {
    QString code;
    QString barcode;
    QString nonProprietaryName;
    QString name;
    GoodsPrice price = goodsprice::missing();
    GoodsPrice cataloguePrice = Kopecks{};
    GoodsPrice minRetailPrice = Kopecks{}; ///< 0: none
    int stock = 0;

    bool isInStock() const { return stock > 0; }

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
