// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"

#include <QList>
#include <QString>

#include <optional>

class QSqlQuery;

/// The goods that the pharmacy sells: table `goods` of the goods database, read only.
///
/// Every operation throws BasicException with a text for the cashier when the database or its table cannot be read.
class GoodsCatalogue
{
public:
    /// Makes sure that the goods can be read.
    void check() const;

    /// The goods of a non-proprietary name, whatever the case; empty: all goods. Sorted by name.
    QList<CatalogueGoods> goodsOf(const QString& nonProprietaryName) const;

    /// The goods with that barcode; none when no goods have it.
    std::optional<CatalogueGoods> byBarcode(const QString& barcode) const;

private:
    static QSqlQuery query(const QString& condition);
    static CatalogueGoods read(const QSqlQuery& row);
    static void run(QSqlQuery& query);
};
