// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "tr.h"

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

class Config;

/// A function key or a menu entry, and the action that it starts.
struct FunctionKey {
    QString name; ///< the object name of its button
    QString text;
    QKeySequence shortcut; ///< empty: touch or mouse only
    control::EActionType actionType;
    QVariantMap arguments;
    QString lostTo = {};            ///< the text of the earlier key that has the configured shortcut; empty: none has
    QKeySequence lostShortcut = {}; ///< that shortcut
};

/// The keys of the register's own. On the sales screen a function key with the same shortcut wins.
inline constexpr Qt::Key helpKey = Qt::Key_F1;
inline constexpr Qt::Key cardPaymentKey = Qt::Key_F11;
inline constexpr QKeyCombination wholeMessageKey = Qt::CTRL | Qt::Key_F12;

/// The function key that has this shortcut; null: none has.
const FunctionKey* keyWithShortcut(const QList<FunctionKey>& keys, const QKeySequence& shortcut);

/// The keys that `FunctionKeys:keys` of the configuration lists, in that order; docs/configuration.md describes the
/// form. A key without an action is logged and left out. Of two keys with one shortcut the first has it, and the other
/// one has none.
QList<FunctionKey> configuredFunctionKeys(const Config& config);

/// The menu entries that `Menu:entries` lists, at most nine. Otherwise like configuredFunctionKeys().
QList<FunctionKey> configuredMenuEntries(const Config& config);

/// The labels of the keys whose action has no handler in any context.
QStringList unservedKeys(const QList<FunctionKey>& keys);

/// True when the key's action runs where the register is now, or opens a sale first. Another key only says why nothing
/// happens.
bool doesSomething(const FunctionKey& key);

/// True for a plug-in's command that waits for a document while none is open: a sale is opened for it.
bool opensSale(const FunctionKey& key);

/// The action that the key starts where the register is now: its own, or the one that opens a sale first, or the one
/// that says why nothing happens.
/// @param positionNumber the current position; 0: none
control::Action actionOf(const FunctionKey& key, int positionNumber);

/// For the cashier: which keys have one shortcut, and where that is mended.
/// @param key one with `lostTo`
tr::Tr shortcutConflict(const FunctionKey& key);
