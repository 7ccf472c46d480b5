// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cataloguegoods.h"
#include "goodscatalogue.h"
#include "sale.h"

#include <QString>

#include <optional>

/// What the register does for its actions: the receipt's and the goods'.
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
    EContext::Result explainKey(control::Action& action);
    QSharedPointer<ReceiptPosition> changeablePosition(const control::Action& action) const;

    // goodscommands.cpp
    EContext::Result selectGoods(control::Action& action);
    EContext::Result addSelectedGoods(control::Action& action);
    EContext::Result addGoods(control::Action& action);
    std::optional<SelectedGoods> letSelect(const QString& nonProprietaryName, const QString& medicineInfo,
                                           const QString& filter) const;

    Sale& m_sale;
    const GoodsCatalogue& m_catalogue;
};
