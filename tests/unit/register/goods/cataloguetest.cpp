// SPDX-License-Identifier: MIT
#include "basicexception.h"
#include "goodstablemodel.h"
#include "tillfixture.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

class Catalogue : public TillFixture
{
protected:
    /// The names in the table of medicines by their dictionary codes.
    QMap<QString, QString> medicines()
    {
        QMap<QString, QString> names;
        QSqlQuery query(connections.object.getConnection({}, {}));
        EXPECT_TRUE(query.exec(u"SELECT dictcode, dictname FROM medicine"_s));
        while (query.next()) {
            names.insert(query.value(0).toString(), query.value(1).toString());
        }
        return names;
    }
};

const QMap<QString, QString> demoMedicines{
    {u"1001"_s, u"Амоксициллин, капсулы 500 мг"_s}, {u"1002"_s, u"Парацетамол, таблетки 500 мг"_s},
    {u"1003"_s, u"Метформин, таблетки 850 мг"_s},   {u"1004"_s, u"Эналаприл, таблетки 10 мг"_s},
    {u"1005"_s, u"Амлодипин, таблетки 5 мг"_s},     {u"1006"_s, u"Аторвастатин, таблетки 20 мг"_s},
    {u"1007"_s, u"Бисопролол, таблетки 5 мг"_s},    {u"1008"_s, u"Лозартан, таблетки 50 мг"_s},
    {u"1009"_s, u"Омепразол, капсулы 20 мг"_s},     {u"1010"_s, u"Левотироксин, таблетки 50 мкг"_s},
    {u"1011"_s, u"Ибупрофен, таблетки 400 мг"_s},   {u"1012"_s, u"Азитромицин, таблетки 500 мг"_s},
    {u"1013"_s, u"Цетиризин, таблетки 10 мг"_s},    {u"1014"_s, u"Сальбутамол, аэрозоль 100 мкг/доза 200 доз"_s},
    {u"1015"_s, u"Индапамид, капсулы 2,5 мг"_s},    {u"1016"_s, u"Клопидогрел, таблетки 75 мг"_s},
};

/// The prescriptions in the emulator's demo data.
QJsonArray demoPrescriptions()
{
    QFile file(QString::fromUtf8(DEMO_SEED));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QJsonArray all;
    for (const QJsonValue& patient : QJsonDocument::fromJson(file.readAll()).object()["patients"].toArray()) {
        for (const QJsonValue& prescription : patient["prescriptions"].toArray()) {
            all.append(prescription);
        }
    }
    return all;
}

} // namespace

TEST_F(Catalogue, demoGoods_areSixtyWithTheirMedicines)
{
    EXPECT_EQ(catalogue.goodsOf({}).size(), 60);
    EXPECT_EQ(medicines(), demoMedicines);
}

TEST_F(Catalogue, demoPrescriptions_findTheirMedicinesAndGoods)
{
    const QMap<QString, QString> names = medicines();
    const QJsonArray prescriptions = demoPrescriptions();
    EXPECT_EQ(prescriptions.size(), 19);
    for (const QJsonValue& prescription : prescriptions) {
        const std::string id = prescription["id"].toString().toStdString();
        const QString inn = prescription["inn"].toString();
        EXPECT_TRUE(names.value(prescription["dosageCode"].toString()).startsWith(inn + u", "_s)) << id;
        EXPECT_FALSE(catalogue.goodsOf(inn).isEmpty()) << id;
    }
}

TEST_F(Catalogue, goodsOfAName_areFoundInAnyCase)
{
    const auto goods = catalogue.goodsOf(u" амоксициллин "_s);
    ASSERT_EQ(goods.size(), 3);
    for (const CatalogueGoods& one : goods) {
        EXPECT_EQ(one.nonProprietaryName, u"Амоксициллин"_s);
    }
    EXPECT_TRUE(std::is_sorted(goods.cbegin(), goods.cend(), [](const auto& left, const auto& right) {
        return QString::localeAwareCompare(left.name, right.name) < 0;
    }));
}

