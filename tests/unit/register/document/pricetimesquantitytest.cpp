// SPDX-License-Identifier: MIT
// Price times quantity is the sum, wherever the three can be read.

#include "configured.h"
#include "positiontablemodel.h"
#include "receiptlayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// What the three are, read as text: in kopecks, in thousandths of a pack, in kopecks.
struct Read {
    qint64 price;
    qint64 quantity;
    qint64 sum;

    /// What the customer works out with paper and pencil.
    qint64 worked() const
    {
        const qint64 product = std::abs(price) * quantity;
        const qint64 rounded = (product + 500) / 1000;
        return price < 0 ? -rounded : rounded;
    }
};

/// A decimal number as a whole number of its last place, without any floating point.
qint64 places(QString text, int decimals)
{
    text.remove(QChar::Nbsp).remove(u' ').replace(u'.', u',').replace(u'−', u'-');
    const QString whole = text.section(u',', 0, 0);
    const QString rest = text.section(u',', 1, 1);
    bool isNumber = false;
    const qint64 value = QString(whole + rest.leftJustified(decimals, u'0')).toLongLong(&isNumber);
    EXPECT_TRUE(isNumber && rest.size() <= decimals) << text.toStdString();
    return value;
}

Read onScreen(const QSharedPointer<Document>& document)
{
    const PositionMarks marks;
    PositionTableModel model(marks);
    model.refresh(document);
    const auto text = [&model](int column) { return model.index(0, column).data().toString(); };
    return {places(text(PositionTableModel::Price), 2), places(text(PositionTableModel::Quantity), 3),
            places(text(PositionTableModel::Sum), 2)};
}

Read onPaper(const Document& document)
{
    const auto lines = receiptlayout::lines(document, PositionMarks());
    const auto line =
        std::find_if(lines.cbegin(), lines.cend(), [](const PrintedLine& one) { return one.left.contains(u'×'); });
    if (line == lines.cend()) {
        ADD_FAILURE() << "no position is printed";
        return {};
    }
    const QString product = line->left.section(u'=', 0, 0);
    const QString sum = line->right.isEmpty() ? (line + 1)->right : line->right; // a long one is on the next line
    return {places(product.section(u'×', 1, 1), 2), places(product.section(u'×', 0, 0), 3), places(sum, 2)};
}

/// The numbers as they are written in the file.
Read onDisk(const Document& document)
{
    const QJsonObject saved = document.toJson().value("positions"_L1).toArray().first().toObject();
    const auto written = [&saved](const char* member) {
        const QByteArray array =
            QJsonDocument(QJsonArray{saved.value(QLatin1StringView(member))}).toJson(QJsonDocument::Compact);
        return QString::fromLatin1(array.sliced(1, array.size() - 2));
    };
    return {places(written("price"), 2), places(written("quantity"), 3), places(written("sum"), 2)};
}

class PriceTimesQuantity : public ::testing::Test
{
protected:
    void expectToHold(Kopecks price, double quantity)
    {
        const auto document = QSharedPointer<Document>::create(1, QDateTime({2024, 2, 29}, {12, 30}));
        const auto position = document->add({.name = u"x"_s, .price = price, .quantity = quantity}, {});
        const qint64 thousandths = std::llround(quantity * 1000);
        for (const Read& read : {onScreen(document), onPaper(*document), onDisk(*document)}) {
            EXPECT_EQ(read.price, price.count());
            EXPECT_EQ(read.quantity, thousandths);
            EXPECT_EQ(read.sum, read.worked());
        }
        const QByteArray file = QJsonDocument(document->toJson()).toJson();
        const auto again = Document::fromJson(QJsonDocument::fromJson(file).object());
        EXPECT_EQ(QJsonDocument(again->toJson()).toJson(), file);
        EXPECT_EQ(again->getSum(), document->getSum());
        EXPECT_EQ(Kopecks::fromRoubles(position->getSumb()), position->getSum()) << "a plug-in sees the same sum";
    }

    Configured config;
};

TEST_F(PriceTimesQuantity, anyPriceAndAnyPacks_isTheSumOnScreenPaperAndDisk)
{
    std::mt19937_64 random(20240229);
    std::uniform_int_distribution<qint64> anyPrice(0, GoodsItem::greatestPrice.count());
    std::uniform_int_distribution<qint64> usualPrice(1, 1'000'000);
    std::uniform_int_distribution<int> packs(1, 99'999);
    std::uniform_int_distribution<int> thousandths(1, 9'999);
    for (int round = 0; round < 1000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        expectToHold(Kopecks{anyPrice(random)}, packs(random));
        expectToHold(Kopecks{usualPrice(random)}, packs(random));
        expectToHold(Kopecks{usualPrice(random)}, thousandths(random) / 1000.0);
        expectToHold(-Kopecks{usualPrice(random)}, thousandths(random) / 1000.0);
    }
}

TEST_F(PriceTimesQuantity, leastAndGreatest_isTheSumOnScreenPaperAndDisk)
{
    for (const Kopecks price : {Kopecks{}, Kopecks{1}, GoodsItem::greatestPrice, -GoodsItem::greatestPrice}) {
        for (const double quantity : {0.001, 0.5, 1.0, GoodsItem::greatestQuantity}) {
            SCOPED_TRACE(quantity);
            expectToHold(price, quantity);
        }
    }
}

/// A price that a plug-in computes is rounded once, when it is set.
TEST_F(PriceTimesQuantity, priceSetByAPlugin_isTheSumOnScreenPaperAndDisk)
{
    std::mt19937_64 random(20240301);
    std::uniform_real_distribution<double> anyPrice(-1000.0, 1000.0);
    std::uniform_int_distribution<int> packs(1, 999);
    for (int round = 0; round < 1000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const auto document = QSharedPointer<Document>::create(1, QDateTime({2024, 2, 29}, {12, 30}));
        document->add({.name = u"x"_s, .price = Kopecks{1}, .quantity = double(packs(random))}, {})
            ->setPrice(anyPrice(random));
        for (const Read& read : {onScreen(document), onPaper(*document), onDisk(*document)}) {
            EXPECT_EQ(read.sum, read.worked());
        }
    }
}

} // namespace
