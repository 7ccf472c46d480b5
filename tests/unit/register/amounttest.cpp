// SPDX-License-Identifier: MIT
#include "amount.h"

#include <gtest/gtest.h>

TEST(Amount, kopecks_areTheNearestWholeOnes)
{
    EXPECT_EQ(kopecks(10.01), 1001);
    EXPECT_EQ(kopecks(0.29), 29);
    EXPECT_EQ(kopecks(1.005), 100) << "1.005 is a little less in binary";
    EXPECT_EQ(kopecks(-2.5), -250);
    EXPECT_EQ(kopecks(1234567.89), 123456789);
}

TEST(Amount, text_hasTwoDecimalsAndPartsThousands)
{
    const QString space(QChar::Nbsp);
    EXPECT_EQ(amountText(0), QStringLiteral("0,00"));
    EXPECT_EQ(amountText(5), QStringLiteral("0,05"));
    EXPECT_EQ(amountText(123450), QStringLiteral("1") + space + QStringLiteral("234,50"));
    EXPECT_EQ(amountText(99999), QStringLiteral("999,99"));
    EXPECT_EQ(amountText(123456789012), QStringLiteral("1") + space + QStringLiteral("234") + space +
                                            QStringLiteral("567") + space + QStringLiteral("890,12"));
    EXPECT_EQ(amountText(-150), QStringLiteral("-1,50"));
}
