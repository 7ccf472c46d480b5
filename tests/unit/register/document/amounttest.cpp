// SPDX-License-Identifier: MIT
#include "amount.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Amount, text_hasTwoDecimalsAndSeparatesThousands)
{
    const QString space(QChar::Nbsp);
    EXPECT_EQ(amountText(Kopecks{0}), u"0,00"_s);
    EXPECT_EQ(amountText(Kopecks{5}), u"0,05"_s);
    EXPECT_EQ(amountText(Kopecks{123450}), u"1"_s + space + u"234,50"_s);
    EXPECT_EQ(amountText(Kopecks{99999}), u"999,99"_s);
    EXPECT_EQ(amountText(Kopecks{123456789012}), u"1"_s + space + u"234"_s + space + u"567"_s + space + u"890,12"_s);
    EXPECT_EQ(amountText(Kopecks{-150}), u"-1,50"_s);
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
