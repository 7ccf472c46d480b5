// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "event.h"
#include "export.h"
#include "singleton.h"

#include <QList>
#include <QPointer>

/// Tells every listener what happens. Main thread.
class REGISTERPLATFORM_EXPORT ActivityNotifier
{
public:
    ActivityNotifier() = default;
    virtual ~ActivityNotifier();
    ActivityNotifier(const ActivityNotifier&) = delete;
    ActivityNotifier& operator=(const ActivityNotifier&) = delete;

    /// Adds a listener; null and one that is subscribed already are passed over. The notifier does not own it; a
    /// destroyed listener drops out by itself.
    virtual void subscribe(BaseActivityListener* listener);

    /// Calls handleEvent of every listener subscribed when the call began. A listener that throws is logged and does
    /// not keep the event from the others.
    virtual void notify(const Event& event);

private:
    QList<QPointer<BaseActivityListener>> m_listeners;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ActivityNotifier>;
