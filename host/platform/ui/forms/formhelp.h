// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tr.h"

#include <QList>
#include <QString>

/// What the help says of a screen: the keys that work there, and what comes next. The register shows it on F1.
struct REGISTERPLATFORM_EXPORT FormHelp {
    struct Key {
        QString key; ///< as on the keyboard: "F4", "Esc", enterKey()
        tr::Tr does; ///< what it does here, in a few words
    };

    QList<Key> keys;
    tr::Tr next; ///< what the cashier does here and what follows; empty: nothing is said

    bool isEmpty() const { return keys.isEmpty() && next.text().isEmpty(); }

    /// The key Return, as the cashier calls it in every text.
    static QString enterKey();
    /// The keys Up and Down.
    static QString arrowKeys();
};
