// SPDX-License-Identifier: MIT
#include "documentdouble.h"
#include "documentwatcher.h"
#include "finally.h"
#include "logcapture.h"
#include "pluginscope.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

const QString plugin = u"ElectronicPrescriptionService"_s;
const QString card = u"cardNumber"_s;

GoodsItem::Goods aspirin()
{
    return {3, u"Аспирин \"500\""_s, Kopecks{1001}, Kopecks{120}, Kopecks{1150}, 2.0};
}

class Watcher : public DocumentWatcher
{
public:
    using DocumentWatcher::getDocument;
};

} // namespace

TEST(GoodsItem, fresh_holdsItsGoodsAndNothingOfPlugins)
{
    const GoodsItem item(aspirin());
    EXPECT_EQ(item.getNumber(), 3);
    EXPECT_EQ(item.getName(), u"Аспирин \"500\""_s);
    EXPECT_DOUBLE_EQ(item.getPrice(), 10.01);
    EXPECT_DOUBLE_EQ(item.getMinRetailPrice(), 1.2);
    EXPECT_DOUBLE_EQ(item.getTmcPrice(), 11.5);
    EXPECT_DOUBLE_EQ(item.getQuantity(), 2.0);
    EXPECT_DOUBLE_EQ(item.getSumb(), 20.02);
    EXPECT_TRUE(item.getTags().isEmpty());
    EXPECT_EQ(item.getExtendedOptions(), QString());
    EXPECT_EQ(item.getSoftCheckId(), QString());
}

TEST(GoodsItem, default_isOnePackOfNothing)
{
    const GoodsItem item;
    EXPECT_EQ(item.getNumber(), 0);
    EXPECT_DOUBLE_EQ(item.getQuantity(), 1.0);
    EXPECT_DOUBLE_EQ(item.getSumb(), 0.0);
}

TEST(GoodsItem, priceSet_sumFollows)
{
    GoodsItem item(aspirin());
    item.setPrice(0.5);
    EXPECT_DOUBLE_EQ(item.getPrice(), 0.5);
    EXPECT_DOUBLE_EQ(item.getSumb(), 1.0);
}

struct Sum {
    const char* name;
    double price;
    double quantity;
    double sum;
};

void PrintTo(const Sum& row, std::ostream* out)
{
    *out << row.price << " x " << row.quantity;
}

class GoodsItemSum : public ::testing::TestWithParam<Sum>
{
};

TEST_P(GoodsItemSum, priceTimesQuantity_isRoundedHalfAwayFromZero)
{
    GoodsItem::Goods goods;
    goods.price = Kopecks::fromRoubles(GetParam().price).value();
    goods.quantity = GetParam().quantity;
    EXPECT_DOUBLE_EQ(GoodsItem(goods).getSumb(), GetParam().sum);
}

INSTANTIATE_TEST_SUITE_P(Sums, GoodsItemSum,
                         ::testing::Values(Sum{"halfThatBinaryLoses", 1.005, 1.0, 1.01},
                                           Sum{"otherHalfThatBinaryLoses", 2.675, 1.0, 2.68},
                                           Sum{"halfPack", 10.01, 0.5, 5.01}, Sum{"negative", -1.005, 1.0, -1.01},
                                           Sum{"belowHalf", 1.0049, 1.0, 1.0}, Sum{"zero", 0.0, 5.0, 0.0},
                                           Sum{"large", 999999.99, 1000.0, 999999990.0}),
                         [](const auto& row) { return row.param.name; });

TEST(GoodsItem, setPrice_isRoundedToKopecks)
{
    GoodsItem item(aspirin());
    item.setPrice(1.005);
    EXPECT_EQ(item.getPrice(), 1.01);
    EXPECT_EQ(item.getSumb(), 2.02);
    item.setPrice(-1.5);
    EXPECT_EQ(item.getPrice(), -1.5) << "a plug-in's factor may be negative";
    item.setPrice(1e8);
    EXPECT_EQ(item.getPrice(), 1e8);
}

