// SPDX-License-Identifier: MIT
#include "basicexception.h"
#include "goodstablemodel.h"
#include "till.h"

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

namespace
{

class Catalogue : public Till
{
protected:
    /// The whole table of medicines: their names by the codes of the dictionary.
    QMap<QString, QString> medicines()
    {
        QMap<QString, QString> names;
        QSqlQuery query(connections.object.getConnection({}, {}));
        EXPECT_TRUE(query.exec(QStringLiteral("SELECT dictcode, dictname FROM medicine")));
        while (query.next())
            names.insert(query.value(0).toString(), query.value(1).toString());
        return names;
    }
};

const QMap<QString, QString> demoMedicines{
    {QStringLiteral("1001"), QStringLiteral("Амоксициллин, капсулы 500 мг")},
    {QStringLiteral("1002"), QStringLiteral("Парацетамол, таблетки 500 мг")},
    {QStringLiteral("1003"), QStringLiteral("Метформин, таблетки 850 мг")},
    {QStringLiteral("1004"), QStringLiteral("Эналаприл, таблетки 10 мг")},
    {QStringLiteral("1005"), QStringLiteral("Амлодипин, таблетки 5 мг")},
    {QStringLiteral("1006"), QStringLiteral("Аторвастатин, таблетки 20 мг")},
    {QStringLiteral("1007"), QStringLiteral("Бисопролол, таблетки 5 мг")},
    {QStringLiteral("1008"), QStringLiteral("Лозартан, таблетки 50 мг")},
    {QStringLiteral("1009"), QStringLiteral("Омепразол, капсулы 20 мг")},
    {QStringLiteral("1010"), QStringLiteral("Левотироксин, таблетки 50 мкг")},
    {QStringLiteral("1011"), QStringLiteral("Ибупрофен, таблетки 400 мг")},
    {QStringLiteral("1012"), QStringLiteral("Азитромицин, таблетки 500 мг")},
    {QStringLiteral("1013"), QStringLiteral("Цетиризин, таблетки 10 мг")},
    {QStringLiteral("1014"), QStringLiteral("Сальбутамол, аэрозоль 100 мкг/доза 200 доз")},
    {QStringLiteral("1015"), QStringLiteral("Индапамид, капсулы 2,5 мг")},
    {QStringLiteral("1016"), QStringLiteral("Клопидогрел, таблетки 75 мг")},
};

/// What the emulator's demo prescribes.
QJsonArray demoPrescriptions()
{
    QFile file(QStringLiteral(DEMO_SEED));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QJsonArray all;
    for (const QJsonValue& patient : QJsonDocument::fromJson(file.readAll()).object()["patients"].toArray())
        for (const QJsonValue& prescription : patient["prescriptions"].toArray())
            all.append(prescription);
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
        EXPECT_TRUE(names.value(prescription["dosageCode"].toString()).startsWith(inn + QStringLiteral(", "))) << id;
        EXPECT_FALSE(catalogue.goodsOf(inn).isEmpty()) << id;
    }
}

TEST_F(Catalogue, goodsOfAName_areThoseWhateverTheCase)
{
    const auto goods = catalogue.goodsOf(QStringLiteral(" амоксициллин "));
    ASSERT_EQ(goods.size(), 3);
    for (const CatalogueGoods& one : goods)
        EXPECT_EQ(one.nonProprietaryName, QStringLiteral("Амоксициллин"));
    EXPECT_TRUE(std::is_sorted(goods.cbegin(), goods.cend(), [](const auto& left, const auto& right) {
        return QString::localeAwareCompare(left.name, right.name) < 0;
    }));
}

TEST_F(Catalogue, unknownName_hasNoGoods)
{
    EXPECT_TRUE(catalogue.goodsOf(QStringLiteral("Амокси")).isEmpty());
    EXPECT_TRUE(catalogue.goodsOf(QStringLiteral("%")).isEmpty());
}

TEST_F(Catalogue, barcode_findsItsGoodsWithEveryColumn)
{
    const auto goods = catalogue.byBarcode(amoxidar);
    ASSERT_TRUE(goods);
    EXPECT_EQ(goods->code, QStringLiteral("00001"));
    EXPECT_EQ(goods->name, QStringLiteral("Амоксидар, капсулы 500 мг №16"));
    EXPECT_EQ(goods->nonProprietaryName, QStringLiteral("Амоксициллин"));
    EXPECT_EQ(goods->price, 12.4);
    EXPECT_EQ(goods->cataloguePrice, 12.9);
    EXPECT_EQ(goods->minRetailPrice, 1.2);
    EXPECT_EQ(goods->stock, 24);
}

TEST_F(Catalogue, barcodeWithSql_isJustABarcode)
{
    EXPECT_FALSE(catalogue.byBarcode(QStringLiteral("' OR '1'='1")));
    EXPECT_FALSE(catalogue.byBarcode({}));
}

TEST_F(Catalogue, databaseMissing_throwsWithAText)
{
    config.set(QStringLiteral("Database:name"), folder.filePath(QStringLiteral("absent.sqlite")));
    EXPECT_THROW(catalogue.check(), BasicException);
    EXPECT_THROW(catalogue.goodsOf({}), BasicException);
    EXPECT_THROW(catalogue.byBarcode(amoxidar), BasicException);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("absent.sqlite")))) << "it is not created";
}

TEST_F(Catalogue, tableMissing_throwsWithAText)
{
    const QString empty = folder.filePath(QStringLiteral("empty.sqlite"));
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("empty"));
        database.setDatabaseName(empty);
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("CREATE TABLE other (x)")));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("empty"));
    config.set(QStringLiteral("Database:name"), empty);
    try {
        catalogue.check();
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_TRUE(exception.tr().ui().contains(QStringLiteral("Справочник товаров недоступен")));
        EXPECT_TRUE(exception.tr().ui().contains(QStringLiteral("goods")));
    }
}

TEST_F(Catalogue, demoGoodsAskedForAgain_theDatabaseStaysAsItIs)
{
    const QString path = folder.filePath(QStringLiteral("mine.sqlite"));
    QFile mine(path);
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.write("mine");
    mine.close();
    EXPECT_TRUE(createDemoGoods(path));
    ASSERT_TRUE(mine.open(QIODevice::ReadOnly));
    EXPECT_EQ(mine.readAll(), "mine");
}

TEST_F(Catalogue, demoGoodsWhereNoFileCanBe_areNotMade)
{
    EXPECT_FALSE(createDemoGoods(folder.filePath(QStringLiteral("no/such/folder.sqlite"))));
}

TEST_F(Catalogue, goodsTableModel_showsAmountsAndStock)
{
    GoodsTableModel model(catalogue.goodsOf(QStringLiteral("Амоксициллин")));
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(0, GoodsTableModel::Name).data().toString(),
              QStringLiteral("Амоксидар Форте, капсулы 500 мг №16"));
    EXPECT_EQ(model.index(0, GoodsTableModel::Price).data().toString(), QStringLiteral("17,98"));
    EXPECT_EQ(model.index(0, GoodsTableModel::Stock).data().toString(), QStringLiteral("3"));
    EXPECT_TRUE(model.index(0, GoodsTableModel::SearchText).data().toString().contains(QStringLiteral("Амоксициллин")));
}
