// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>

class BaseActivityListener;

/// The host's side of the events: who listens.
///
/// Found through ActivityNotifier::host(). Main thread.
struct ListenerHost {
    /// In the order of subscription; a destroyed listener reads as null. The host drops those of a plug-in whose init()
    /// failed.
    QList<QPointer<BaseActivityListener>> listeners;
    /// How many events are being reported inside one another.
    int reporting = 0;
};