TEST(GoodsItem, setPriceToNoPrice_isRefusedAndTheLogNamesThePlugin)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double price :
         {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 100'000'000.01, -100'000'000.01, 1e300}) {
        GoodsItem item(aspirin());
        const LogCapture log;
        {
            const PluginScope scope(u"loyal"_s);
            item.setPrice(price);
        }
        EXPECT_EQ(item.getPrice(), 10.01) << price;
        EXPECT_EQ(item.getSumb(), 20.02) << price;
        ASSERT_EQ(log.lines().size(), 1) << price;
        EXPECT_EQ(log.lines().first(),
                  u"ERROR document The price %1 of position 3 is refused; it was set by the plug-in loyal"_s.arg(
                      QString::number(price, 'g', 12)));
    }
}

TEST(GoodsItem, setPriceToNoPriceByTheRegister_isRefused)
{
    GoodsItem item(aspirin());
    const LogCapture log;
    item.setPrice(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(item.getPrice(), 10.01);
    EXPECT_TRUE(log.text().endsWith(u"it was set by the register"_s));
}

TEST(GoodsItem, setTagTwice_isThereOnceAndOrderIsKept)
{
    GoodsItem item;
    item.setTag(u"prescription"_s);
    item.setTag(u"other"_s);
    item.setTag(u"prescription"_s);
    EXPECT_EQ(item.getTags(), QStringList({u"prescription"_s, u"other"_s}));
}

TEST(GoodsItem, markedByAPlugin_keepsItsNameWhicheverMarkComesFirst)
{
    const std::function<void(GoodsItem&)> marks[] = {
        [](GoodsItem& item) { item.setTag(u"tag"_s); },
        [](GoodsItem& item) { item.setExtendedOptions(u"{}"_s); },
        [](GoodsItem& item) { item.setSoftCheckId(u"rx-1"_s); },
    };
    for (const auto& mark : marks) {
        GoodsItem item;
        {
            const PluginScope scope(u"prescriptions"_s);
            mark(item);
        }
        EXPECT_EQ(item.getPlugin(), u"prescriptions"_s);
        mark(item);
        EXPECT_EQ(item.getPlugin(), u"prescriptions"_s) << "the register's own marks change nothing";
    }
}

TEST(GoodsItem, markedByTheRegister_belongsToNoPlugin)
{
    GoodsItem item;
    item.setTag(u"tag"_s);
    item.setExtendedOptions(u"{}"_s);
    item.setSoftCheckId(u"rx-1"_s);
    EXPECT_EQ(item.getPlugin(), QString());
}

TEST(GoodsItem, markedByTwoPlugins_belongsToTheOneThatSetTheSoftCheckId)
{
    GoodsItem item;
    {
        const PluginScope discounts(u"discounts"_s);
        item.setTag(u"card"_s);
        item.setSoftCheckId({});
    }
    {
        const PluginScope prescriptions(u"prescriptions"_s);
        item.setTag(u"prescription"_s);
        EXPECT_EQ(item.getPlugin(), u"discounts"_s) << "the first one, while there is no soft check id";
        item.setSoftCheckId(u"rx-1"_s);
    }
    {
        const PluginScope discounts(u"discounts"_s);
        item.setExtendedOptions(u"{}"_s);
    }
    EXPECT_EQ(item.getPlugin(), u"prescriptions"_s);
}

TEST(AbstractDocument, getPosition_isFoundByNumberNotByPlace)
{
    DocumentDouble document;
    const auto item = document.add(aspirin());
    EXPECT_EQ(document.getPosition(3), item);
    EXPECT_EQ(document.getPosition(0), nullptr);
    EXPECT_EQ(document.getPosition(1), nullptr);
    EXPECT_EQ(document.getPosition(-1), nullptr);
}

TEST(AbstractDocument, pluginValues_areKeptApartByPluginAndKey)
{
    DocumentDouble document;
    document.setPluginValue(plugin, card, u"1100"_s);
    document.setPluginValue(u"Other"_s, card, 5);
    EXPECT_EQ(document.getPluginValue(plugin, card, {}).toString(), u"1100"_s);
    EXPECT_EQ(document.getPluginValue(u"Other"_s, card, {}).toInt(), 5);
    EXPECT_EQ(document.getPluginValue(plugin, u"none"_s, 7).toInt(), 7);
    EXPECT_EQ(document.getPluginValue(u"None"_s, card, 7).toInt(), 7);
    EXPECT_FALSE(document.getPluginValue(u"None"_s, card, {}).isValid());
}

TEST(AbstractDocument, invalidPluginValue_removesTheEntry)
{
    DocumentDouble document;
    document.setPluginValue(plugin, card, u"1100"_s);
    document.setPluginValue(plugin, card, QVariant());
    document.setPluginValue(plugin, u"never"_s, QVariant());
    EXPECT_EQ(document.getPluginValue(plugin, card, 7).toInt(), 7);
    EXPECT_TRUE(document.toJson().value(u"plugins"_s).toObject().isEmpty());
}

TEST(AbstractDocument, toJson_holdsEverything)
{
    DocumentDouble document;
    const auto item = document.add(aspirin());
    item->setTag(u"prescription"_s);
    item->setExtendedOptions(u"{\"doseQuantity\":2}"_s);
    item->setSoftCheckId(u"id-1"_s);
    document.setPluginValue(plugin, card, u"1100"_s);
    const QJsonDocument expected = QJsonDocument::fromJson(R"({
        "format": 1, "type": 1, "closed": false,
        "positions": [{
            "number": 3, "name": "Аспирин \"500\"",
            "price": 10.01, "minRetailPrice": 1.2, "tmcPrice": 11.5, "quantity": 2, "sum": 20.02,
            "tags": ["prescription"], "extendedOptions": "{\"doseQuantity\":2}", "softCheckId": "id-1"
        }],
        "plugins": {"ElectronicPrescriptionService": {"cardNumber": "1100"}}
    })");
    ASSERT_FALSE(expected.isNull());
    EXPECT_EQ(QJsonDocument(document.toJson()).toJson(), expected.toJson());
}

