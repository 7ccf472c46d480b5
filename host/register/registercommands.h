// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cataloguegoods.h"
#include "goodscatalogue.h"
#include "question.h"
#include "sale.h"

#include <QString>
#include <QWeakPointer>

#include <optional>

/// What the register does with the open receipt: opening and cancelling, positions, goods, payment.
class RegisterCommands
{
public:
    /// @param sale, catalogue not owned
    RegisterCommands(Sale& sale, const GoodsCatalogue& catalogue);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    // receiptcommands.cpp
    EContext::Result openReceipt(control::Action& action);
    EContext::Result changeQuantity(control::Action& action);
    EContext::Result removePosition(control::Action& action);
    EContext::Result stornoPosition(control::Action& action);
    EContext::Result cancelReceipt(control::Action& action);
    Question cancellingQuestion() const;
    bool isTakeBackBegun() const;
    EContext::Result stornoAll(control::Action& action);
    EContext::Result explainKey(control::Action& action);
    QSharedPointer<ReceiptPosition> chosenPosition(const control::Action& action) const;

    // paymentcommands.cpp
    EContext::Result subtotal(control::Action& action);
    EContext::Result subtotalAndPayment(control::Action& action);
    EContext::Result backToPositions(control::Action& action);
    EContext::Result pay(control::Action& action);
    bool hasPositions() const;

    // goodscommands.cpp
    EContext::Result selectGoods(control::Action& action);
    EContext::Result addSelectedGoods(control::Action& action);
    EContext::Result addGoods(control::Action& action);
    std::optional<SelectedGoods> pickedBefore(const QString& medicineInfo) const;

    /// Goods picked for a medicine that are not on the receipt yet. Whoever went back and picks again finds them so.
    struct PickedGoods {
        QWeakPointer<Receipt> receipt;
        QString medicineInfo;
        SelectedGoods goods;
    };

    Sale& m_sale;
    const GoodsCatalogue& m_catalogue;
    PickedGoods m_picked;
};
