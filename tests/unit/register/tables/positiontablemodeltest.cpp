// SPDX-License-Identifier: MIT
#include "positiontablemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class PositionTableModelTest : public ::testing::Test
{
protected:
    PositionTableModelTest()
    {
        const QString path = folder.filePath(u"positionmarks.json"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [{"tag": "paper", "mark": "БР", "description": "Бумага", "states": [
            {"option": "status", "value": null, "text": "новый", "colour": "#8a5a00"}],
            "receiptLines": [{"option": "issuer", "label": "Кто"}, {"option": "number", "label": "Номер"}]}]})");
        file.close();
        marks.load(path);
    }
    QSharedPointer<Position> add(double price, double packs)
    {
        GoodsItem::Goods goods;
        goods.name = u"Товар <i>%1</i>"_s;
        goods.price = Kopecks::fromRoubles(price).value();
        goods.quantity = packs;
        return document->add(goods, {});
    }
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }

    QTemporaryDir folder;
    PositionMarks marks;
    QSharedPointer<Document> document = QSharedPointer<Document>::create(1, QDateTime::currentDateTime());
    PositionTableModel model{marks};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PositionTableModelTest, positionWithoutMark_showsItsValues)
{
    add(1234.5, 2);
    model.refresh(document);
    ASSERT_EQ(model.rowCount(), 1);
    const QString space(QChar::Nbsp);
    EXPECT_EQ(text(0, PositionTableModel::Number), u"1"_s);
    EXPECT_EQ(text(0, PositionTableModel::Name), u"Товар <i>%1</i>"_s);
    EXPECT_EQ(text(0, PositionTableModel::Mark), QString());
    EXPECT_EQ(text(0, PositionTableModel::Quantity), u"2"_s);
    EXPECT_EQ(text(0, PositionTableModel::InitialPrice), QString());
    EXPECT_EQ(text(0, PositionTableModel::Price), u"1"_s + space + u"234,50"_s);
    EXPECT_EQ(text(0, PositionTableModel::Sum), u"2"_s + space + u"469,00"_s);
    EXPECT_EQ(text(0, PositionTableModel::State), QString());
}

TEST_F(PositionTableModelTest, positionRemoved_theOthersAreCountedFromOneAndKeepTheirNumbers)
{
    for (int i = 0; i < 3; ++i) {
        add(1, 1);
    }
    document->remove(1);
    model.refresh(document);
    EXPECT_EQ(text(0, PositionTableModel::Number), u"1"_s);
    EXPECT_EQ(text(1, PositionTableModel::Number), u"2"_s);
    EXPECT_EQ(model.positionNumber(0), 2);
    EXPECT_EQ(model.rowOf(3), 1);
}

TEST_F(PositionTableModelTest, markedPositionWithLowerPrice_showsMarkStateAndBothPrices)
{
    const auto position = add(10, 1);
    position->setTag(u"paper"_s);
    position->setPrice(5);
    model.refresh(document);
    EXPECT_EQ(text(0, PositionTableModel::Mark), u"БР"_s);
    EXPECT_EQ(model.index(0, PositionTableModel::Mark).data(Qt::AccessibleTextRole).toString(), u"Бумага"_s);
    EXPECT_EQ(text(0, PositionTableModel::InitialPrice), u"10,00"_s);
    EXPECT_EQ(text(0, PositionTableModel::Price), u"5,00"_s);
    EXPECT_EQ(text(0, PositionTableModel::State), u"новый"_s);
    EXPECT_EQ(model.index(0, PositionTableModel::State).data(Qt::ForegroundRole).value<QBrush>().color(),
              QColor(0x8a, 0x5a, 0));
}

TEST_F(PositionTableModelTest, priceRaised_isNoPriceWithoutABenefit)
{
    add(10, 1)->setPrice(11);
    model.refresh(document);
    EXPECT_TRUE(text(0, PositionTableModel::InitialPrice).isEmpty());
    EXPECT_TRUE(model.isEmpty(PositionTableModel::InitialPrice));
}

TEST_F(PositionTableModelTest, captionsOfAmounts_nameBenefitAndCurrency)
{
    const auto caption = [this](int column) { return model.headerData(column, Qt::Horizontal).toString(); };
    EXPECT_EQ(caption(PositionTableModel::InitialPrice), u"Без льготы, BYN"_s);
    EXPECT_EQ(caption(PositionTableModel::Price), u"Цена, BYN"_s);
    EXPECT_EQ(caption(PositionTableModel::Sum), u"Сумма, BYN"_s);
}

TEST_F(PositionTableModelTest, priceBelowZero_hasATrueMinusSign)
{
    add(10, 2)->setPrice(-1);
    model.refresh(document);
    EXPECT_EQ(text(0, PositionTableModel::Price), u"−1,00"_s);
    EXPECT_EQ(text(0, PositionTableModel::Sum), u"−2,00"_s);
}

TEST_F(PositionTableModelTest, toolTip_showsTheReceiptLinesAsPlainText)
{
    const auto position = add(10, 1);
    position->setTag(u"paper"_s);
    position->setExtendedOptions(uR"({"issuer": "<b>№ 5</b> & Ко", "number": "7"})"_s);
    add(20, 1);
    model.refresh(document);
    const auto toolTip = [this](int row, int column) {
        return QTextDocumentFragment::fromHtml(model.index(row, column).data(Qt::ToolTipRole).toString()).toPlainText();
    };
    const QString lines = u"Кто: <b>№ 5</b> & Ко\nНомер: 7"_s;
    EXPECT_EQ(toolTip(0, PositionTableModel::Name), u"Товар <i>%1</i>\n"_s + lines);
    EXPECT_EQ(toolTip(0, PositionTableModel::Mark), u"Бумага\n"_s + lines);
    EXPECT_EQ(toolTip(0, PositionTableModel::InitialPrice), lines);
    EXPECT_EQ(toolTip(1, PositionTableModel::Name), u"Товар <i>%1</i>"_s);
    EXPECT_TRUE(model.index(1, PositionTableModel::Mark).data(Qt::ToolTipRole).toString().isEmpty());
}

TEST_F(PositionTableModelTest, positionsChangeInPlace_noReset)
{
    const auto position = add(10, 1);
    add(20, 1);
    model.refresh(document);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    position->setPrice(1);
    model.refresh(document);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(text(0, PositionTableModel::Price), u"1,00"_s);
}

TEST_F(PositionTableModelTest, positionsAddedAndRemoved_rowsHaveTheRightNumbers)
{
    add(1, 1);
    add(2, 1);
    add(3, 1);
    model.refresh(document);
    document->remove(2);
    model.refresh(document);
    EXPECT_EQ(model.positionNumber(0), 1);
    EXPECT_EQ(model.positionNumber(1), 3);
    EXPECT_EQ(model.positionNumber(2), 0);
    EXPECT_EQ(model.positionNumber(-1), 0);
    EXPECT_EQ(model.rowOf(3), 1);
    EXPECT_EQ(model.rowOf(2), -1);
    model.refresh(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(PositionTableModelTest, everyColumn_hasACaption)
{
    for (int column = 0; column < model.columnCount(); ++column) {
        EXPECT_FALSE(model.headerData(column, Qt::Horizontal).toString().isEmpty()) << column;
    }
}
