// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"

#include <QList>
#include <QString>

#include <optional>

class QSqlQuery;

/// The goods that the pharmacy sells: the table `goods` of the goods database, read only.
///
/// Every operation throws BasicException with a text for the cashier when the table cannot be read.
class GoodsCatalogue
{
public:
    /// Throws unless the goods can be read.
    void check() const;

    /// The goods with that non-proprietary name in any case, sorted by name; all goods when it is empty.
    QList<CatalogueGoods> goodsOf(const QString& nonProprietaryName) const;

    /// The goods with that bar code, sorted by name.
    QList<CatalogueGoods> withBarcode(const QString& barcode) const;
    /// The first one of them.
    std::optional<CatalogueGoods> byBarcode(const QString& barcode) const;

private:
    static QSqlQuery query(const QString& condition);
    static CatalogueGoods read(const QSqlQuery& row);
    static void run(QSqlQuery& query);
    static void sort(QList<CatalogueGoods>& goods);
};
