// SPDX-License-Identifier: MIT
#include "faultorder.h"

#include "emulatorerror.h"
#include "endpointname.h"
#include "operationoutcome.h"

#include <array>

namespace emulator
{
namespace
{
/// What a name stands for.
struct NamedFault {
    const char* name;
    Delivery::Manner manner;
    bool isCarriedOut;
    bool hasOwnAnswer;
    bool halvesBody;
};

using Manner = Delivery::Manner;
constexpr std::array namedFaults{
    NamedFault{"delay", Manner::Whole, true, false, false},  NamedFault{"drip", Manner::Dripping, true, false, false},
    NamedFault{"cut", Manner::CutOff, true, false, false},   NamedFault{"half-json", Manner::Whole, true, false, true},

    NamedFault{"never", Manner::Never, false, false, false}, NamedFault{"close", Manner::Close, false, false, false},
    NamedFault{"reset", Manner::Reset, false, false, false},

    NamedFault{"status", Manner::Whole, false, true, false}, NamedFault{"html", Manner::Whole, false, true, false},
    NamedFault{"empty", Manner::Whole, false, true, false},  NamedFault{"body", Manner::Whole, false, true, false}};

HttpAnswer ownAnswer(const QString& name)
{
    HttpAnswer answer;
    if (name == QLatin1String("status")) {
        answer.status = 503;
        answer.contentType.clear();
    } else if (name == QLatin1String("html")) {
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
    if (node.has(QStringLiteral("nth")) && (node.has(QStringLiteral("skip")) || node.has(QStringLiteral("times"))))
        node.fail(QStringLiteral("nth"), QStringLiteral("goes without \"skip\" and \"times\""));
    if (const auto nth = node.count(QStringLiteral("nth"))) {
        if (*nth == 0)
            node.fail(QStringLiteral("nth"), QStringLiteral("counted from 1"));
        return Occasion::nth(*nth);
    }
    return {node.count(QStringLiteral("skip")).value_or(0), node.count(QStringLiteral("times")).value_or(1)};
}

void readAnswer(const JsonNode& node, HttpAnswer& answer)
{
    if (const auto status = node.count(QStringLiteral("status"))) {
        if (*status < 200 || *status > 599)
            node.fail(QStringLiteral("status"), QStringLiteral("a status from 200 to 599 is expected"));
        answer.status = *status;
    }
    if (node.has(QStringLiteral("issue")))
        answer = HttpAnswer::json(answer.status, operationOutcome(node.text(QStringLiteral("issue"))));
    if (node.has(QStringLiteral("body")))
        answer.body = node.text(QStringLiteral("body"), QString()).toUtf8();
    answer.contentType = node.text(QStringLiteral("contentType"), QString::fromLatin1(answer.contentType)).toLatin1();
    if (answer.contentType.contains('\r') || answer.contentType.contains('\n'))
        node.fail(QStringLiteral("contentType"), QStringLiteral("one line is expected"));
}
} // namespace

std::optional<FaultOrder> FaultOrder::named(const QString& name)
{
    for (const NamedFault& fault : namedFaults) {
        if (name != QLatin1String(fault.name))
            continue;
        FaultOrder order;
        order.name = name;
        order.manner = fault.manner;
        order.isCarriedOut = fault.isCarriedOut;
        order.halvesBody = fault.halvesBody;
        if (fault.hasOwnAnswer)
            order.answer = ownAnswer(name);
        return order;
    }
    return std::nullopt;
}

QStringList FaultOrder::names()
{
    QStringList names;
    for (const NamedFault& fault : namedFaults)
        names.append(QString::fromLatin1(fault.name));
    return names;
}

FaultOrder FaultOrder::fromJson(const JsonNode& node)
{
    node.allowOnly({QStringLiteral("fault"), QStringLiteral("endpoint"), QStringLiteral("nth"), QStringLiteral("skip"),
                    QStringLiteral("times"), QStringLiteral("delay"), QStringLiteral("pause"),
                    QStringLiteral("carriedOut"), QStringLiteral("status"), QStringLiteral("issue"),
                    QStringLiteral("body"), QStringLiteral("contentType")});
    auto order = named(node.text(QStringLiteral("fault")));
    if (!order) {
        node.fail(QStringLiteral("fault"),
                  QStringLiteral("one of these is expected: ") + names().join(QStringLiteral(", ")));
    }
    const auto endpoint = endpointOf(node.text(QStringLiteral("endpoint"), endpointName(Endpoint::Any)));
    if (!endpoint) {
        node.fail(QStringLiteral("endpoint"),
                  QStringLiteral("one of these is expected: ") + endpointNames().join(QStringLiteral(", ")));
    }
    order->endpoint = *endpoint;
    order->occasion = occasionIn(node);
    order->delay = milliseconds(node, QStringLiteral("delay"));
    order->pause = milliseconds(node, QStringLiteral("pause"));
    order->isCarriedOut = node.flag(QStringLiteral("carriedOut"), order->isCarriedOut);
    for (const QString& key : {QStringLiteral("status"), QStringLiteral("issue"), QStringLiteral("body")}) {
        if (node.has(key) && !order->answer)
            node.fail(key, QStringLiteral("not for this fault, which sends no answer of its own"));
    }
    if (order->answer)
        readAnswer(node, *order->answer);
    return *order;
}

Delivery FaultOrder::deliver(HttpAnswer registryAnswer) const
{
    Delivery delivery;
    delivery.answer = answer.value_or(std::move(registryAnswer));
    if (halvesBody)
        delivery.answer.body.truncate(delivery.answer.body.size() / 2);
    delivery.manner = manner;
    delivery.delay = delay;
    delivery.pause = pause;
    return delivery;
}
} // namespace emulator
