// SPDX-License-Identifier: MIT
#include "receipt.h"
#include "basicexception.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

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
    receipt->add(goods(u"Первый <b>%1</b>"_s, 10.01, 3), u"111"_s);
    receipt->add(goods(u"Второй"_s, 0.1, 1), {});
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
    for (int i = 0; i < 1000; ++i) {
        receipt.add(goods(u"x"_s, 0.1, 1), {});
    }
    EXPECT_EQ(receipt.getSum(), 10000);
}

TEST(Receipt, lastPositionRemoved_itsNumberIsNotGivenAgain)
{
    const auto receipt = twoPositions();
    receipt->remove(2);
    EXPECT_EQ(receipt->add(goods(u"x"_s, 1, 1), {})->getNumber(), 3);
    EXPECT_EQ(reread(*receipt)->add(goods(u"y"_s, 1, 1), {})->getNumber(), 4);
}

TEST(Receipt, lastPositionRemovedAndReread_itsNumberIsNotGivenAgain)
{
    const auto receipt = twoPositions();
    receipt->remove(2);
    EXPECT_EQ(reread(*receipt)->add(goods(u"x"_s, 1, 1), {})->getNumber(), 3);
}

TEST(Receipt, positionByNumber_isNullWhenThereIsNone)
{
    const auto receipt = twoPositions();
    EXPECT_EQ(receipt->position(2)->getName(), u"Второй"_s);
    EXPECT_FALSE(receipt->position(3));
    EXPECT_FALSE(receipt->position(0));
}

TEST(ReceiptPosition, priceLoweredTwice_initialPriceStaysTheFirst)
{
    ReceiptPosition position(goods(u"x"_s, 10.0, 1), {});
    EXPECT_EQ(position.getInitialPrice(), 10.0);
    position.setPrice(5.0);
    position.setPrice(1.0);
    EXPECT_EQ(position.getInitialPrice(), 10.0);
    EXPECT_EQ(position.getPrice(), 1.0);
}

TEST(ReceiptPosition, priceSetToItself_isNoChange)
{
    ReceiptPosition position(goods(u"x"_s, 10.0, 1), {});
    position.setPrice(10.0);
    EXPECT_FALSE(position.toJson().contains(u"initialPrice"_s));
}

TEST(Receipt, savedAndReread_everythingIsThere)
{
    const auto receipt = twoPositions();
    const auto first = receipt->position(1);
    first->setPrice(0.5);
    first->setTag(u"prescription"_s);
    first->setTag(u"second tag"_s);
    first->setSoftCheckId(u"rx-%41+;"_s);
    const QString options = u"{\"id\":\"a\\\"b\",\"sumFactor\":0.1}"_s;
    first->setExtendedOptions(options);
    receipt->setPluginValue(u"Plugin"_s, u"cardNumber"_s, u"0011 %1"_s);
    receipt->setPluginValue(u"Plugin"_s, u"list"_s, QStringList{u"a"_s});

    const auto again = reread(*receipt);
    EXPECT_EQ(again->toJson(), receipt->toJson());
    EXPECT_EQ(again->getNumber(), 7);
    EXPECT_EQ(again->getOpened(), receipt->getOpened());
    EXPECT_EQ(again->getType(), AbstractDocument::Sale);
    EXPECT_FALSE(again->isClosed());
    ASSERT_EQ(again->positions().size(), 2);
    const auto position = again->position(1);
    EXPECT_EQ(position->getName(), u"Первый <b>%1</b>"_s);
    EXPECT_EQ(position->getPrice(), 0.5);
    EXPECT_EQ(position->getInitialPrice(), 10.01);
    EXPECT_EQ(position->getQuantity(), 3.0);
    EXPECT_EQ(position->getTags(), (QStringList{u"prescription"_s, u"second tag"_s}));
    EXPECT_EQ(position->getExtendedOptions(), options);
    EXPECT_EQ(position->getSoftCheckId(), u"rx-%41+;"_s);
    EXPECT_EQ(again->getPluginValue(u"Plugin"_s, u"cardNumber"_s, {}).toString(), u"0011 %1"_s);
}