TEST_F(Catalogue, unknownName_hasNoGoods)
{
    EXPECT_TRUE(catalogue.goodsOf(u"Амокси"_s).isEmpty());
    EXPECT_TRUE(catalogue.goodsOf(u"%"_s).isEmpty());
}

TEST_F(Catalogue, barcode_findsItsGoodsWithAllColumns)
{
    const auto goods = catalogue.byBarcode(amoxidar);
    ASSERT_TRUE(goods);
    EXPECT_EQ(goods->code, u"00001"_s);
    EXPECT_EQ(goods->name, u"Амоксидар, капсулы 500 мг №16"_s);
    EXPECT_EQ(goods->nonProprietaryName, u"Амоксициллин"_s);
    EXPECT_EQ(*goods->price, Kopecks{1240});
    EXPECT_EQ(*goods->cataloguePrice, Kopecks{1290});
    EXPECT_EQ(*goods->minRetailPrice, Kopecks{120});
    EXPECT_EQ(goods->stock, 24);
}

TEST_F(Catalogue, barcodeWithSql_isJustABarcode)
{
    EXPECT_FALSE(catalogue.byBarcode(u"' OR '1'='1"_s));
    EXPECT_FALSE(catalogue.byBarcode({}));
}

TEST_F(Catalogue, databaseMissing_throwsATextForTheCashier)
{
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    EXPECT_THROW(catalogue.goodsOf({}), BasicException);
    EXPECT_THROW(catalogue.byBarcode(amoxidar), BasicException);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"absent.sqlite"_s))) << "it is not created";
}

TEST_F(Catalogue, tableMissing_throwsATextForTheCashier)
{
    const QString empty = folder.filePath(u"empty.sqlite"_s);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"empty"_s);
        database.setDatabaseName(empty);
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(u"CREATE TABLE other (x)"_s));
    }
    QSqlDatabase::removeDatabase(u"empty"_s);
    config.set(u"Database:name"_s, empty);
    try {
        catalogue.goodsOf({});
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_TRUE(exception.tr().ui().contains(u"Справочник товаров недоступен"_s));
        EXPECT_TRUE(exception.tr().ui().contains(u"goods"_s));
    }
}

TEST_F(Catalogue, demoGoodsCreatedTwice_theDatabaseIsUnchanged)
{
    const QString path = folder.filePath(u"mine.sqlite"_s);
    QFile mine(path);
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.write("mine");
    mine.close();
    EXPECT_TRUE(createDemoGoods(path));
    ASSERT_TRUE(mine.open(QIODevice::ReadOnly));
    EXPECT_EQ(mine.readAll(), "mine");
}

TEST_F(Catalogue, demoGoodsInAMissingFolder_failWithADetail)
{
    const auto created = createDemoGoods(folder.filePath(u"no/such/folder.sqlite"_s));
    ASSERT_FALSE(created);
    EXPECT_FALSE(created.failure().detail.isEmpty());
}

TEST_F(Catalogue, goodsTableModel_showsAmountsAndStock)
{
    GoodsTableModel model(catalogue.goodsOf(u"Амоксициллин"_s));
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(0, GoodsTableModel::Name).data().toString(), u"Амоксидар Форте, капсулы 500 мг №16"_s);
    EXPECT_EQ(model.index(0, GoodsTableModel::Price).data().toString(), u"17,98"_s);
    EXPECT_EQ(model.index(0, GoodsTableModel::Stock).data().toString(), u"3"_s);
    EXPECT_EQ(model.index(0, GoodsTableModel::NonProprietaryName).data().toString(), u"Амоксициллин"_s);
    model.search(u"таблетки"_s);
    EXPECT_EQ(model.rowCount(), 0);
    model.search(u"форте"_s);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.goods(0).name, u"Амоксидар Форте, капсулы 500 мг №16"_s);
}
