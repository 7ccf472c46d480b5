// SPDX-License-Identifier: MIT
#include "amount.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Amount, roubles_areRoundedToTheNearestKopeck)
{
    EXPECT_EQ(kopecks(10.01), 1001);
    EXPECT_EQ(kopecks(0.29), 29);
    EXPECT_EQ(kopecks(1.005), 100) << "1.005 is a little less in binary";
    EXPECT_EQ(kopecks(-2.5), -250);
    EXPECT_EQ(kopecks(1234567.89), 123456789);
}

TEST(Amount, text_hasTwoDecimalsAndSeparatesThousands)
{
    const QString space(QChar::Nbsp);
    EXPECT_EQ(amountText(0), u"0,00"_s);
    EXPECT_EQ(amountText(5), u"0,05"_s);
    EXPECT_EQ(amountText(123450), u"1"_s + space + u"234,50"_s);
    EXPECT_EQ(amountText(99999), u"999,99"_s);
    EXPECT_EQ(amountText(123456789012), u"1"_s + space + u"234"_s + space + u"567"_s + space + u"890,12"_s);
    EXPECT_EQ(amountText(-150), u"-1,50"_s);
}
