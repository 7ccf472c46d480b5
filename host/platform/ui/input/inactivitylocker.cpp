// SPDX-License-Identifier: MIT
#include "inactivitylocker.h"

#include "config.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>

using namespace Qt::StringLiterals;

template struct Singleton<InactivityLocker>;

namespace
{

bool isActivity(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletPress:
        return true;
    default:
        return false;
    }
}

} // namespace

InactivityLocker::InactivityLocker(QObject* parent)
    : QObject(parent)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &InactivityLocker::lock);
}

void InactivityLocker::start()
{
    const int seconds = Singleton<Config>::get()->getInt(u"GUI:inactivityLockSeconds"_s, 0);
    if (seconds <= 0) {
        m_timer.setInterval(0);
        m_timer.stop();
        return;
    }
    qApp->installEventFilter(this);
    m_timer.start(std::chrono::seconds(seconds));
}

bool InactivityLocker::eventFilter(QObject* watched, QEvent* event)
{
    if (isActivity(event->type())) {
        resetTimer();
    }
    return QObject::eventFilter(watched, event);
}

void InactivityLocker::resetTimer()
{
    if (m_timer.interval() > 0) {
        m_timer.start();
    }
}
