// SPDX-License-Identifier: MIT
#include "activitynotifier.h"

#include "caughtfailure.h"
#include "listenerhost.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

template struct Singleton<ActivityNotifier>;

namespace
{
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
    m_host->listeners.removeAll(nullptr);
    if (listener && !m_host->listeners.contains(listener)) {
        m_host->listeners.append(listener);
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
                ->error(name + u" failed in event "_s + QString::number(event.getCode()) + u": "_s +
                        caughtFailure().detail);
        }
    }
}
