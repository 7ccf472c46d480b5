// SPDX-License-Identifier: MIT
#include "cashpayment.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(CashPayment, nothingTyped_isExactlyTheSum)
{
    for (const QString& typed : {QString(), u"  "_s}) {
        const auto payment = cashpayment::received(Kopecks{1240}, typed);
        ASSERT_TRUE(payment);
        EXPECT_EQ(*payment, Payment::cash(Kopecks{1240}));
    }
}

TEST(CashPayment, enough_isWhatWasTyped)
{
    ASSERT_TRUE(cashpayment::received(Kopecks{1240}, u"12,40"_s));
    EXPECT_EQ(*cashpayment::received(Kopecks{1240}, u"20"_s), Payment::cash(Kopecks{2000}));
}

TEST(CashPayment, aKopeckShort_saysHowMuchIsMissing)
{
    const auto payment = cashpayment::received(Kopecks{1240}, u"12,39"_s);
    ASSERT_FALSE(payment);
    EXPECT_EQ(payment.failure().text.ui(),
              u"Получено 12,39\u00a0BYN, а к оплате 12,40\u00a0BYN.\nНе хватает 0,01\u00a0BYN."_s);
    EXPECT_EQ(payment.failure().brief.ui(), u"Не хватает 0,01\u00a0BYN"_s);
}

TEST(CashPayment, noAmount_saysWhatWasTyped)
{
    const auto payment = cashpayment::received(Kopecks{1240}, u"12,4x"_s);
    ASSERT_FALSE(payment);
    EXPECT_TRUE(payment.failure().text.ui().startsWith(u"«12,4x» — не сумма."_s));
    EXPECT_EQ(payment.failure().brief.ui(), u"Не сумма"_s);
}

TEST(CashPayment, besideACard_isLessThanTheSum)
{
    EXPECT_EQ(*cashpayment::besideCard(Kopecks{1240}, {}), Kopecks{0});
    EXPECT_EQ(*cashpayment::besideCard(Kopecks{1240}, u"12,39"_s), Kopecks{1239});
    EXPECT_FALSE(cashpayment::besideCard(Kopecks{1240}, u"12,40"_s));
    EXPECT_FALSE(cashpayment::besideCard(Kopecks{1240}, u"12,4x"_s));
}

TEST(CashPayment, changeThatHoldsTheGreatestBanknote_isAbsurd)
{
    EXPECT_FALSE(cashpayment::isAbsurd(Kopecks{1000}, Kopecks{500'000}));
    EXPECT_FALSE(cashpayment::isAbsurd(Kopecks{1000}, Kopecks{500'999}));
    EXPECT_TRUE(cashpayment::isAbsurd(Kopecks{1000}, Kopecks{501'000}));
    EXPECT_TRUE(cashpayment::isAbsurd(Kopecks{1000}, Kopecks{9'999'999'900}));
}
