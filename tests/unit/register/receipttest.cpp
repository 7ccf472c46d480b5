// SPDX-License-Identifier: MIT
#include "receipt.h"
#include "basicexception.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <functional>

namespace
{

GoodsItem::Goods goods(const QString& name, double price, double packs)
{
    GoodsItem::Goods made;
    made.name = name;
    made.price = price;
    made.quantity = packs;
    return made;
}

QSharedPointer<Receipt> twoPositions()
{
    auto receipt = QSharedPointer<Receipt>::create(7, QDateTime({2024, 2, 29}, {12, 30, 15}));
    receipt->add(goods(QStringLiteral("Первый <b>%1</b>"), 10.01, 3), QStringLiteral("111"));
    receipt->add(goods(QStringLiteral("Второй"), 0.1, 1), {});
    return receipt;
}

/// The receipt as it comes back from a file.
QSharedPointer<Receipt> reread(const Receipt& receipt)
{
    return Receipt::fromJson(QJsonDocument::fromJson(QJsonDocument(receipt.toJson()).toJson()).object());
}

} // namespace

TEST(Receipt, sum_isExactInKopecks)
{
    Receipt receipt(1, QDateTime::currentDateTime());
    for (int i = 0; i < 1000; ++i)
        receipt.add(goods(QStringLiteral("x"), 0.1, 1), {});
    EXPECT_EQ(receipt.getSum(), 10000);
}

TEST(Receipt, lastPositionRemoved_itsNumberIsNotGivenAgain)
{
    const auto receipt = twoPositions();
    receipt->remove(2);
    EXPECT_EQ(receipt->add(goods(QStringLiteral("x"), 1, 1), {})->getNumber(), 3);
    EXPECT_EQ(reread(*receipt)->add(goods(QStringLiteral("y"), 1, 1), {})->getNumber(), 4);
}

TEST(Receipt, lastPositionRemovedAndReread_itsNumberIsNotGivenAgain)
{
    const auto receipt = twoPositions();
    receipt->remove(2);
    EXPECT_EQ(reread(*receipt)->add(goods(QStringLiteral("x"), 1, 1), {})->getNumber(), 3);
}

TEST(Receipt, positionByNumber_isNullWhenThereIsNone)
{
    const auto receipt = twoPositions();
    EXPECT_EQ(receipt->position(2)->getName(), QStringLiteral("Второй"));
    EXPECT_FALSE(receipt->position(3));
    EXPECT_FALSE(receipt->position(0));
}

TEST(ReceiptPosition, priceLoweredTwice_initialPriceStaysTheFirst)
{
    ReceiptPosition position(goods(QStringLiteral("x"), 10.0, 1), {});
    EXPECT_EQ(position.getInitialPrice(), 10.0);
    position.setPrice(5.0);
    position.setPrice(1.0);
    EXPECT_EQ(position.getInitialPrice(), 10.0);
    EXPECT_EQ(position.getPrice(), 1.0);
}

TEST(ReceiptPosition, priceSetToItself_isNoChange)
{
    ReceiptPosition position(goods(QStringLiteral("x"), 10.0, 1), {});
    position.setPrice(10.0);
    EXPECT_FALSE(position.toJson().contains(QStringLiteral("initialPrice")));
}

