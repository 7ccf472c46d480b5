// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"

#include "event.h"

#include <QList>
#include <QMetaType>
#include <QString>

/// The commands that the menu offers.
struct MenuParams {
    struct Entry {
        FunctionKey command;
        QString obstacle; ///< why the command is not possible now; empty: it is possible
    };
    QList<Entry> entries;

    /// The event that shows the menu; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1013);
};

Q_DECLARE_METATYPE(MenuParams)
