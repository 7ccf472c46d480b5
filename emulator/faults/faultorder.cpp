// SPDX-License-Identifier: MIT
#include "faultorder.h"

#include "emulatorerror.h"
#include "operationoutcome.h"

#include <array>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// A row of the table of faults in docs/emulator.md.
struct NamedFault {
    enum class Effect { AtOnce, Late, None };

    const char* name = nullptr;
    Delivery::Manner manner = Delivery::Manner::Whole;
    Effect effect = Effect::AtOnce;
    bool hasOwnAnswer = false;
    bool halvesBody = false;
};

using Manner = Delivery::Manner;
using Effect = NamedFault::Effect;
constexpr std::array namedFaults{
    NamedFault{"delay", Manner::Whole, Effect::AtOnce},
    NamedFault{"drip", Manner::Dripping, Effect::AtOnce},
    NamedFault{"cut", Manner::CutOff, Effect::AtOnce},
    NamedFault{"half-json", Manner::Whole, Effect::AtOnce, false, true},

    NamedFault{"late", Manner::Close, Effect::Late},

    NamedFault{"never", Manner::Never, Effect::None},
    NamedFault{"close", Manner::Close, Effect::None},
    NamedFault{"reset", Manner::Reset, Effect::None},

    NamedFault{"status", Manner::Whole, Effect::None, true},
    NamedFault{"html", Manner::Whole, Effect::None, true},
    NamedFault{"empty", Manner::Whole, Effect::None, true},
    NamedFault{"body", Manner::Whole, Effect::None, true},
};

HttpAnswer ownAnswer(const QString& name)
{
    HttpAnswer answer;
    if (name == "status"_L1) {
        answer.status = 503;
        answer.contentType.clear();
    } else if (name == "html"_L1) {
        answer.contentType = "text/html; charset=utf-8";
        answer.body = "<!DOCTYPE html><html><head><title>Gateway</title></head><body><h1>Gateway</h1></body></html>";
    }
    return answer;
}

std::chrono::milliseconds milliseconds(const JsonNode& node, const QString& key)
{
    return std::chrono::milliseconds(node.count(key).value_or(0));
}

Occasion occasionIn(const JsonNode& node)
{
    if (node.has(u"nth"_s) && (node.has(u"skip"_s) || node.has(u"times"_s))) {
        node.fail(u"nth"_s, u"goes without \"skip\" and \"times\""_s);
    }
    if (const auto nth = node.count(u"nth"_s)) {
        if (*nth == 0) {
            node.fail(u"nth"_s, u"counted from 1"_s);
        }
        return Occasion::nth(*nth);
    }
    return {node.count(u"skip"_s).value_or(0), node.count(u"times"_s).value_or(1)};
}

void readAnswer(const JsonNode& node, HttpAnswer& answer)
{
    if (const auto status = node.count(u"status"_s)) {
        if (*status < 200 || *status > 599) {
            node.fail(u"status"_s, u"a status from 200 to 599 is expected"_s);
        }
        answer.status = *status;
    }
    if (node.has(u"issue"_s)) {
        answer = HttpAnswer::json(answer.status, operationOutcome(node.text(u"issue"_s)));
    }
    if (node.has(u"body"_s)) {
        answer.body = node.text(u"body"_s, QString()).toUtf8();
    }
    answer.contentType = node.text(u"contentType"_s, QString::fromLatin1(answer.contentType)).toLatin1();
    if (answer.contentType.contains('\r') || answer.contentType.contains('\n')) {
        node.fail(u"contentType"_s, u"one line is expected"_s);
    }
}
} // namespace

std::optional<FaultOrder> FaultOrder::named(const QString& name)
{
    for (const NamedFault& fault : namedFaults) {
        if (name != QLatin1StringView(fault.name)) {
            continue;
        }
        FaultOrder order;
        order.name = name;
        order.manner = fault.manner;
        order.isCarriedOut = fault.effect != Effect::None;
        order.isLate = fault.effect == Effect::Late;
        order.halvesBody = fault.halvesBody;
        if (fault.hasOwnAnswer) {
            order.answer = ownAnswer(name);
        }
        return order;
    }
    return std::nullopt;
}

QStringList FaultOrder::names()
{
    QStringList names;
    for (const NamedFault& fault : namedFaults) {
        names.append(QString::fromLatin1(fault.name));
    }
    return names;
}

FaultOrder FaultOrder::fromJson(const JsonNode& node)
{
    node.allowOnly({u"fault"_s, u"endpoint"_s, u"nth"_s, u"skip"_s, u"times"_s, u"delay"_s, u"pause"_s, u"carriedOut"_s,
                    u"status"_s, u"issue"_s, u"body"_s, u"contentType"_s});
    auto order = named(node.text(u"fault"_s));
    if (!order) {
        node.fail(u"fault"_s, u"one of these is expected: "_s + names().join(u", "_s));
    }
    const auto endpoint = endpointOf(node.text(u"endpoint"_s, endpointName(Endpoint::Any)));
    if (!endpoint) {
        node.fail(u"endpoint"_s, u"one of these is expected: "_s + endpointNames().join(u", "_s));
    }
    order->endpoint = *endpoint;
    order->occasion = occasionIn(node);
    order->delay = milliseconds(node, u"delay"_s);
    order->pause = milliseconds(node, u"pause"_s);
    order->isCarriedOut = node.flag(u"carriedOut"_s, order->isCarriedOut);
    for (const QString& key : {u"status"_s, u"issue"_s, u"body"_s}) {
        if (node.has(key) && !order->answer) {
            node.fail(key, u"not for this fault, which sends no answer of its own"_s);
        }
    }
    if (order->answer) {
        readAnswer(node, *order->answer);
    }
    return *order;
}

Delivery FaultOrder::deliver(HttpAnswer registryAnswer) const
{
    Delivery delivery;
    delivery.answer = answer.value_or(std::move(registryAnswer));
    if (halvesBody) {
        delivery.answer.body.truncate(delivery.answer.body.size() / 2);
    }
    delivery.manner = manner;
    delivery.delay = delay;
    delivery.pause = pause;
    return delivery;
}
} // namespace emulator
