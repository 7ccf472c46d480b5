// SPDX-License-Identifier: MIT
#include "longwork.h"

#include "actionqueuecontroller.h"
#include "inputblocker.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

LongWork::LongWork(QObject* parent)
    : BaseActivityListener(parent)
{
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::ended, this, &LongWork::endLeftOpen);
}

void LongWork::handleEvent(const Event& event)
{
    switch (event.getCode()) {
    case EActivityListener::LongWorkBegins:
        m_works.append({event.value(u"message"_s).value<tr::Tr>(), Singleton<ActionQueueController>::get()->depth(),
                        WorkLimit(std::chrono::seconds(event.value(u"seconds"_s).toInt()))});
        showInnermost();
        break;
    case EActivityListener::LongWorkEnds:
        if (isRunning()) {
            m_works.removeLast();
            showInnermost();
        }
        break;
    default:
        break;
    }
}

void LongWork::endLeftOpen(int depth)
{
    const qsizetype before = m_works.size();
    while (isRunning() && m_works.last().depth > depth) {
        Log4Qt::LogManager::logger(u"activity"_s)
            ->error(u"Long work ends without event 73: "_s + m_works.takeLast().message.key());
    }
    if (m_works.size() < before) {
        showInnermost();
    }
}

void LongWork::endAfterFailure()
{
    if (Singleton<ActionQueueController>::get()->depth() == 0) {
        endLeftOpen(-1);
    }
}

void LongWork::showInnermost()
{
    if (isRunning()) {
        emit running(m_works.last().message.ui(), m_works.last().limit);
        return;
    }
    const InputBlocker throwsInputAway;
    emit ended();
}
