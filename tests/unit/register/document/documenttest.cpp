// SPDX-License-Identifier: MIT
#include "document.h"
#include "basicexception.h"
#include "pluginscope.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

GoodsItem::Goods goods(const QString& name, double price, double packs)
{
    GoodsItem::Goods made;
    made.name = name;
    made.price = Kopecks::fromRoubles(price).value();
    made.quantity = packs;
    return made;
}

QSharedPointer<Document> twoPositions()
{
    auto document = QSharedPointer<Document>::create(7, QDateTime({2024, 2, 29}, {12, 30, 15}));
    document->add(goods(u"Первый <b>%1</b>"_s, 10.01, 3), u"111"_s);
    document->add(goods(u"Второй"_s, 0.1, 1), {});
    return document;
}

/// The document as it comes back from a file.
QSharedPointer<Document> reread(const Document& document)
{
    return Document::fromJson(QJsonDocument::fromJson(QJsonDocument(document.toJson()).toJson()).object());
}

} // namespace

TEST(Document, sum_isExactInKopecks)
{
    Document document(1, QDateTime::currentDateTime());
    for (int i = 0; i < 1000; ++i) {
        document.add(goods(u"x"_s, 0.1, 1), {});
    }
    EXPECT_EQ(document.getSum(), Kopecks{10000});
}

TEST(Document, lastPositionRemoved_itsNumberIsNotUsedAgain)
{
    const auto document = twoPositions();
    document->remove(2);
    EXPECT_EQ(document->add(goods(u"x"_s, 1, 1), {})->getNumber(), 3);
    EXPECT_EQ(reread(*document)->add(goods(u"y"_s, 1, 1), {})->getNumber(), 4);
}

TEST(Document, lastPositionRemovedAndReread_itsNumberIsNotUsedAgain)
{
    const auto document = twoPositions();
    document->remove(2);
    EXPECT_EQ(reread(*document)->add(goods(u"x"_s, 1, 1), {})->getNumber(), 3);
}

TEST(Document, positionByNumber_isNullWhenThereIsNone)
{
    const auto document = twoPositions();
    EXPECT_EQ(document->position(2)->getName(), u"Второй"_s);
    EXPECT_FALSE(document->position(3));
    EXPECT_FALSE(document->position(0));
}

TEST(Position, priceLoweredTwice_initialPriceStaysTheFirst)
{
    Position position(goods(u"x"_s, 10.0, 1), {});
    EXPECT_EQ(position.initialPrice(), Kopecks{1000});
    position.setPrice(5.0);
    position.setPrice(1.0);
    EXPECT_EQ(position.initialPrice(), Kopecks{1000});
    EXPECT_EQ(position.getPrice(), 1.0);
}

TEST(Position, priceSetToItself_isNoChange)
{
    Position position(goods(u"x"_s, 10.0, 1), {});
    position.setPrice(10.0);
    EXPECT_FALSE(position.toJson().contains(u"initialPrice"_s));
}

TEST(Document, savedAndReread_nothingIsLost)
{
    const auto document = twoPositions();
    const auto first = document->position(1);
    first->setPrice(0.5);
    first->setTag(u"prescription"_s);
    first->setTag(u"second tag"_s);
    first->setSoftCheckId(u"rx-%41+;"_s);
    const QString options = u"{\"id\":\"a\\\"b\",\"sumFactor\":0.1}"_s;
    first->setExtendedOptions(options);
    document->setPluginValue(u"Plugin"_s, u"cardNumber"_s, u"0011 %1"_s);
    document->setPluginValue(u"Plugin"_s, u"list"_s, QStringList{u"a"_s});

    const auto again = reread(*document);
    EXPECT_EQ(again->toJson(), document->toJson());
    EXPECT_EQ(again->getNumber(), 7);
    EXPECT_EQ(again->getOpened(), document->getOpened());
    EXPECT_EQ(again->getType(), AbstractDocument::Sale);
    EXPECT_FALSE(again->isClosed());
    ASSERT_EQ(again->positions().size(), 2);
    const auto position = again->position(1);
    EXPECT_EQ(position->getName(), u"Первый <b>%1</b>"_s);
    EXPECT_EQ(position->getPrice(), 0.5);
    EXPECT_EQ(position->initialPrice(), Kopecks{1001});
    EXPECT_EQ(position->getQuantity(), 3.0);
    EXPECT_EQ(position->getTags(), (QStringList{u"prescription"_s, u"second tag"_s}));
    EXPECT_EQ(position->getExtendedOptions(), options);
    EXPECT_EQ(position->getSoftCheckId(), u"rx-%41+;"_s);
    EXPECT_EQ(again->getPluginValue(u"Plugin"_s, u"cardNumber"_s, {}).toString(), u"0011 %1"_s);
}

