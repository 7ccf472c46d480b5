// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cataloguegoods.h"
#include "goodscatalogue.h"
#include "question.h"
#include "till.h"

#include <QString>
#include <QWeakPointer>

#include <optional>

/// What the register does with the open document: opening and returnOf, positions, goods, payment.
class RegisterCommands
{
public:
    /// @param till, catalogue not owned
    RegisterCommands(Till& till, const GoodsCatalogue& catalogue);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    // receiptcommands.cpp
    EContext::Result openSale(control::Action& action);
    EContext::Result changeQuantity(control::Action& action);
    EContext::Result askToRemovePosition(control::Action& action);
    EContext::Result removePosition(control::Action& action);
    EContext::Result askToCancelDocument(control::Action& action);
    Question cancellingQuestion() const;
    bool isReturnBegun() const;
    EContext::Result cancelDocument(control::Action& action);
    EContext::Result explainKey(control::Action& action);
    QSharedPointer<Position> chosenPosition(const control::Action& action) const;

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

    /// Goods picked for a medicine that are not on the document yet. Whoever went back and picks again finds them so.
    struct PickedGoods {
        QWeakPointer<Document> document;
        QString medicineInfo;
        SelectedGoods goods;
    };

    Till& m_till;
    const GoodsCatalogue& m_catalogue;
    PickedGoods m_picked;
};