TEST(AbstractDocument, empty_isOpenAndHasEmptyMembers)
{
    const DocumentDouble document;
    EXPECT_FALSE(document.isClosed());
    const QJsonObject json = document.toJson();
    EXPECT_TRUE(json.value(u"positions"_s).isArray());
    EXPECT_TRUE(json.value(u"positions"_s).toArray().isEmpty());
    EXPECT_TRUE(json.value(u"plugins"_s).isObject());
}

TEST(AbstractDocument, inVariant_travelsAsSharedPointerToTheBase)
{
    const QSharedPointer<AbstractDocument> document = QSharedPointer<DocumentDouble>::create();
    const QVariant variant = QVariant::fromValue(document);
    EXPECT_STREQ(variant.metaType().name(), "QSharedPointer<AbstractDocument>");
    EXPECT_EQ(variant.value<QSharedPointer<AbstractDocument>>(), document);
    EXPECT_EQ(QVariant(u"x"_s).value<QSharedPointer<AbstractDocument>>(), nullptr);
}

TEST(DocumentWatcher, documentSet_everyWatcherSeesItUntilItIsTakenAway)
{
    const Finally restoring([] { DocumentWatcher::setCurrentDocument(nullptr); });
    const Watcher before;
    EXPECT_EQ(before.getDocument(), nullptr);
    QSharedPointer<AbstractDocument> document = QSharedPointer<DocumentDouble>::create();
    DocumentWatcher::setCurrentDocument(document);
    const Watcher after;
    EXPECT_EQ(before.getDocument(), document);
    EXPECT_EQ(after.getDocument(), document);
    const QWeakPointer<AbstractDocument> watched = document;
    document.clear();
    EXPECT_NE(after.getDocument(), nullptr);
    DocumentWatcher::setCurrentDocument(nullptr);
    EXPECT_EQ(before.getDocument(), nullptr);
    EXPECT_TRUE(watched.isNull());
}