TEST(Receipt, nameOfTenThousandCharacters_comesBackWhole)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    const QString name(10'000, QChar(0x416));
    receipt.add(goods(name, 1, 1), {});
    EXPECT_EQ(reread(receipt)->position(1)->getName(), name);
}

TEST(Receipt, change_isWhatTheCustomerGetsBack)
{
    const auto receipt = twoPositions();
    receipt->setEnding({.state = Receipt::State::Closed, .received = 5000});
    EXPECT_EQ(receipt->getSum(), 3013);
    EXPECT_EQ(receipt->getChange(), 1987);
    const auto takeBack = Receipt::cancelling(*receipt, 8, receipt->getOpened());
    takeBack->setEnding({.state = Receipt::State::Closed, .received = 3013});
    EXPECT_EQ(takeBack->getChange(), 0);
}

namespace
{

struct Ended {
    const char* name;
    Receipt::Ending ending;
    bool isClosed;
    QString file;
};

class EndedReceipt : public ::testing::TestWithParam<Ended>
{
};

const QDateTime evening({2024, 2, 29}, {20, 15, 3});
const QDateTime nextDay({2024, 3, 1}, {8, 0});

} // namespace

TEST_P(EndedReceipt, savedAndReread_isWhereItWas)
{
    const auto receipt = twoPositions();
    receipt->setEnding(GetParam().ending);
    receipt->setTakenBackBy(9);
    EXPECT_EQ(receipt->isClosed(), GetParam().isClosed);
    EXPECT_EQ(receipt->fileName(), GetParam().file);

    const auto again = reread(*receipt);
    EXPECT_EQ(again->toJson(), receipt->toJson());
    EXPECT_EQ(again->getState(), GetParam().ending.state);
    EXPECT_EQ(again->getFinished(), GetParam().ending.finished);
    EXPECT_EQ(again->getAnnulled(), GetParam().ending.annulled);
    EXPECT_EQ(again->getReceived(), GetParam().ending.received);
    EXPECT_EQ(again->isClosed(), GetParam().isClosed);
    EXPECT_EQ(again->fileName(), GetParam().file);
    EXPECT_EQ(again->getTakenBackBy(), 9);
    EXPECT_EQ(again->getTakesBack(), 0);
    EXPECT_EQ(again->toJson().value(u"closed"_s).toBool(), GetParam().isClosed);
}

