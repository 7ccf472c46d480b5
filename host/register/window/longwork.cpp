// SPDX-License-Identifier: MIT
#include "longwork.h"

#include "inputblocker.h"
#include "tr.h"

using namespace Qt::StringLiterals;

void LongWork::handleEvent(const Event& event)
{
    switch (event.getCode()) {
    case EActivityListener::LongWorkBegins:
        m_messages.append(event.value(u"message"_s).value<tr::Tr>().ui());
        emit running(m_messages.last());
        break;
    case EActivityListener::LongWorkEnds:
        if (m_messages.isEmpty()) {
            break;
        }
        m_messages.removeLast();
        if (isRunning()) {
            emit running(m_messages.last());
        } else {
            const InputBlocker throwsInputAway;
            emit ended();
        }
        break;
    default:
        break;
    }
}