TEST(Document, pluginOfAPosition_isSavedAndComesBackWhoeverReadsIt)
{
    const auto document = twoPositions();
    {
        const PluginScope scope(u"prescriptions"_s);
        document->position(1)->setSoftCheckId(u"rx-1"_s);
    }
    document->position(2)->setSoftCheckId(u"rx-2"_s);
    const QJsonArray positions = document->toJson()["positions"_L1].toArray();
    EXPECT_EQ(positions.at(0)["plugin"_L1].toString(), u"prescriptions"_s);
    EXPECT_FALSE(positions.at(1).toObject().contains("plugin"_L1));

    const PluginScope reader(u"discounts"_s);
    const auto again = reread(*document);
    EXPECT_EQ(again->toJson(), document->toJson());
    EXPECT_EQ(again->position(1)->getPlugin(), u"prescriptions"_s);
    EXPECT_EQ(again->position(2)->getPlugin(), QString());
    const auto returned = Document::returnOf(*document, 9, document->getOpened());
    EXPECT_EQ(returned->position(1)->getPlugin(), u"prescriptions"_s);
    EXPECT_EQ(returned->position(2)->getPlugin(), QString());
}

TEST(Document, undecidedPlugins_comeBackAndGoOverToTheReturnAndBackToTheSale)
{
    const auto document = twoPositions();
    document->position(1)->noteUndecidedPlugins({u"papers"_s, u"stamps"_s});
    const QJsonArray positions = document->toJson()["positions"_L1].toArray();
    EXPECT_EQ(positions.at(0)["undecided"_L1].toArray(), (QJsonArray{u"papers"_s, u"stamps"_s}));
    EXPECT_FALSE(positions.at(1).toObject().contains("undecided"_L1));

    const auto again = reread(*document);
    EXPECT_EQ(again->toJson(), document->toJson());
    EXPECT_EQ(again->position(1)->savedUndecidedPlugins(), (QStringList{u"papers"_s, u"stamps"_s}));
    EXPECT_EQ(again->position(2)->savedUndecidedPlugins(), QStringList());

    const auto returned = Document::returnOf(*document, 9, document->getOpened());
    EXPECT_EQ(returned->position(1)->savedUndecidedPlugins(), (QStringList{u"papers"_s, u"stamps"_s}));
    returned->position(1)->noteUndecidedPlugins({u"stamps"_s});
    document->takeOverPluginData(*returned);
    EXPECT_EQ(document->position(1)->savedUndecidedPlugins(), QStringList(u"stamps"_s));
}

TEST(Document, nameOfTenThousandCharacters_comesBackWhole)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    const QString name(10'000, QChar(0x416));
    document.add(goods(name, 1, 1), {});
    EXPECT_EQ(reread(document)->position(1)->getName(), name);
}

TEST(Document, change_isWhatTheCustomerGetsBack)
{
    const auto document = twoPositions();
    document->setEnding({.state = Document::State::Closed, .payments = {Payment::cash(Kopecks{5000})}});
    EXPECT_EQ(document->getSum(), Kopecks{3013});
    EXPECT_EQ(document->getChange(), Kopecks{1987});
    const auto returned = Document::returnOf(*document, 8, document->getOpened());
    returned->setEnding({.state = Document::State::Closed, .payments = {Payment::cash(Kopecks{3013})}});
    EXPECT_EQ(returned->getChange(), Kopecks{0});
}

namespace
{

struct Ended {
    const char* name;
    Document::Ending ending;
    bool isClosed;
    QString file;
};

class EndedDocument : public ::testing::TestWithParam<Ended>
{
};

const QDateTime evening({2024, 2, 29}, {20, 15, 3});
const QDateTime nextDay({2024, 3, 1}, {8, 0});

} // namespace

