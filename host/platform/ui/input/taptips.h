// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QObject>

/// Shows on a tap what a tool tip would show: the whole text of a cut-off cell or label, or why a button is disabled.
/// A finger cannot rest above a widget as a mouse does. For touch mode.
///
/// A button that works shows nothing: it does what it says.
class REGISTERPLATFORM_EXPORT TapTips : public QObject
{
    Q_OBJECT

public:
    /// Watches the application as long as it lives.
    explicit TapTips(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
