// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "event.h"
#include "export.h"
#include "singleton.h"

#include <memory>

struct ListenerHost;

/// Reports to every listener what happens. Main thread.
class REGISTERPLATFORM_EXPORT ActivityNotifier
{
public:
    ActivityNotifier();
    virtual ~ActivityNotifier();
    Q_DISABLE_COPY_MOVE(ActivityNotifier)

    /// Adds a listener; null and one that is subscribed already are passed over. The notifier does not own it; a
    /// destroyed listener drops out by itself.
    virtual void subscribe(BaseActivityListener* listener);

    /// Calls handleEvent of every listener subscribed when the call began, in the PluginScope in which it was
    /// subscribed. A listener that throws is logged with its plug-in, is shown, and does not keep the event from the
    /// others.
    virtual void notify(const Event& event);

    /// The host's side; a plug-in has no use for it.
    ListenerHost& host() { return *m_host; }

private:
    std::unique_ptr<ListenerHost> m_host;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ActivityNotifier>;
