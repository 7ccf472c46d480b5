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
    using Listeners = QList<QPointer<BaseActivityListener>>;

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

    /// For the host: who is subscribed, in the order of subscription; a destroyed one reads as null.
    Listeners listeners() const { return m_listeners; }
    /// For the host: drops every listener that is not among `kept`: those of a plug-in that could not begin.
    void keepOnly(const Listeners& kept);

private:
    Listeners m_listeners;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ActivityNotifier>;
