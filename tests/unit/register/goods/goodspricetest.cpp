// SPDX-License-Identifier: MIT
#include "goodsprice.h"
#include "cataloguegoods.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A price as the database holds it, and the cashier's words for what is wrong with it; no words: nothing is.
struct Held {
    const char* name;
    QVariant value;
    qint64 kopecks;
    QString wrong = {};
};

class AskedPrice : public ::testing::TestWithParam<Held>
{
};

class OptionalPrice : public ::testing::TestWithParam<Held>
{
};

void expectRead(const GoodsPrice& price, const Held& held)
{
    if (held.wrong.isEmpty()) {
        ASSERT_TRUE(price) << price.failure().ui().toStdString();
        EXPECT_EQ(price->count(), held.kopecks);
    } else {
        ASSERT_FALSE(price) << price->count();
        EXPECT_EQ(price.failure().ui(), held.wrong);
    }
}

TEST_P(AskedPrice, isReadOrSaysWhatIsWrong)
{
    expectRead(goodsprice::asked(GetParam().value), GetParam());
}

TEST_P(OptionalPrice, isReadOrSaysWhatIsWrong)
{
    expectRead(goodsprice::optional(GetParam().value), GetParam());
}

const QList<Held>& usable()
{
    static const QList<Held> rows{
        {"decimals", 12.4, 1240},
        {"whole", 12, 1200},
        {"wholeOf64Bits", qlonglong(12), 1200},
        {"leastPrice", 0.01, 1},
        {"greatestPrice", 1e8, 10'000'000'000},
        {"greatestPriceWithDecimals", 99'999'999.99, 9'999'999'999},
        {"sumThatBinaryLoses", 0.1 + 0.2, 30},
        {"text", u"12.50"_s, 1250},
        {"textWithIdleZeros", u"12.5000"_s, 1250},
        {"textBetweenBlanks", u" 12.5 "_s, 1250},
    };
    return rows;
}

const QList<Held>& unusable()
{
    static const QList<Held> rows{
        {"comma", u"12,50"_s, 0, u"«12,50» — не число"_s},
        {"separatedThousands", u"1 250.00"_s, 0, u"«1 250.00» — не число"_s},
        {"separatedByComma", u"1,250.00"_s, 0, u"«1,250.00» — не число"_s},
        {"words", u"по запросу"_s, 0, u"«по запросу» — не число"_s},
        {"withCurrency", u"12.50 руб."_s, 0, u"«12.50 руб.» — не число"_s},
        {"notANumber", std::numeric_limits<double>::quiet_NaN(), 0, u"«nan» — не число"_s},
        {"textNotANumber", u"NaN"_s, 0, u"«NaN» — не число"_s},
        {"infinity", infinity, 0, u"inf — больше 100 000 000"_s},
        {"belowInfinity", -infinity, 0, u"−inf — меньше нуля"_s},
        {"negative", -5, 0, u"−5 — меньше нуля"_s},
        {"negativeText", u"-5"_s, 0, u"−5 — меньше нуля"_s},
        {"threeDecimals", 10.004, 0, u"10.004 — больше двух знаков после запятой"_s},
        {"threeDecimalsInText", u"10.004"_s, 0, u"10.004 — больше двух знаков после запятой"_s},
        {"lessThanAKopeck", 0.001, 0, u"0.001 — больше двух знаков после запятой"_s},
        {"overTheGreatest", 100'000'000.01, 0, u"100000000.01 — больше 100 000 000"_s},
        {"tenThousandBillions", 1e13, 0, u"1e+13 — больше 100 000 000"_s},
    };
    return rows;
}

const QList<Held> noAskedPrice{
    {"null", QVariant(), 0, u"не указана"_s},
    {"nullOfText", QVariant(QMetaType::fromType<QString>()), 0, u"не указана"_s},
    {"emptyText", u""_s, 0, u"не указана"_s},
    {"blanks", u"  "_s, 0, u"не указана"_s},
    {"zero", 0.0, 0, u"0 — не больше нуля"_s},
    {"zeroInText", u"0.00"_s, 0, u"0.00 — не больше нуля"_s},
};

const QList<Held> none{
    {"null", QVariant(), 0},
    {"nullOfText", QVariant(QMetaType::fromType<QString>()), 0},
    {"emptyText", u""_s, 0},
    {"zero", 0.0, 0},
};

std::string nameOf(const ::testing::TestParamInfo<Held>& row)
{
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Usable, AskedPrice, ::testing::ValuesIn(usable()), nameOf);
INSTANTIATE_TEST_SUITE_P(Unusable, AskedPrice, ::testing::ValuesIn(unusable()), nameOf);
INSTANTIATE_TEST_SUITE_P(None, AskedPrice, ::testing::ValuesIn(noAskedPrice), nameOf);
INSTANTIATE_TEST_SUITE_P(Usable, OptionalPrice, ::testing::ValuesIn(usable()), nameOf);
INSTANTIATE_TEST_SUITE_P(Unusable, OptionalPrice, ::testing::ValuesIn(unusable()), nameOf);
INSTANTIATE_TEST_SUITE_P(None, OptionalPrice, ::testing::ValuesIn(none), nameOf);

CatalogueGoods goods()
{
    CatalogueGoods made;
    made.name = u"Бинт %2"_s;
    made.price = Kopecks{1240};
    return made;
}

TEST(CatalogueGoods, pricesThatCanBeUsed_areNoObstacle)
{
    EXPECT_FALSE(goods().obstacleToSelling());
}

TEST(CatalogueGoods, anyPriceThatCannotBeUsed_isAnObstacleThatNamesGoodsAndPrice)
{
    const std::pair<GoodsPrice CatalogueGoods::*, QString> rows[] = {
        {&CatalogueGoods::price, u"Его цена: «12,50» — не число."_s},
        {&CatalogueGoods::cataloguePrice, u"Его цена по каталогу: «12,50» — не число."_s},
        {&CatalogueGoods::minRetailPrice, u"Его наименьшая цена: «12,50» — не число."_s},
    };
    for (const auto& [price, words] : rows) {
        CatalogueGoods damaged = goods();
        damaged.*price = goodsprice::asked(u"12,50"_s);
        const auto obstacle = damaged.obstacleToSelling();
        ASSERT_TRUE(obstacle) << words.toStdString();
        EXPECT_EQ(obstacle->ui(), u"Товар «Бинт %2» не продаётся.\n"_s + words +
                                      u"\nВыберите другой товар или позовите администратора: цену исправляют в базе "
                                      "товаров."_s);
    }
}

TEST(CatalogueGoods, priceThatWasNotRead_isAnObstacle)
{
    EXPECT_TRUE(CatalogueGoods().obstacleToSelling());
}

} // namespace
