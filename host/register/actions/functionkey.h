// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QVariantMap>

class Config;

/// A function key or a menu entry, and the action that it starts.
struct FunctionKey {
    QString name; ///< the object name of its button
    QString text;
    QKeySequence shortcut; ///< empty: touch or mouse only
    control::EActionType actionType;
    QVariantMap arguments;
};

/// The keys that `FunctionKeys:keys` of the configuration lists, in that order; docs/configuration.md describes the form.
/// A key without an action is logged and left out.
QList<FunctionKey> configuredFunctionKeys(const Config& config);

/// The menu entries that `Menu:entries` lists, at most nine. Otherwise like configuredFunctionKeys().
QList<FunctionKey> configuredMenuEntries(const Config& config);
