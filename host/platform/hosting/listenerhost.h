// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QList>
#include <QPointer>
#include <QString>

#include <functional>

class BaseActivityListener;

/// The host's side of the events: who listens.
///
/// Found through ActivityNotifier::host(). Main thread.
struct ListenerHost {
    struct Subscription {
        QPointer<BaseActivityListener> listener; ///< null when it was destroyed
        QString plugin;                          ///< whose code subscribed it; empty: the register's own
    };

    /// In the order of subscription. The host drops those of a plug-in whose init() failed.
    QList<Subscription> listeners;
    /// Hears of a listener that threw, during the event; empty: it is only logged.
    std::function<void(const QString& plugin, const tr::Tr& text)> failed;
    /// How many events are being reported inside one another.
    int reporting = 0;
};