TEST(Receipt, savedAndReread_everythingIsThere)
{
    const auto receipt = twoPositions();
    const auto first = receipt->position(1);
    first->setPrice(0.5);
    first->setTag(QStringLiteral("prescription"));
    first->setTag(QStringLiteral("second tag"));
    first->setSoftCheckId(QStringLiteral("rx-%41+;"));
    const QString options = QStringLiteral("{\"id\":\"a\\\"b\",\"sumFactor\":0.1}");
    first->setExtendedOptions(options);
    receipt->setPluginValue(QStringLiteral("Plugin"), QStringLiteral("cardNumber"), QStringLiteral("0011 %1"));
    receipt->setPluginValue(QStringLiteral("Plugin"), QStringLiteral("list"), QStringList{QStringLiteral("a")});

    const auto again = reread(*receipt);
    EXPECT_EQ(again->toJson(), receipt->toJson());
    EXPECT_EQ(again->getNumber(), 7);
    EXPECT_EQ(again->getOpened(), receipt->getOpened());
    EXPECT_EQ(again->getType(), AbstractDocument::Sale);
    EXPECT_FALSE(again->isClosed());
    ASSERT_EQ(again->positions().size(), 2);
    const auto position = again->position(1);
    EXPECT_EQ(position->getName(), QStringLiteral("Первый <b>%1</b>"));
    EXPECT_EQ(position->getPrice(), 0.5);
    EXPECT_EQ(position->getInitialPrice(), 10.01);
    EXPECT_EQ(position->getQuantity(), 3.0);
    EXPECT_EQ(position->getTags(), (QStringList{QStringLiteral("prescription"), QStringLiteral("second tag")}));
    EXPECT_EQ(position->getExtendedOptions(), options);
    EXPECT_EQ(position->getSoftCheckId(), QStringLiteral("rx-%41+;"));
    EXPECT_EQ(again->getPluginValue(QStringLiteral("Plugin"), QStringLiteral("cardNumber"), {}).toString(),
              QStringLiteral("0011 %1"));
}

TEST(Receipt, nameOfTenThousandCharacters_comesBackWhole)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    const QString name(10'000, QChar(0x416));
    receipt.add(goods(name, 1, 1), {});
    EXPECT_EQ(reread(receipt)->position(1)->getName(), name);
}

/// A saved receipt with one thing wrong.
struct Damage {
    const char* name;
    std::function<void(QJsonObject&)> make;
};

class DamagedReceipt : public ::testing::TestWithParam<Damage>
{
};

TEST_P(DamagedReceipt, fromJson_throws)
{
    QJsonObject saved = twoPositions()->toJson();
    GetParam().make(saved);
    EXPECT_THROW(Receipt::fromJson(saved), BasicException);
}

namespace
{

std::function<void(QJsonObject&)> without(const char* member)
{
    return [member](QJsonObject& saved) { saved.remove(QLatin1String(member)); };
}

std::function<void(QJsonObject&)> with(const char* member, const QJsonValue& value)
{
    return [member, value](QJsonObject& saved) { saved.insert(QLatin1String(member), value); };
}

std::function<void(QJsonObject&)> firstPosition(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        QJsonArray positions = saved.value(QLatin1String("positions")).toArray();
        QJsonObject position = positions.at(0).toObject();
        damage(position);
        positions.replace(0, position);
        saved.insert(QStringLiteral("positions"), positions);
    };
}

const Damage damages[] = {
    {"formatMissing", without("format")},
    {"formatOfTheFuture", with("format", 99)},
    {"typeOfAnotherKind", with("type", 25)},
    {"numberMissing", without("number")},
    {"numberIsText", with("number", QStringLiteral("7"))},
    {"numberIsZero", with("number", 0)},
    {"numberIsHuge", with("number", 1e12)},
    {"numberIsBroken", with("number", 1.5)},
    {"openedIsNoTime", with("opened", QStringLiteral("yesterday"))},
    {"positionsIsNoList", with("positions", QJsonObject())},
    {"positionIsNoObject", with("positions", QJsonArray{1})},
    {"nextPositionMissing", without("nextPosition")},
    {"pluginsMissing", without("plugins")},
    {"positionWithoutName", firstPosition(without("name"))},
    {"positionWithoutPrice", firstPosition(without("price"))},
    {"positionPriceIsText", firstPosition(with("price", QStringLiteral("1")))},
    {"positionWithoutQuantity", firstPosition(without("quantity"))},
    {"positionWithoutTags", firstPosition(without("tags"))},
    {"positionWithoutOptions", firstPosition(without("extendedOptions"))},
    {"positionWithoutSoftCheckId", firstPosition(without("softCheckId"))},
    {"positionInitialPriceIsText", firstPosition(with("initialPrice", QStringLiteral("1")))},
    {"twoPositionsOfOneNumber", firstPosition(with("number", 2))},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Receipt, DamagedReceipt, ::testing::ValuesIn(damages),
                         [](const auto& tested) { return std::string(tested.param.name); });
