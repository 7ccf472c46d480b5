// SPDX-License-Identifier: MIT
#include "activitynotifier.h"

#include "listenerhost.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

template struct Singleton<ActivityNotifier>;

ActivityNotifier::ActivityNotifier()
    : m_host(std::make_unique<ListenerHost>())
{
}

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener* listener)
{
    m_host->listeners.removeAll(nullptr);
    if (listener && !m_host->listeners.contains(listener)) {
        m_host->listeners.append(listener);
    }
}

void ActivityNotifier::notify(const Event& event)
{
    const QList<QPointer<BaseActivityListener>> listeners = m_host->listeners;
    for (const QPointer<BaseActivityListener>& listener : listeners) {
        if (!listener) {
            continue;
        }
        const QString name = QString::fromLatin1(listener->metaObject()->className());
        try {
            listener->handleEvent(event);
        } catch (...) {
            Log4Qt::LogManager::logger(u"activity"_s)
                ->error(name + u" failed in event "_s + QString::number(event.getCode()));
        }
    }
}
