// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"

#include "event.h"

#include <QList>
#include <QMetaType>
#include <QString>

/// The commands that a menu offers; answers with "entry", the index of the chosen one, or without it.
struct MenuParams {
    struct Entry {
        FunctionKey command;
        QString obstacle; ///< why the command is not possible now; empty: it is
    };
    QList<Entry> entries;

    /// The code of the event that shows the menu; it carries these as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1013);
};

Q_DECLARE_METATYPE(MenuParams)
