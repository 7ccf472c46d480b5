// SPDX-License-Identifier: MIT
#include "faultscript.h"

#include "operationoutcome.h"

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
FaultOrder prepared(const QString& fault, Endpoint endpoint, Occasion occasion)
{
    FaultOrder order = FaultOrder::named(fault).value();
    order.endpoint = endpoint;
    order.occasion = occasion;
    return order;
}

FaultOrder afterwards(FaultOrder order)
{
    order.isCarriedOut = true;
    return order;
}
} // namespace

void FaultScript::delay(Endpoint endpoint, Milliseconds time, Occasion occasion)
{
    FaultOrder delayed = prepared(u"delay"_s, endpoint, occasion);
    delayed.delay = time;
    order(delayed);
}

void FaultScript::drip(Endpoint endpoint, Milliseconds pause, Occasion occasion)
{
    FaultOrder dripping = prepared(u"drip"_s, endpoint, occasion);
    dripping.pause = pause;
    order(dripping);
}

void FaultScript::cutAnswerOff(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"cut"_s, endpoint, occasion));
}

void FaultScript::neverAnswer(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"never"_s, endpoint, occasion));
}

void FaultScript::closeBeforeAnswer(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"close"_s, endpoint, occasion));
}

void FaultScript::resetBeforeAnswer(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"reset"_s, endpoint, occasion));
}

void FaultScript::carryOutThenNeverAnswer(Endpoint endpoint, Occasion occasion)
{
    order(afterwards(prepared(u"never"_s, endpoint, occasion)));
}

void FaultScript::carryOutThenClose(Endpoint endpoint, Occasion occasion)
{
    order(afterwards(prepared(u"close"_s, endpoint, occasion)));
}

void FaultScript::carryOutThenReset(Endpoint endpoint, Occasion occasion)
{
    order(afterwards(prepared(u"reset"_s, endpoint, occasion)));
}

void FaultScript::carryOutLate(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"late"_s, endpoint, occasion));
}

void FaultScript::answerStatus(Endpoint endpoint, int status, Occasion occasion)
{
    FaultOrder refusing = prepared(u"status"_s, endpoint, occasion);
    refusing.answer->status = status;
    order(refusing);
}

void FaultScript::answerIssue(Endpoint endpoint, int status, const QString& details, Occasion occasion)
{
    FaultOrder refusing = prepared(u"status"_s, endpoint, occasion);
    refusing.answer = HttpAnswer::json(status, operationOutcome(details));
    order(refusing);
}

void FaultScript::answerHtml(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"html"_s, endpoint, occasion));
}

void FaultScript::answerNothing(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"empty"_s, endpoint, occasion));
}

void FaultScript::answerHalfOfJson(Endpoint endpoint, Occasion occasion)
{
    order(prepared(u"half-json"_s, endpoint, occasion));
}

void FaultScript::answerBody(Endpoint endpoint, const QByteArray& body, Occasion occasion)
{
    FaultOrder replacing = prepared(u"body"_s, endpoint, occasion);
    replacing.answer->body = body;
    order(replacing);
}

void FaultScript::order(const FaultOrder& order)
{
    m_orders.append(order);
}

void FaultScript::clear()
{
    m_orders.clear();
}

std::optional<FaultOrder> FaultScript::takeFor(Endpoint endpoint)
{
    std::optional<FaultOrder> taken;
    for (qsizetype index = 0; index < m_orders.size(); ++index) {
        FaultOrder& order = m_orders[index];
        if (order.endpoint != Endpoint::Any && order.endpoint != endpoint) {
            continue;
        }
        if (order.occasion.skip > 0) {
            --order.occasion.skip;
        } else if (!taken) {
            taken = order;
            if (order.occasion.times != Occasion::everyTime && --order.occasion.times == 0) {
                m_orders.removeAt(index--);
            }
        }
    }
    return taken;
}
} // namespace emulator
