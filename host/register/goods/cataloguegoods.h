// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>

/// One kind of goods in the catalogue. Prices are in roubles per pack, the stock is in packs.
struct CatalogueGoods {
    QString code;
    QString barcode;
    QString nonProprietaryName;
    QString name;
    double price = 0.0;
    double cataloguePrice = 0.0;
    double minRetailPrice = 0.0; ///< 0: none
    int stock = 0;

    bool isInStock() const { return stock > 0; }
};

/// Goods that the cashier picked, and the number of packs.
struct SelectedGoods {
    CatalogueGoods goods;
    int packs = 1;
};

Q_DECLARE_METATYPE(SelectedGoods)
