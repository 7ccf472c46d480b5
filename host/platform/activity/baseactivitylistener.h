// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "export.h"

#include <QObject>

/// Receives the register's events, once it is subscribed with ActivityNotifier.
class REGISTERPLATFORM_EXPORT BaseActivityListener : public QObject
{
    Q_OBJECT

public:
    explicit BaseActivityListener(QObject* parent = nullptr);

    /// Called on the main thread for every event, in the order of subscription.
    Q_SLOT virtual void handleEvent(const Event& event) = 0;
};
