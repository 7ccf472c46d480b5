// SPDX-License-Identifier: MIT
#include "payment.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

Kopecks totalOf(const QList<Payment>& payments)
{
    return std::accumulate(payments.cbegin(), payments.cend(), Kopecks{},
                           [](Kopecks total, const Payment& payment) { return total + payment.amount; });
}

const QList<PaymentMethodRow>& paymentMethods()
{
    static const QList<PaymentMethodRow> rows{
        {PaymentMethod::Cash,
         "cash"_L1,
         {u"printedReceived"_s, u"Получено наличными"_s},
         {u"printedPaidOut"_s, u"Выдано"_s}},
        {PaymentMethod::Card,
         "card"_L1,
         {u"printedByCard"_s, u"Картой"_s},
         {u"printedBackToCard"_s, u"Возвращено на карту"_s}},
    };
    return rows;
}

const PaymentMethodRow& rowOf(PaymentMethod method)
{
    const auto& rows = paymentMethods();
    return *std::find_if(rows.cbegin(), rows.cend(),
                         [method](const PaymentMethodRow& row) { return row.method == method; });
}
