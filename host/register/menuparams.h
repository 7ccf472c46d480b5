// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"

#include "event.h"

#include <QList>
#include <QMetaType>

/// The commands that a menu offers; answers with "entry", the index of the chosen one, or without it.
struct MenuParams {
    QList<FunctionKey> entries;

    /// The code of the event that shows the menu; it carries these as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1013);
};

Q_DECLARE_METATYPE(MenuParams)
