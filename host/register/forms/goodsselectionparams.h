// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"
#include "event.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <optional>

/// What the goods selection offers.
struct GoodsSelectionParams {
    QList<CatalogueGoods> goods;
    QString medicineInfo;                     ///< what the goods are for, shown above the list; empty: nothing
    QString filter;                           ///< in the filter line at first
    std::optional<SelectedGoods> picked = {}; ///< picked before: current at first, with that many packs

    /// The code of the event that asks for the form; it carries these as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1010);
};

Q_DECLARE_METATYPE(GoodsSelectionParams)
