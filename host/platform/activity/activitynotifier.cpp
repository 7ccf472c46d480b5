// SPDX-License-Identifier: MIT
#include "activitynotifier.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

template struct Singleton<ActivityNotifier>;

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener* listener)
{
    m_listeners.removeAll(nullptr);
    if (listener && !m_listeners.contains(listener))
        m_listeners.append(listener);
}

void ActivityNotifier::notify(const Event& event)
{
    const Listeners listeners = m_listeners;
    for (const QPointer<BaseActivityListener>& listener : listeners) {
        if (!listener)
            continue;
        const QString name = QString::fromLatin1(listener->metaObject()->className());
        try {
            listener->handleEvent(event);
        } catch (...) {
            Log4Qt::LogManager::logger(QStringLiteral("activity"))
                ->error(name + QStringLiteral(" failed in event ") + QString::number(event.getCode()));
        }
    }
}

void ActivityNotifier::keepOnly(const Listeners& kept)
{
    m_listeners.removeIf([&kept](const QPointer<BaseActivityListener>& listener) { return !kept.contains(listener); });
}
