// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"

#include <QList>
#include <QWidget>

/// The row of function keys, each with its shortcut written on it.
class FunctionKeyBar : public QWidget
{
    Q_OBJECT

public:
    explicit FunctionKeyBar(const QList<FunctionKey>& keys, QWidget* parent = nullptr);

signals:
    /// A key was clicked, or its shortcut pressed while the bar could be used.
    void pressed(const FunctionKey& key);
};
