// SPDX-License-Identifier: MIT
#include "goodscatalogue.h"

#include "basicexception.h"
#include "connectionfactory.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
[[noreturn]] void throwUnreadable(const QSqlError& error)
{
    throw BasicException(tr::Tr(u"goodsCatalogueUnreadable"_s,
                                u"Справочник товаров недоступен: %1\nПроверьте базу данных товаров "
                                "и повторите или позовите администратора."_s)
                             .arg(error.text()));
}
} // namespace

void GoodsCatalogue::check() const
{
    query({});
}

QList<CatalogueGoods> GoodsCatalogue::goodsOf(const QString& nonProprietaryName) const
{
    QSqlQuery rows = query({});
    run(rows);
    const QString wanted = nonProprietaryName.trimmed();
    QList<CatalogueGoods> goods;
    while (rows.next()) {
        CatalogueGoods row = read(rows);
        if (wanted.isEmpty() || row.nonProprietaryName.compare(wanted, Qt::CaseInsensitive) == 0) {
            goods.append(std::move(row));
        }
    }
    sort(goods);
    return goods;
}

QList<CatalogueGoods> GoodsCatalogue::withBarcode(const QString& barcode) const
{
    QSqlQuery rows = query(u" WHERE barcode = ?"_s);
    rows.addBindValue(barcode);
    run(rows);
    QList<CatalogueGoods> goods;
    while (rows.next()) {
        goods.append(read(rows));
    }
    sort(goods);
    return goods;
}

std::optional<CatalogueGoods> GoodsCatalogue::byBarcode(const QString& barcode) const
{
    const QList<CatalogueGoods> goods = withBarcode(barcode);
    return goods.isEmpty() ? std::nullopt : std::optional(goods.first());
}

QSqlQuery GoodsCatalogue::query(const QString& condition)
{
    QSqlQuery prepared(Singleton<ConnectionFactory>::get()->getConnection({}, {}));
    prepared.setForwardOnly(true);
    const QString text = u"SELECT code, barcode, inn, name, price, catalogueprice, minretailprice, stock "
                         "FROM goods"_s;
    if (!prepared.prepare(text + condition)) {
        throwUnreadable(prepared.lastError());
    }
    return prepared;
}

CatalogueGoods GoodsCatalogue::read(const QSqlQuery& row)
{
    return {
        .code = row.value(0).toString(),
        .barcode = row.value(1).toString(),
        .nonProprietaryName = row.value(2).toString(),
        .name = row.value(3).toString(),
        .price = goodsprice::asked(row.value(4)),
        .cataloguePrice = goodsprice::optional(row.value(5)),
        .minRetailPrice = goodsprice::optional(row.value(6)),
        .stock = row.value(7).toInt(),
    };
}

void GoodsCatalogue::run(QSqlQuery& query)
{
    if (!query.exec()) {
        throwUnreadable(query.lastError());
    }
}

void GoodsCatalogue::sort(QList<CatalogueGoods>& goods)
{
    std::stable_sort(goods.begin(), goods.end(), [](const CatalogueGoods& left, const CatalogueGoods& right) {
        return QString::localeAwareCompare(left.name, right.name) < 0;
    });
}
