// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cataloguegoods.h"
#include "goodscatalogue.h"
#include "till.h"

#include <QString>
#include <QWeakPointer>

#include <optional>

/// Goods: the cashier selects them, and they become positions of as many packs as the cashier wants.
class GoodsCommands
{
public:
    /// @param till, catalogue not owned
    GoodsCommands(Till& till, const GoodsCatalogue& catalogue);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result selectGoods(control::Action& action);
    EContext::Result addSelectedGoods(control::Action& action);
    EContext::Result addGoods(control::Action& action);
    EContext::Result changeQuantity(control::Action& action);

    std::optional<SelectedGoods> find(const QString& search) const;
    std::optional<SelectedGoods> pickedBefore(const QString& medicineInfo) const;
    bool isPicked(const SelectedGoods& selected) const;
    /// Whether these goods may go on the document: shows what is in the way, and asks about more packs than are in
    /// stock and about unusually many.
    bool maySell(const SelectedGoods& selected) const;
    /// Asks about more packs, as maySell() does.
    bool maySet(const Position& position, int packs) const;
    std::optional<int> stockOf(const GoodsKey& key) const;

    /// Goods picked for a medicine that are no position yet. A cashier who went back finds them when picking again.
    struct PickedGoods {
        QWeakPointer<Document> document;
        QString medicineInfo;
        SelectedGoods goods;
    };

    Till& m_till;
    const GoodsCatalogue& m_catalogue;
    PickedGoods m_picked;
};
