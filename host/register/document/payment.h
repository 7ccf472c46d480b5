// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "tr.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>

/// The ways to pay.
enum class PaymentMethod { Cash, Card };

/// What a customer gave by one method; of a return: what was paid out.
struct Payment {
    PaymentMethod method = PaymentMethod::Cash;
    Kopecks amount = {}; ///< 0 or more

    static Payment cash(Kopecks amount) { return {PaymentMethod::Cash, amount}; }
    static Payment card(Kopecks amount) { return {PaymentMethod::Card, amount}; }

    bool operator==(const Payment&) const = default;
};

/// All payments together.
Kopecks totalOf(const QList<Payment>& payments);

/// What the register knows of a method; a new method is a row of paymentMethods().
struct PaymentMethodRow {
    PaymentMethod method = PaymentMethod::Cash;
    QLatin1StringView word; ///< in saved documents, see docs/document-format.md
    tr::Tr printed;         ///< before the amount on the receipt of a sale
    tr::Tr printedPaidOut;  ///< before the amount on the receipt of a return
};
const QList<PaymentMethodRow>& paymentMethods();
const PaymentMethodRow& rowOf(PaymentMethod method);