TEST_P(EndedDocument, savedAndReread_keepsItsStateAndFile)
{
    const auto document = twoPositions();
    document->setEnding(GetParam().ending);
    document->addReturn(9);
    EXPECT_EQ(document->isClosed(), GetParam().isClosed);
    EXPECT_EQ(document->fileName(), GetParam().file);

    const auto again = reread(*document);
    EXPECT_EQ(again->toJson(), document->toJson());
    EXPECT_EQ(again->getState(), GetParam().ending.state);
    EXPECT_EQ(again->getFinished(), GetParam().ending.finished);
    EXPECT_EQ(again->getVoided(), GetParam().ending.voided);
    EXPECT_EQ(again->ending().payments, GetParam().ending.payments);
    EXPECT_EQ(again->isVoidingBegun(), GetParam().ending.voidingBegun);
    EXPECT_EQ(again->isClosed(), GetParam().isClosed);
    EXPECT_EQ(again->fileName(), GetParam().file);
    EXPECT_EQ(again->getReturnedBy(), 9);
    EXPECT_EQ(again->getReturnedSale(), 0);
    EXPECT_EQ(again->toJson().value(u"closed"_s).toBool(), GetParam().isClosed);
}

INSTANTIATE_TEST_SUITE_P(
    Document, EndedDocument,
    ::testing::Values(
        Ended{"open", {}, false, u"receipt.json"_s},
        Ended{"suspended", {.state = Document::State::Suspended}, false, u"putaside/00000007.json"_s},
        Ended{"closed",
              {.state = Document::State::Closed, .finished = evening, .payments = {Payment::cash(Kopecks{5000})}},
              true,
              u"finished/00000007.json"_s},
        Ended{"closedAndItsVoidingBegun",
              {.state = Document::State::Closed,
               .finished = evening,
               .payments = {Payment::cash(Kopecks{5000})},
               .voidingBegun = true},
              true,
              u"finished/00000007.json"_s},
        Ended{"closedForNothing",
              {.state = Document::State::Closed, .finished = evening, .payments = {Payment::cash(Kopecks{0})}},
              true,
              u"finished/00000007.json"_s},
        Ended{
            "cancelled", {.state = Document::State::Cancelled, .finished = evening}, true, u"finished/00000007.json"_s},
        Ended{"voidedAfterItWasClosed",
              {.state = Document::State::Voided,
               .finished = evening,
               .voided = nextDay,
               .payments = {Payment::cash(Kopecks{5000})}},
              true,
              u"finished/00000007.json"_s},
        Ended{"voidedAfterItWasSuspended",
              {.state = Document::State::Voided, .finished = nextDay, .voided = nextDay},
              true,
              u"finished/00000007.json"_s}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Document, savedWithoutAState_isOpen)
{
    QJsonObject saved = twoPositions()->toJson();
    saved.remove(u"state"_s);
    EXPECT_EQ(Document::fromJson(saved)->getState(), Document::State::Open);
}

TEST(Document, return_copiesTheSaleAndDoesNotChangeIt)
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
    sale->setEnding(
        {.state = Document::State::Closed, .finished = evening, .payments = {Payment::cash(Kopecks{5000})}});
    sale->addReturn(9);
    const QJsonObject before = sale->toJson();

    const auto document = Document::returnOf(*sale, 9, nextDay);
    EXPECT_EQ(document->getType(), AbstractDocument::Return);
    EXPECT_TRUE(document->isReturn());
    EXPECT_EQ(document->getNumber(), 9);
    EXPECT_EQ(document->getOpened(), nextDay);
    EXPECT_EQ(document->getReturnedSale(), 7);
    EXPECT_EQ(document->getReturnedBy(), 0);
    EXPECT_EQ(document->getState(), Document::State::Open);
    EXPECT_EQ(document->getReceived(), Kopecks{0});
    EXPECT_FALSE(document->getFinished().isValid());
    EXPECT_EQ(document->fileName(), u"receipt.json"_s);
    for (const char* same : {"positions", "plugins", "sum", "nextPosition"}) {
        EXPECT_EQ(document->toJson().value(QLatin1StringView(same)), before.value(QLatin1StringView(same))) << same;
    }
    EXPECT_EQ(reread(*document)->toJson(), document->toJson());
    EXPECT_EQ(reread(*document)->getReturnedSale(), 7);

    document->position(1)->setExtendedOptions(u"{\"status\":\"canceled\"}"_s);
    document->setPluginValue(u"Plugin"_s, u"cardNumber"_s, {});
    document->remove(3);
    EXPECT_EQ(sale->toJson(), before);
}

