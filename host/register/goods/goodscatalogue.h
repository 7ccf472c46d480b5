// SPDX-License-Identifier: MIT
#pragma once

#include "goodslist.h"

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

    /// The goods with that non-proprietary name, compared as searchText(), sorted by name; all goods when it is empty.
    GoodsList goodsOf(const QString& nonProprietaryName) const;

    std::optional<CatalogueGoods> byBarcode(const QString& barcode) const;

private:
    static QSqlQuery query(const QString& condition);
    static CatalogueGoods read(const QSqlQuery& row);
    static void run(QSqlQuery& query);
};
