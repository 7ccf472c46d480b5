// SPDX-License-Identifier: MIT
#include "amount.h"
#include "configured.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Amount, figures_haveTwoDecimalsAndSeparateThousands)
{
    const QString space(QChar::Nbsp);
    EXPECT_EQ(amountFigures(Kopecks{0}), u"0,00"_s);
    EXPECT_EQ(amountFigures(Kopecks{5}), u"0,05"_s);
    EXPECT_EQ(amountFigures(Kopecks{123450}), u"1"_s + space + u"234,50"_s);
    EXPECT_EQ(amountFigures(Kopecks{99999}), u"999,99"_s);
    EXPECT_EQ(amountFigures(Kopecks{123456789012}), u"1"_s + space + u"234"_s + space + u"567"_s + space + u"890,12"_s);
}

TEST(Amount, belowZero_hasATrueMinusSign)
{
    EXPECT_EQ(amountFigures(Kopecks{-150}), u"\u22121,50"_s);
    EXPECT_EQ(amountFigures(Kopecks{-123'450}), u"\u22121\u00a0234,50"_s);
}

TEST(Amount, text_namesTheConfiguredCurrency)
{
    Configured config;
    EXPECT_EQ(amountText(Kopecks{1240}), u"12,40\u00a0BYN"_s);
    EXPECT_EQ(captionWithCurrency(u"Сумма"_s), u"Сумма, BYN"_s);
    config.set(u"Register:currency"_s, u"руб."_s);
    EXPECT_EQ(amountText(Kopecks{-1240}), u"\u221212,40\u00a0руб."_s);
    EXPECT_EQ(captionWithCurrency(u"Сумма"_s), u"Сумма, руб."_s);
    config.set(u"Register:currency"_s, {});
    EXPECT_EQ(amountText(Kopecks{1240}), u"12,40"_s);
    EXPECT_EQ(captionWithCurrency(u"Сумма"_s), u"Сумма"_s);
}

TEST(Amount, packs_areShownWithTheDecimalsTheyHave)
{
    const std::pair<double, QString> rows[] = {
        {1.0, u"1"_s},     {100.0, u"100"_s},   {100'000.0, u"100000"_s}, {0.5, u"0,5"_s},
        {0.25, u"0,25"_s}, {2.125, u"2,125"_s}, {10.05, u"10,05"_s},      {0.0, u"0"_s},
    };
    for (const auto& [packs, shown] : rows) {
        EXPECT_EQ(packsText(packs), shown);
    }
}
