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
    QString filter;                           ///< stands in the filter line at first
    std::optional<SelectedGoods> picked = {}; ///< picked before: current at first, with that many packs

    /// The event that shows the goods selection, with these parameters.
    Event toEvent() const;
    /// The parameters of such an event; without any goods when it carries none.
    static GoodsSelectionParams fromEvent(const Event& event);

    /// The code of that event.
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1010);
};

Q_DECLARE_METATYPE(GoodsSelectionParams)