INSTANTIATE_TEST_SUITE_P(
    Receipt, EndedReceipt,
    ::testing::Values(
        Ended{"open", {}, false, u"receipt.json"_s},
        Ended{"putAside", {.state = Receipt::State::PutAside}, false, u"putaside/00000007.json"_s},
        Ended{"closed",
              {.state = Receipt::State::Closed, .finished = evening, .received = 5000},
              true,
              u"finished/00000007.json"_s},
        Ended{"closedForNothing",
              {.state = Receipt::State::Closed, .finished = evening},
              true,
              u"finished/00000007.json"_s},
        Ended{
            "cancelled", {.state = Receipt::State::Cancelled, .finished = evening}, true, u"finished/00000007.json"_s},
        Ended{"annulledAfterItWasClosed",
              {.state = Receipt::State::Annulled, .finished = evening, .annulled = nextDay, .received = 5000},
              true,
              u"finished/00000007.json"_s},
        Ended{"annulledAfterItWasPutAside",
              {.state = Receipt::State::Annulled, .finished = nextDay, .annulled = nextDay},
              true,
              u"finished/00000007.json"_s}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Receipt, savedWithoutAState_isOpen)
{
    QJsonObject saved = twoPositions()->toJson();
    saved.remove(u"state"_s);
    EXPECT_EQ(Receipt::fromJson(saved)->getState(), Receipt::State::Open);
}

TEST(Receipt, cancellingDocument_hasEverythingOfTheSaleAndALifeOfItsOwn)
{
    const auto sale = twoPositions();
    sale->remove(2);
    sale->add(goods(u"Третий"_s, 5, 2), u"333"_s);
    const auto first = sale->position(1);
    first->setPrice(0.5);
    first->setTag(u"prescription"_s);
    first->setSoftCheckId(u"rx-1"_s);
    first->setExtendedOptions(u"{\"status\":\"dispensed\"}"_s);
    sale->setPluginValue(u"Plugin"_s, u"cardNumber"_s, u"0011"_s);
    sale->setEnding({.state = Receipt::State::Closed, .finished = evening, .received = 5000});
    sale->setTakenBackBy(9);
    const QJsonObject before = sale->toJson();

    const auto document = Receipt::cancelling(*sale, 9, nextDay);
    EXPECT_EQ(document->getType(), AbstractDocument::Cancelling);
    EXPECT_TRUE(document->isCancelling());
    EXPECT_EQ(document->getNumber(), 9);
    EXPECT_EQ(document->getOpened(), nextDay);
    EXPECT_EQ(document->getTakesBack(), 7);
    EXPECT_EQ(document->getTakenBackBy(), 0);
    EXPECT_EQ(document->getState(), Receipt::State::Open);
    EXPECT_EQ(document->getReceived(), 0);
    EXPECT_FALSE(document->getFinished().isValid());
    EXPECT_EQ(document->fileName(), u"receipt.json"_s);
    for (const char* same : {"positions", "plugins", "sum", "nextPosition"}) {
        EXPECT_EQ(document->toJson().value(QLatin1StringView(same)), before.value(QLatin1StringView(same))) << same;
    }
    EXPECT_EQ(reread(*document)->toJson(), document->toJson());
    EXPECT_EQ(reread(*document)->getTakesBack(), 7);

    document->position(1)->setExtendedOptions(u"{\"status\":\"canceled\"}"_s);
    document->setPluginValue(u"Plugin"_s, u"cardNumber"_s, {});
    document->remove(3);
    EXPECT_EQ(sale->toJson(), before);
}

TEST(Receipt, pluginDataTakenOver_isThatOfThePositionsOfTheSameNumbers)
{
    const auto target = twoPositions();
    target->position(1)->setTag(u"before"_s);
    target->position(2)->setExtendedOptions(u"{\"old\":1}"_s);
    const auto source = twoPositions();
    source->add(goods(u"Третий"_s, 1, 1), {});
    for (const auto& position : source->positions()) {
        const QString number = QString::number(position->getNumber());
        position->setTag(u"tag"_s + number);
        position->setSoftCheckId(u"rx"_s + number);
        position->setExtendedOptions(u"{\"new\":%1}"_s.arg(number));
        position->setPrice(0.01);
        position->setQuantity(50);
    }
    source->remove(2);

    target->takeOverPluginData(*source);
    ASSERT_EQ(target->positions().size(), 2);
    const auto first = target->position(1);
    EXPECT_EQ(first->getTags(), (QStringList{u"before"_s, u"tag1"_s}));
    EXPECT_EQ(first->getSoftCheckId(), u"rx1"_s);
    EXPECT_EQ(first->getExtendedOptions(), u"{\"new\":1}"_s);
    EXPECT_EQ(first->getPrice(), 10.01) << "what the register keeps stays";
    EXPECT_EQ(first->getQuantity(), 3.0);
    EXPECT_EQ(target->position(2)->getExtendedOptions(), u"{\"old\":1}"_s) << "not among the source's";
    EXPECT_TRUE(target->position(2)->getTags().isEmpty());
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
    return [member](QJsonObject& saved) { saved.remove(QLatin1StringView(member)); };
}

std::function<void(QJsonObject&)> with(const char* member, const QJsonValue& value)
{
    return [member, value](QJsonObject& saved) { saved.insert(QLatin1StringView(member), value); };
}

std::function<void(QJsonObject&)> firstPosition(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        QJsonArray positions = saved.value("positions"_L1).toArray();
        QJsonObject position = positions.at(0).toObject();
        damage(position);
        positions.replace(0, position);
        saved.insert(u"positions"_s, positions);
    };
}

