// SPDX-License-Identifier: MIT
#include "goodslist.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

CatalogueGoods goods(const QString& name, const QString& nonProprietaryName = {}, const QString& barcode = {})
{
    CatalogueGoods one;
    one.name = name;
    one.nonProprietaryName = nonProprietaryName;
    one.barcode = barcode;
    return one;
}

/// The names that a search finds.
QStringList found(const GoodsList& list, const QString& search)
{
    QStringList names;
    for (const int row : list.matching(search)) {
        names.append(list.at(row).name);
    }
    return names;
}

const GoodsList& shelf()
{
    static const GoodsList list{
        goods(u"Анальгин, таблетки 500 мг №10"_s, u"Метамизол натрия"_s, u"4600000000017"_s),
        goods(u"Ёлка сушёная, сбор 50 г"_s, {}, u"4600000000024"_s),
        goods(u"Aspirin, tablets 500 mg"_s, u"Ацетилсалициловая кислота"_s, u"4600000000031"_s),
        goods(u"Фукорцин, раствор 25 мл"_s, {}, u"4600000000048"_s),
    };
    return list;
}

} // namespace

struct GoodsSearch {
    const char* name;
    QString search;
    QStringList expected;
};

class GoodsListSearch : public ::testing::TestWithParam<GoodsSearch>
{
};

TEST_P(GoodsListSearch, typed_findsTheseGoodsInTheListsOrder)
{
    EXPECT_EQ(found(shelf(), GetParam().search), GetParam().expected);
}

const QString analgin = u"Анальгин, таблетки 500 мг №10"_s;
const QString fir = u"Ёлка сушёная, сбор 50 г"_s;
const QString aspirin = u"Aspirin, tablets 500 mg"_s;
const QString dye = u"Фукорцин, раствор 25 мл"_s;

INSTANTIATE_TEST_SUITE_P(
    Searches, GoodsListSearch,
    ::testing::Values(GoodsSearch{"nothing", {}, {analgin, fir, aspirin, dye}},
                      GoodsSearch{"blanks", u" \t "_s, {analgin, fir, aspirin, dye}},
                      GoodsSearch{"otherCase", u"АНАЛЬГ"_s, {analgin}}, GoodsSearch{"yeForYo", u"елка"_s, {fir}},
                      GoodsSearch{"yoForYe", u"сбёр"_s, {}}, GoodsSearch{"yoInTheMiddle", u"СУШЕНАЯ"_s, {fir}},
                      GoodsSearch{"wordsInAnyOrder", u"500 натри анальгин"_s, {analgin}},
                      GoodsSearch{"oneWordMissing", u"анальгин капсулы"_s, {}},
                      GoodsSearch{"partOfAWord", u"стил"_s, {}}, GoodsSearch{"digits", u"500"_s, {analgin, aspirin}},
                      GoodsSearch{"barcode", u"4600000000024"_s, {fir}},
                      GoodsSearch{"nonProprietaryName", u"ацетил"_s, {aspirin}},
                      GoodsSearch{"wrongLayout", u"fyfkmuby"_s, {analgin}},
                      GoodsSearch{"wrongLayoutWithCapitals", u"FYFKMUBY"_s, {analgin}},
                      GoodsSearch{"wrongLayoutOfEnglish", u"фызшкшт"_s, {aspirin}},
                      GoodsSearch{"oneWordInTheWrongLayout", u"fyfkmuby таблетки"_s, {analgin}},
                      GoodsSearch{"wrongLayoutOfYo", u"`krf"_s, {fir}},
                      GoodsSearch{"asTypedFirst", u"as"_s, {aspirin}}, // in the other layout it is "фы"
                      GoodsSearch{"acrossTheTexts", u"№10 метамизол"_s, {analgin}},
                      GoodsSearch{"patternCharacters", u".*"_s, {}}, GoodsSearch{"percent", u"%"_s, {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GoodsListSpellings, ofAName_areThoseOfTheGoodsWithoutRepetition)
{
    const GoodsList list{goods(u"1"_s, u"Ёд"_s), goods(u"2"_s, u"ед "_s), goods(u"3"_s, u"Ёд"_s),
                         goods(u"4"_s, u"Йод"_s)};
    EXPECT_EQ(list.spellings(u" ЕД"_s), QStringList({u"Ёд"_s, u"ед "_s}));
    EXPECT_TRUE(list.spellings(u"Е"_s).isEmpty());
}

TEST(GoodsListCopy, sharesItsGoods)
{
    const GoodsList copy = shelf();
    EXPECT_EQ(&copy.all(), &shelf().all());
    EXPECT_TRUE(GoodsList().isEmpty());
    EXPECT_TRUE(GoodsList().matching(u"x"_s).isEmpty());
}
