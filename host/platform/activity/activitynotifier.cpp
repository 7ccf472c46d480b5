// SPDX-License-Identifier: MIT
#include "activitynotifier.h"

#include "caughtfailure.h"
#include "listenerhost.h"
#include "pluginscope.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

template struct Singleton<ActivityNotifier>;

namespace
{
void logFailure(const QString& plugin, const QString& listener, int event, const QString& detail)
{
    const QString owner = plugin.isEmpty() ? QString() : u" of the plug-in "_s + plugin;
    Log4Qt::LogManager::logger(u"activity"_s)
        ->error(u"%1 failed in event %2: %3"_s.arg(listener + owner, QString::number(event), detail));
}

/// Events that are reported inside one another. More are a listener that answers an event with an event.
constexpr int deepestEvent = 32;
} // namespace

ActivityNotifier::ActivityNotifier()
    : m_host(std::make_unique<ListenerHost>())
{
}

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener* listener)
{
    using Subscription = ListenerHost::Subscription;
    QList<Subscription>& listeners = m_host->listeners;
    listeners.removeIf([](const Subscription& one) { return !one.listener; });
    const bool isSubscribed = std::any_of(listeners.cbegin(), listeners.cend(),
                                          [listener](const Subscription& one) { return one.listener == listener; });
    if (listener && !isSubscribed) {
        listeners.append({listener, PluginScope::current()});
    }
}

void ActivityNotifier::notify(const Event& event)
{
    if (m_host->reporting >= deepestEvent) {
        Log4Qt::LogManager::logger(u"activity"_s)
            ->error(u"Not reported at such a depth: event "_s + QString::number(event.getCode()));
        return;
    }
    const QScopedValueRollback reporting(m_host->reporting, m_host->reporting + 1);
    const QList<ListenerHost::Subscription> listeners = m_host->listeners;
    for (const auto& [listener, plugin] : listeners) {
        if (!listener) {
            continue;
        }
        const PluginScope scope(plugin);
        const QString name = QString::fromLatin1(listener->metaObject()->className());
        try {
            listener->handleEvent(event);
        } catch (...) {
            const Failure caught = caughtFailure();
            logFailure(plugin, name, event.getCode(), caught.detail);
            if (m_host->failed) {
                m_host->failed(plugin, caught.text);
            }
        }
    }
}