TEST(Document, takeOverPluginData_copiesItToThePositionsWithTheSameNumbers)
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

    {
        const PluginScope scope(u"prescriptions"_s);
        source->position(1)->setSoftCheckId(u"rx1"_s);
    }
    target->takeOverPluginData(*source);
    EXPECT_EQ(target->position(1)->getPlugin(), u"prescriptions"_s);
    ASSERT_EQ(target->positions().size(), 2);
    const auto first = target->position(1);
    EXPECT_EQ(first->getTags(), (QStringList{u"before"_s, u"tag1"_s}));
    EXPECT_EQ(first->getSoftCheckId(), u"rx1"_s);
    EXPECT_EQ(first->getExtendedOptions(), u"{\"new\":1}"_s);
    EXPECT_EQ(first->getPrice(), 10.01) << "not plug-in data";
    EXPECT_EQ(first->getQuantity(), 3.0);
    EXPECT_EQ(target->position(2)->getExtendedOptions(), u"{\"old\":1}"_s) << "not among the source's";
    EXPECT_TRUE(target->position(2)->getTags().isEmpty());
}

/// One thing wrong in a saved document.
struct Damage {
    const char* name;
    std::function<void(QJsonObject&)> make;
};

class DamagedDocument : public ::testing::TestWithParam<Damage>
{
};

