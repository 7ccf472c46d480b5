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
    EXPECT_EQ(again->toJson().value(QStringLiteral("closed")).toBool(), GetParam().isClosed);
}

INSTANTIATE_TEST_SUITE_P(
    Receipt, EndedReceipt,
    ::testing::Values(
        Ended{"open", {}, false, QStringLiteral("receipt.json")},
        Ended{"putAside", {.state = Receipt::State::PutAside}, false, QStringLiteral("putaside/00000007.json")},
        Ended{"closed",
              {.state = Receipt::State::Closed, .finished = evening, .received = 5000},
              true,
              QStringLiteral("finished/00000007.json")},
        Ended{"closedForNothing",
              {.state = Receipt::State::Closed, .finished = evening},
              true,
              QStringLiteral("finished/00000007.json")},
        Ended{"cancelled",
              {.state = Receipt::State::Cancelled, .finished = evening},
              true,
              QStringLiteral("finished/00000007.json")},
        Ended{"annulledAfterItWasClosed",
              {.state = Receipt::State::Annulled, .finished = evening, .annulled = nextDay, .received = 5000},
              true,
              QStringLiteral("finished/00000007.json")},
        Ended{"annulledAfterItWasPutAside",
              {.state = Receipt::State::Annulled, .finished = nextDay, .annulled = nextDay},
              true,
              QStringLiteral("finished/00000007.json")}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Receipt, savedWithoutAState_isOpen)
{
    QJsonObject saved = twoPositions()->toJson();
    saved.remove(QStringLiteral("state"));
    EXPECT_EQ(Receipt::fromJson(saved)->getState(), Receipt::State::Open);
}

TEST(Receipt, cancellingDocument_hasEverythingOfTheSaleAndALifeOfItsOwn)
{
    const auto sale = twoPositions();
    sale->remove(2);
    sale->add(goods(QStringLiteral("Третий"), 5, 2), QStringLiteral("333"));
    const auto first = sale->position(1);
    first->setPrice(0.5);
    first->setTag(QStringLiteral("prescription"));
    first->setSoftCheckId(QStringLiteral("rx-1"));
    first->setExtendedOptions(QStringLiteral("{\"status\":\"dispensed\"}"));
    sale->setPluginValue(QStringLiteral("Plugin"), QStringLiteral("cardNumber"), QStringLiteral("0011"));
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
    EXPECT_EQ(document->fileName(), QStringLiteral("receipt.json"));
    for (const char* same : {"positions", "plugins", "sum", "nextPosition"})
        EXPECT_EQ(document->toJson().value(QLatin1String(same)), before.value(QLatin1String(same))) << same;
    EXPECT_EQ(reread(*document)->toJson(), document->toJson());
    EXPECT_EQ(reread(*document)->getTakesBack(), 7);

    document->position(1)->setExtendedOptions(QStringLiteral("{\"status\":\"canceled\"}"));
    document->setPluginValue(QStringLiteral("Plugin"), QStringLiteral("cardNumber"), {});
    document->remove(3);
    EXPECT_EQ(sale->toJson(), before);
}

TEST(Receipt, pluginDataTakenOver_isThatOfThePositionsOfTheSameNumbers)
{
    const auto target = twoPositions();
    target->position(1)->setTag(QStringLiteral("before"));
    target->position(2)->setExtendedOptions(QStringLiteral("{\"old\":1}"));
    const auto source = twoPositions();
    source->add(goods(QStringLiteral("Третий"), 1, 1), {});
    for (const auto& position : source->positions()) {
        const QString number = QString::number(position->getNumber());
        position->setTag(QStringLiteral("tag") + number);
        position->setSoftCheckId(QStringLiteral("rx") + number);
        position->setExtendedOptions(QStringLiteral("{\"new\":%1}").arg(number));
        position->setPrice(0.01);
        position->setQuantity(50);
    }
    source->remove(2);

    target->takeOverPluginData(*source);
    ASSERT_EQ(target->positions().size(), 2);
    const auto first = target->position(1);
    EXPECT_EQ(first->getTags(), (QStringList{QStringLiteral("before"), QStringLiteral("tag1")}));
    EXPECT_EQ(first->getSoftCheckId(), QStringLiteral("rx1"));
    EXPECT_EQ(first->getExtendedOptions(), QStringLiteral("{\"new\":1}"));
    EXPECT_EQ(first->getPrice(), 10.01) << "what the register keeps stays";
    EXPECT_EQ(first->getQuantity(), 3.0);
    EXPECT_EQ(target->position(2)->getExtendedOptions(), QStringLiteral("{\"old\":1}")) << "not among the source's";
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

/// A closed sale with one thing wrong.
std::function<void(QJsonObject&)> closed(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        saved.insert(QStringLiteral("state"), QStringLiteral("closed"));
        saved.insert(QStringLiteral("finished"), QStringLiteral("2024-02-29T12:31:00"));
        saved.insert(QStringLiteral("received"), 50);
        damage(saved);
    };
}

/// An annulled sale with one thing wrong.
std::function<void(QJsonObject&)> annulled(const std::function<void(QJsonObject&)>& damage)
{
    return closed([damage](QJsonObject& saved) {
        saved.insert(QStringLiteral("state"), QStringLiteral("annulled"));
        saved.insert(QStringLiteral("annulled"), QStringLiteral("2024-03-01T08:00:00"));
        damage(saved);
    });
}

/// A cancelling document with one thing wrong.
std::function<void(QJsonObject&)> cancelling(const std::function<void(QJsonObject&)>& damage)
{
    return [damage](QJsonObject& saved) {
        saved.insert(QStringLiteral("type"), 25);
        saved.insert(QStringLiteral("takesBack"), 3);
        damage(saved);
    };
}

const Damage damages[] = {
    {"formatMissing", without("format")},
    {"formatOfTheFuture", with("format", 99)},
    {"typeOfAnotherKind", with("type", 2)},
    {"typeIsText", with("type", QStringLiteral("1"))},
    {"numberMissing", without("number")},
    {"numberIsText", with("number", QStringLiteral("7"))},
    {"numberIsZero", with("number", 0)},
    {"numberIsHuge", with("number", 1e12)},
    {"numberIsBroken", with("number", 1.5)},
    {"openedIsNoTime", with("opened", QStringLiteral("yesterday"))},
    {"stateUnknown", with("state", QStringLiteral("lost"))},
    {"stateInAnotherCase", with("state", QStringLiteral("Open"))},
    {"stateIsNumber", with("state", 1)},
    {"closedWithoutItsTime", closed(without("finished"))},
    {"closedWithoutTheMoney", closed(without("received"))},
    {"cancelledWithoutItsTime", with("state", QStringLiteral("cancelled"))},
    {"finishedIsNoTime", closed(with("finished", QStringLiteral("today")))},
    {"receivedIsText", closed(with("received", QStringLiteral("50")))},
    {"annulledWithoutItsTime", annulled(without("annulled"))},
    {"annulledIsNoTime", annulled(with("annulled", true))},
    {"cancellingWithoutItsSale", cancelling(without("takesBack"))},
    {"takesBackIsZero", cancelling(with("takesBack", 0))},
    {"takesBackIsText", cancelling(with("takesBack", QStringLiteral("3")))},
    {"takenBackByIsText", with("takenBackBy", QStringLiteral("9"))},
    {"takenBackByIsBroken", with("takenBackBy", 9.5)},
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

TEST(Receipt, undamagedOnesOfEveryKind_areRead)
{
    const auto nothing = [](QJsonObject&) {};
    for (const auto& kind : {closed(nothing), annulled(nothing), cancelling(nothing)}) {
        QJsonObject saved = twoPositions()->toJson();
        kind(saved);
        EXPECT_NO_THROW(Receipt::fromJson(saved)) << saved.value(QStringLiteral("state")).toString().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Receipt, DamagedReceipt, ::testing::ValuesIn(damages),
                         [](const auto& tested) { return std::string(tested.param.name); });