/// A closed sale with one thing wrong.
std::function<void(QJsonObject&)> closed(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        saved.insert(u"state"_s, u"closed"_s);
        saved.insert(u"finished"_s, u"2024-02-29T12:31:00"_s);
        saved.insert(u"received"_s, 50);
        damage(saved);
    };
}

/// An annulled sale with one thing wrong.
std::function<void(QJsonObject&)> annulled(const std::function<void(QJsonObject&)>& damage)
{
    return closed([damage](QJsonObject& saved) {
        saved.insert(u"state"_s, u"annulled"_s);
        saved.insert(u"annulled"_s, u"2024-03-01T08:00:00"_s);
        damage(saved);
    });
}

/// A cancelling document with one thing wrong.
std::function<void(QJsonObject&)> cancelling(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        saved.insert(u"type"_s, 25);
        saved.insert(u"takesBack"_s, 3);
        damage(saved);
    };
}

const Damage damages[] = {
    {"formatMissing", without("format")},
    {"formatOfTheFuture", with("format", 99)},
    {"typeOfAnotherKind", with("type", 2)},
    {"typeIsText", with("type", u"1"_s)},
    {"numberMissing", without("number")},
    {"numberIsText", with("number", u"7"_s)},
    {"numberIsZero", with("number", 0)},
    {"numberIsHuge", with("number", 1e12)},
    {"numberIsBroken", with("number", 1.5)},
    {"openedIsNoTime", with("opened", u"yesterday"_s)},
    {"stateUnknown", with("state", u"lost"_s)},
    {"stateInAnotherCase", with("state", u"Open"_s)},
    {"stateIsNumber", with("state", 1)},
    {"closedWithoutItsTime", closed(without("finished"))},
    {"closedWithoutTheMoney", closed(without("received"))},
    {"cancelledWithoutItsTime", with("state", u"cancelled"_s)},
    {"finishedIsNoTime", closed(with("finished", u"today"_s))},
    {"receivedIsText", closed(with("received", u"50"_s))},
    {"annulledWithoutItsTime", annulled(without("annulled"))},
    {"annulledIsNoTime", annulled(with("annulled", true))},
    {"cancellingWithoutItsSale", cancelling(without("takesBack"))},
    {"takesBackIsZero", cancelling(with("takesBack", 0))},
    {"takesBackIsText", cancelling(with("takesBack", u"3"_s))},
    {"takenBackByIsText", with("takenBackBy", u"9"_s)},
    {"takenBackByIsBroken", with("takenBackBy", 9.5)},
    {"positionsIsNoList", with("positions", QJsonObject())},
    {"positionIsNoObject", with("positions", QJsonArray{1})},
    {"nextPositionMissing", without("nextPosition")},
    {"pluginsMissing", without("plugins")},
    {"positionWithoutName", firstPosition(without("name"))},
    {"positionWithoutPrice", firstPosition(without("price"))},
    {"positionPriceIsText", firstPosition(with("price", u"1"_s))},
    {"positionWithoutQuantity", firstPosition(without("quantity"))},
    {"positionWithoutTags", firstPosition(without("tags"))},
    {"positionWithoutOptions", firstPosition(without("extendedOptions"))},
    {"positionWithoutSoftCheckId", firstPosition(without("softCheckId"))},
    {"positionInitialPriceIsText", firstPosition(with("initialPrice", u"1"_s))},
    {"twoPositionsOfOneNumber", firstPosition(with("number", 2))},
};

} // namespace

TEST(Receipt, undamagedOnesOfEveryKind_areRead)
{
    const auto nothing = [](QJsonObject&) {};
    for (const auto& kind : {closed(nothing), annulled(nothing), cancelling(nothing)}) {
        QJsonObject saved = twoPositions()->toJson();
        kind(saved);
        EXPECT_NO_THROW(Receipt::fromJson(saved)) << saved.value(u"state"_s).toString().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Receipt, DamagedReceipt, ::testing::ValuesIn(damages),
                         [](const auto& tested) { return std::string(tested.param.name); });
