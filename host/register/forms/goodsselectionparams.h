// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "goodslist.h"

#include <QMetaType>
#include <QString>

#include <functional>
#include <optional>

/// What the goods selection offers.
struct GoodsSelectionParams {
    GoodsList goods;
    QString medicineInfo;                     ///< the medicine that the goods are for, shown above the list
    QString filter;                           ///< the initial text of the filter
    std::optional<SelectedGoods> picked = {}; ///< an earlier choice, which is offered again
    QString wantedName = {}; ///< the non-proprietary name that `goods` are limited to; empty: they are not
    /// Reads all goods, when the cashier wants them or `picked` is not among `goods`. Has to be set with `wantedName`;
    /// throws BasicException when they cannot be read.
    std::function<GoodsList()> allGoods = {};

    /// The event that shows the goods selection; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1010);
};

Q_DECLARE_METATYPE(GoodsSelectionParams)