TEST_P(DamagedDocument, fromJson_throws)
{
    QJsonObject saved = twoPositions()->toJson();
    GetParam().make(saved);
    EXPECT_THROW(Document::fromJson(saved), BasicException);
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

/// A voided sale with one thing wrong.
std::function<void(QJsonObject&)> voided(const std::function<void(QJsonObject&)>& damage)
{
    return closed([damage](QJsonObject& saved) {
        saved.insert(u"state"_s, u"annulled"_s);
        saved.insert(u"annulled"_s, u"2024-03-01T08:00:00"_s);
        damage(saved);
    });
}

/// A return with one thing wrong.
std::function<void(QJsonObject&)> returnOf(const std::function<void(QJsonObject&)>& damage)
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
    {"voidingBegunIsText", closed(with("annulmentBegun", u"true"_s))},
    {"voidingBegunIsFalse", closed(with("annulmentBegun", false))},
    {"closingIsText", closed(with("closing", u"1"_s))},
    {"closingIsZero", closed(with("closing", 0))},
    {"pluginIsNoText", firstPosition(with("plugin", 5))},
    {"stateInAnotherCase", with("state", u"Open"_s)},
    {"stateIsNumber", with("state", 1)},
    {"closedWithoutItsTime", closed(without("finished"))},
    {"closedWithoutTheMoney", closed(without("received"))},
    {"cancelledWithoutItsTime", with("state", u"cancelled"_s)},
    {"finishedIsNoTime", closed(with("finished", u"today"_s))},
    {"receivedIsText", closed(with("received", u"50"_s))},
    {"voidedWithoutItsTime", voided(without("annulled"))},
    {"voidedIsNoTime", voided(with("annulled", true))},
    {"returnWithoutItsSale", returnOf(without("takesBack"))},
    {"returnedSaleIsZero", returnOf(with("takesBack", 0))},
    {"returnedSaleIsText", returnOf(with("takesBack", u"3"_s))},
    {"returnedByIsText", with("takenBackBy", u"9"_s)},
    {"returnedByIsBroken", with("takenBackBy", 9.5)},
    {"positionsIsNoList", with("positions", QJsonObject())},
    {"positionIsNoObject", with("positions", QJsonArray{1})},
    {"nextPositionMissing", without("nextPosition")},
    {"pluginsMissing", without("plugins")},
    {"positionWithoutName", firstPosition(without("name"))},
    {"positionWithoutPrice", firstPosition(without("price"))},
    {"positionPriceIsText", firstPosition(with("price", u"1"_s))},
    {"positionPriceBeyondAnyPrice", firstPosition(with("price", 100'000'000.01))},
    {"positionPriceFarBelowZero", firstPosition(with("price", -1e12))},
    {"positionMinRetailPriceBeyondAnyPrice", firstPosition(with("minRetailPrice", 1e300))},
    {"positionTmcPriceBeyondAnyPrice", firstPosition(with("tmcPrice", 1e9))},
    {"positionInitialPriceBeyondAnyPrice", firstPosition(with("initialPrice", 1e9))},
    {"positionQuantityBeyondAnyQuantity", firstPosition(with("quantity", 100'001))},
    {"positionQuantityFinerThanThousandths", firstPosition(with("quantity", 0.3333))},
    {"receivedBeyondAnyAmount", closed(with("received", 1e14))},
    {"positionWithoutQuantity", firstPosition(without("quantity"))},
    {"positionWithoutTags", firstPosition(without("tags"))},
    {"positionWithoutOptions", firstPosition(without("extendedOptions"))},
    {"positionWithoutSoftCheckId", firstPosition(without("softCheckId"))},
    {"positionInitialPriceIsText", firstPosition(with("initialPrice", u"1"_s))},
    {"positionUndecidedIsText", firstPosition(with("undecided", u"stamps"_s))},
    {"positionUndecidedHoldsNumber", firstPosition(with("undecided", QJsonArray{1}))},
    {"twoPositionsOfOneNumber", firstPosition(with("number", 2))},
};

} // namespace

TEST(Document, undamagedDocumentsOfEveryKind_areRead)
{
    const auto nothing = [](QJsonObject&) {};
    for (const auto& kind : {closed(nothing), voided(nothing), returnOf(nothing)}) {
        QJsonObject saved = twoPositions()->toJson();
        kind(saved);
        EXPECT_NO_THROW(Document::fromJson(saved)) << saved.value(u"state"_s).toString().toStdString();
    }
}

TEST(Document, savedPriceFinerThanKopecks_isRoundedAndTheSumIsThatOfTheRoundedPrice)
{
    QJsonObject saved = twoPositions()->toJson();
    firstPosition(with("price", 10.004))(saved);
    firstPosition(with("quantity", 100))(saved);
    const auto document = Document::fromJson(saved);
    EXPECT_EQ(document->position(1)->getPrice(), 10.0);
    EXPECT_EQ(document->position(1)->getSum(), Kopecks{100'000});
}

TEST(Position, priceThatIsRefused_isNoChange)
{
    Position position(goods(u"x"_s, 10.0, 1), {});
    position.setPrice(std::numeric_limits<double>::quiet_NaN());
    position.setPrice(1e9);
    EXPECT_EQ(position.getPrice(), 10.0);
    EXPECT_EQ(position.initialPrice(), Kopecks{1000});
    EXPECT_FALSE(position.toJson().contains(u"initialPrice"_s));
}

INSTANTIATE_TEST_SUITE_P(Document, DamagedDocument, ::testing::ValuesIn(damages),
                         [](const auto& tested) { return std::string(tested.param.name); });

class PaidDocument : public ::testing::Test
{
protected:
    QJsonObject savedAfter(const QList<Payment>& payments) const
    {
        const auto document = twoPositions();
        document->setEnding(
            {.state = Document::State::Closed, .finished = QDateTime({2024, 2, 29}, {13, 0}), .payments = payments});
        return document->toJson();
    }
};

TEST_F(PaidDocument, oneOfCash_isSavedAsTheSumReceivedAlone)
{
    const QJsonObject saved = savedAfter({Payment::cash(Kopecks{5000})});
    EXPECT_EQ(saved.value("received"_L1).toDouble(), 50);
    EXPECT_FALSE(saved.contains("payments"_L1));
    EXPECT_EQ(Document::fromJson(saved)->ending().payments, QList{Payment::cash(Kopecks{5000})});
}

TEST_F(PaidDocument, severalPayments_areSavedOneByOneWithTheirMethod)
{
    const QList<Payment> payments{Payment::cash(Kopecks{3000}), Payment::cash(Kopecks{2005})};
    const QJsonObject saved = savedAfter(payments);
    EXPECT_EQ(saved.value("received"_L1).toDouble(), 50.05);
    EXPECT_EQ(saved.value("payments"_L1).toArray().at(1).toObject(),
              (QJsonObject{{"method"_L1, "cash"_L1}, {"amount"_L1, 20.05}}));

    const auto again = Document::fromJson(saved);
    EXPECT_EQ(again->ending().payments, payments);
    EXPECT_EQ(again->getReceived(), Kopecks{5005});
    EXPECT_EQ(again->getChange(), Kopecks{5005} - again->getSum());
}

TEST_F(PaidDocument, methodNobodyKnows_isRefusedByItsName)
{
    QJsonObject saved = savedAfter({});
    saved.insert("payments"_L1, QJsonArray{QJsonObject{{"method"_L1, "shells"_L1}, {"amount"_L1, 1}}});
    try {
        Document::fromJson(saved);
        ADD_FAILURE() << "accepted";
    } catch (const BasicException& refused) {
        EXPECT_TRUE(refused.tr().ui().contains("method"_L1)) << refused.what();
    }
}
