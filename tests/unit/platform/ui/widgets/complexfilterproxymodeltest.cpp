// SPDX-License-Identifier: MIT
#include "complexfilterproxymodel.h"
#include "tallotableview.h"

#include <QAbstractItemModelTester>
#include <QStandardItemModel>

#include <gmock/gmock.h>

namespace
{

class ComplexFilterProxyModelTest : public ::testing::Test
{
protected:
    ComplexFilterProxyModelTest()
        : tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        addRow("Парацетамол", "N02BE01");
        addRow("Ибупрофен", "M01AE01");
        addRow("Ацетилсалициловая кислота", "B01AC06");
        addRow("парацетамол и кофеин", "N02BE51");
        proxy.setSourceModel(&source);
    }

    void addRow(const QString& name, const QString& code)
    {
        source.appendRow({new QStandardItem(name), new QStandardItem(code)});
    }

    QStringList names() const
    {
        QStringList shown;
        for (int row = 0; row < proxy.rowCount(); ++row) {
            shown.append(proxy.index(row, 0).data().toString());
        }
        return shown;
    }

    QStandardItemModel source;
    ComplexFilterProxyModel proxy;
    QAbstractItemModelTester tester;
};

TEST_F(ComplexFilterProxyModelTest, noFilter_everyRowIsShown)
{
    EXPECT_EQ(proxy.rowCount(), 4);
}

TEST_F(ComplexFilterProxyModelTest, contains_ignoresTheCaseAlsoInCyrillic)
{
    proxy.addFilter(0, "АЦЕТ", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(names(), QStringList({"Парацетамол", "Ацетилсалициловая кислота", "парацетамол и кофеин"}));
}

TEST_F(ComplexFilterProxyModelTest, filterMode1_isContains)
{
    proxy.addFilter(0, "кофе", ComplexFilterProxyModel::FilterMode(1));
    EXPECT_EQ(names(), QStringList("парацетамол и кофеин"));
}

TEST_F(ComplexFilterProxyModelTest, startsWith_ignoresTheCase)
{
    proxy.addFilter(0, "пара", ComplexFilterProxyModel::StartsWith);
    EXPECT_EQ(names(), QStringList({"Парацетамол", "парацетамол и кофеин"}));
    proxy.addFilter(0, "цетам", ComplexFilterProxyModel::StartsWith);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ComplexFilterProxyModelTest, equals_comparesTheWholeTextAndIgnoresTheCase)
{
    proxy.addFilter(0, "ПАРАЦЕТАМОЛ", ComplexFilterProxyModel::Equals);
    EXPECT_EQ(names(), QStringList("Парацетамол"));
}

TEST_F(ComplexFilterProxyModelTest, newFilterOfAColumn_replacesItsOldOne)
{
    proxy.addFilter(0, "ибу", ComplexFilterProxyModel::Contains);
    proxy.addFilter(0, "кислота", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(names(), QStringList("Ацетилсалициловая кислота"));
}

TEST_F(ComplexFilterProxyModelTest, emptyText_removesTheColumnsFilter)
{
    proxy.addFilter(0, "ибу", ComplexFilterProxyModel::Contains);
    proxy.addFilter(0, "", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(proxy.rowCount(), 4);
}

TEST_F(ComplexFilterProxyModelTest, filtersOfTwoColumns_bothApply)
{
    proxy.addFilter(0, "парацетамол", ComplexFilterProxyModel::Contains);
    proxy.addFilter(1, "be51", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(names(), QStringList("парацетамол и кофеин"));
}

TEST_F(ComplexFilterProxyModelTest, specialCharacters_areTakenLiterally)
{
    addRow("Витамин (B12) *", "B03BA01");
    proxy.addFilter(0, "(b12) *", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(names(), QStringList("Витамин (B12) *"));
}

TEST_F(ComplexFilterProxyModelTest, yoAndYe_areTwoLetters)
{
    addRow("Мёд", "X");
    proxy.addFilter(0, "мед", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ComplexFilterProxyModelTest, columnThatDoesNotExist_letsNoRowPass)
{
    proxy.addFilter(7, "x", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(proxy.rowCount(), 0);
}

TEST_F(ComplexFilterProxyModelTest, rowChangedInTheSource_isFilteredAgain)
{
    proxy.addFilter(0, "ибу", ComplexFilterProxyModel::Contains);
    source.item(0, 0)->setText("Ибупрофен форте");
    EXPECT_EQ(names(), QStringList({"Ибупрофен форте", "Ибупрофен"}));
}

TEST_F(ComplexFilterProxyModelTest, filteredRow_mapsToItsSourceRow)
{
    proxy.addFilter(0, "кислота", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(proxy.mapToSource(proxy.index(0, 0)).row(), 2);
}

TEST_F(ComplexFilterProxyModelTest, currentRowThatPasses_staysCurrent)
{
    TalloTableView view;
    view.setModel(&proxy);
    view.selectRow(2);
    proxy.addFilter(0, "кислота", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(view.currentIndex(), proxy.index(0, 0));
    EXPECT_EQ(view.selectionModel()->selectedRows(), QModelIndexList({proxy.index(0, 0)}));
}

TEST_F(ComplexFilterProxyModelTest, currentRowFilteredOut_leavesNoneCurrent_andAnyCanBeChosen)
{
    TalloTableView view;
    view.setModel(&proxy);
    view.selectRow(1);
    proxy.addFilter(0, "парацетамол", ComplexFilterProxyModel::Contains);
    EXPECT_FALSE(view.currentIndex().isValid());
    view.selectRow(0);
    EXPECT_EQ(view.currentIndex().data(), "Парацетамол");
}

TEST_F(ComplexFilterProxyModelTest, scatteredRowsFilteredOut_isOneChangeForAView)
{
    for (int row = 0; row < 1000; ++row) {
        addRow(row % 2 ? "Чётный" : "Нечётный?", "X");
    }
    int changes = 0;
    QObject::connect(&proxy, &QAbstractItemModel::rowsRemoved, [&] { ++changes; });
    QObject::connect(&proxy, &QAbstractItemModel::layoutChanged, [&] { ++changes; });
    proxy.addFilter(0, "?", ComplexFilterProxyModel::Contains);
    EXPECT_EQ(proxy.rowCount(), 500);
    EXPECT_EQ(changes, 1);
}

} // namespace
