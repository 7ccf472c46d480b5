// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QVariantMap>

class Config;

/// A key of the register: what it is called, its shortcut, and the action that it gives.
struct FunctionKey {
    QString name; ///< the object name of its button
    QString text;
    QKeySequence shortcut; ///< empty: by touch or mouse only
    control::EActionType actionType;
    QVariantMap arguments;
};

/// The keys that "FunctionKeys:keys" of the configuration names, in its order; docs/configuration.md has the form. One
/// without an action is passed over and logged.
QList<FunctionKey> configuredFunctionKeys(const Config& config);

/// The commands of the menu, nine at most, which "Menu:entries" names; otherwise as the function keys.
QList<FunctionKey> configuredMenuEntries(const Config& config);
