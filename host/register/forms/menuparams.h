// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "functionkey.h"
#include "obstacle.h"

#include <QList>
#include <QMetaType>

#include <optional>

/// The commands that the menu offers.
struct MenuParams {
    struct Entry {
        FunctionKey command;
        std::optional<Obstacle> obstacle; ///< why the command is not possible now
    };
    QList<Entry> entries;

    /// The event that shows the menu; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1013);
};

Q_DECLARE_METATYPE(MenuParams)
