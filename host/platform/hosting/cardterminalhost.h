// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QString>

class CardTerminal;

/// The host's side of the card terminals: the one that the register works with.
///
/// Found through CardTerminals::host(). Main thread. The host drops that of a plug-in whose init() failed, and any
/// before the plug-ins are unloaded.
struct CardTerminalHost {
    QString plugin = {};                        ///< whose it is
    QSharedPointer<CardTerminal> terminal = {}; ///< null: there is none
};
