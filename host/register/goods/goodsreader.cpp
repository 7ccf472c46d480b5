// SPDX-License-Identifier: MIT
#include "goodsreader.h"

#include "connectionwatch.h"
#include "goodsprice.h"
#include "queryguard.h"
#include "searchtext.h"
#include "sqlfailure.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// A server may take longer over all goods than over one question, as long as something comes.
constexpr int timeoutsForAllGoods = 10;

/// Nothing for NULL, and for a text that is no number.
std::optional<int> stockOf(const QVariant& value)
{
    bool isNumber = false;
    const int packs = value.toInt(&isNumber);
    return isNumber && !value.isNull() ? std::optional(packs) : std::nullopt;
}

CatalogueGoods goodsOf(const QSqlQuery& row)
{
    return {
        .code = row.value(0).toString(),
        .barcode = row.value(1).toString(),
        .nonProprietaryName = row.value(2).toString(),
        .name = row.value(3).toString(),
        .price = goodsprice::asked(row.value(4)),
        .cataloguePrice = goodsprice::optional(row.value(5)),
        .minRetailPrice = goodsprice::optional(row.value(6)),
        .stock = stockOf(row.value(7)),
    };
}

bool isNameBefore(const CatalogueGoods& left, const CatalogueGoods& right)
{
    return QString::localeAwareCompare(left.name, right.name) < 0;
}

/// Changes whenever another program has changed the file; empty for a server, which has no such number.
QString versionOf(const QSqlDatabase& database, bool isFile)
{
    QSqlQuery query(database);
    return isFile && query.exec(u"PRAGMA data_version"_s) && query.next() ? query.value(0).toString() : QString();
}

} // namespace

GoodsReader::GoodsReader(const DatabaseAccess& access, std::chrono::seconds freshness)
    : m_connection(access)
    , m_freshness(freshness)
{
}

Expected<GoodsList> GoodsReader::all()
{
    return attempt([this](const QSqlDatabase& database) -> Expected<GoodsList> {
        if (isListCurrent(database)) {
            return *m_all;
        }
        return readAll(database);
    });
}

Expected<GoodsList> GoodsReader::ofName(const QString& nonProprietaryName)
{
    return attempt([&](const QSqlDatabase& database) { return readOfName(database, nonProprietaryName); });
}

Expected<GoodsList> GoodsReader::withBarcode(const QString& barcode)
{
    return attempt([&](const QSqlDatabase& database) { return rows(database, u" WHERE barcode = ?"_s, {barcode}); });
}

void GoodsReader::keep(const GoodsList& all)
{
    m_all = all;
    m_age.start();
}

Expected<bool> GoodsReader::takeReplacedFile()
{
    return m_connection.takeReplacedFile([this](const QSqlDatabase& database) -> Expected<void> {
        const Expected<GoodsList> goods = readAll(database);
        m_version.clear(); // the list is of a connection that is not kept
        return goods ? Expected<void>() : goods.failure();
    });
}

Expected<GoodsList> GoodsReader::attempt(const Reading& reading)
{
    const bool wasOpen = m_connection.isOpen();
    if (const Expected<void> opened = m_connection.open(); !opened) {
        return opened.failure();
    }
    Expected<GoodsList> goods = reading(m_connection.database());
    if (!goods && (!access().isFile() || !m_hasRead)) {
        m_connection.close();
        if (wasOpen && !m_isSilent) {
            goods = attempt(reading);
        }
    }
    m_hasRead = m_hasRead || goods;
    return goods;
}

bool GoodsReader::isListCurrent(const QSqlDatabase& database) const
{
    if (!m_all) {
        return false;
    }
    if (access().isFile()) {
        return !m_version.isEmpty() && versionOf(database, true) == m_version;
    }
    return m_age.elapsed() < std::chrono::milliseconds(m_freshness).count();
}

Expected<GoodsList> GoodsReader::readAll(const QSqlDatabase& database)
{
    const QString version = versionOf(database, access().isFile()); // first: a change while reading is not overlooked
    std::optional<QueryGuard> limit;
    if (!access().isFile()) {
        limit.emplace(database, timeoutsForAllGoods * access().timeout);
    }
    Expected<GoodsList> goods = rows(database, {}, {});
    if (goods) {
        m_all = *goods;
        m_version = version;
        m_age.start();
    }
    return goods;
}

Expected<GoodsList> GoodsReader::readOfName(const QSqlDatabase& database, const QString& nonProprietaryName)
{
    const Expected<QStringList> names = spellings(database, nonProprietaryName);
    if (!names) {
        return names.failure();
    }
    if (names->isEmpty()) {
        return GoodsList();
    }
    const QString marks = QStringList(names->size(), u"?"_s).join(u',');
    return rows(database, u" WHERE inn IN ("_s + marks + u')', QVariantList(names->cbegin(), names->cend()));
}

/// How the goods spell a non-proprietary name. Databases fold letters in their own ways, so this is not theirs to say.
Expected<QStringList> GoodsReader::spellings(const QSqlDatabase& database, const QString& nonProprietaryName)
{
    if (isListCurrent(database)) {
        return m_all->spellings(nonProprietaryName);
    }
    const QString wanted = searchText(nonProprietaryName);
    QStringList names;
    const Expected<void> read = query(database, u"SELECT DISTINCT inn FROM goods"_s, {}, [&](const QSqlQuery& row) {
        const QString name = row.value(0).toString();
        if (searchText(name) == wanted) {
            names.append(name);
        }
    });
    return read ? Expected<QStringList>(names) : read.failure();
}

Expected<GoodsList> GoodsReader::rows(const QSqlDatabase& database, const QString& condition,
                                      const QVariantList& values)
{
    QList<CatalogueGoods> goods;
    const Expected<void> read =
        query(database,
              u"SELECT code, barcode, inn, name, price, catalogueprice, minretailprice, stock FROM goods"_s + condition,
              values, [&goods](const QSqlQuery& row) { goods.append(goodsOf(row)); });
    if (!read) {
        return read.failure();
    }
    std::stable_sort(goods.begin(), goods.end(), isNameBefore);
    return GoodsList(goods);
}

Expected<void> GoodsReader::query(const QSqlDatabase& database, const QString& statement, const QVariantList& values,
                                  const std::function<void(const QSqlQuery&)>& row)
{
    ConnectionWatch watch(database, access().timeout);
    QSqlQuery rows(database);
    rows.setForwardOnly(true);
    bool isDone = rows.prepare(statement);
    for (const QVariant& value : values) {
        rows.addBindValue(value);
    }
    isDone = isDone && rows.exec();
    while (isDone && rows.next()) {
        row(rows);
        watch.restart();
    }
    m_isSilent = watch.hasCut();
    if (m_isSilent) {
        return silentServer(access().timeout);
    }
    if (!isDone || rows.lastError().isValid()) {
        return sqlFailure(rows.lastError());
    }
    return {};
}
