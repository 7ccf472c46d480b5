// SPDX-License-Identifier: MIT
#include "activitynotifier.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

template struct Singleton<ActivityNotifier>;

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener* listener)
{
    m_listeners.removeAll(nullptr);
    if (listener && !m_listeners.contains(listener)) {
        m_listeners.append(listener);
    }
}

void ActivityNotifier::notify(const Event& event)
{
    const Listeners listeners = m_listeners;
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

void ActivityNotifier::keepOnly(const Listeners& kept)
{
    m_listeners.removeIf([&kept](const QPointer<BaseActivityListener>& listener) { return !kept.contains(listener); });
}
