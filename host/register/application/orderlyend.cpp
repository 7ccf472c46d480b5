// SPDX-License-Identifier: MIT
#include "orderlyend.h"

#include "actionqueuecontroller.h"
#include "graphicaluserinterface.h"
#include "inputblocker.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto lookInterval = std::chrono::milliseconds(10);

bool isAtWork()
{
    return Singleton<ActionQueueController>::get()->isBusy() || Singleton<GraphicalUserInterface>::get()->topForm();
}

} // namespace

OrderlyEnd::OrderlyEnd(std::function<void()> save, QObject* parent)
    : QObject(parent)
    , m_save(std::move(save))
{
}

void OrderlyEnd::begin()
{
    if (std::exchange(m_hasBegun, true)) {
        return;
    }
    Log4Qt::LogManager::logger(u"register"_s)->info(u"The system asks the register to end"_s);
    goOn();
}

void OrderlyEnd::followSession()
{
    // A slot must not wait here for a request that is under way: the request goes on when the slot has returned.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &OrderlyEnd::begin);
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, [this] { m_save(); });
}

/// A cancelled form may bring back the one before it, so that several rounds are needed. The next round is asked for
/// first: what is called here may show a form, which the next round cancels.
void OrderlyEnd::goOn()
{
    Singleton<ActionQueueController>::get()->dropWaiting(); // an action that queues itself would hold up the end
    const bool isBlocked = InputBlocker::isActive();
    if (!isBlocked && !isAtWork() && m_isSaved) {
        QCoreApplication::exit();
        return;
    }
    QTimer::singleShot(lookInterval, this, &OrderlyEnd::goOn);
    if (isBlocked) {
        return;
    }
    if (isAtWork()) {
        Singleton<GraphicalUserInterface>::get()->cancelForms();
    } else if (!std::exchange(m_isSaved, true)) {
        m_save();
    }
}
