// SPDX-License-Identifier: MIT
#include "adminapi.h"

#include "doses.h"
#include "emulatorerror.h"
#include "endpoint.h"
#include "faultorder.h"
#include "journal.h"
#include "rulefields.h"
#include "seedreader.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
constexpr int mostSyntheticPrescriptions = 100'000; // by one request

HttpAnswer failure(int status, const QString& message)
{
    return HttpAnswer::json(status, {{u"error"_s, message}});
}

HttpAnswer done()
{
    return HttpAnswer::json(200, {{u"done"_s, true}});
}

/// A page in a browser reaches a loopback port by a name of its own, which it lets point here, but not under a name
/// that is ours (DNS rebinding).
bool isForThisMachine(const HttpRequest& request)
{
    const QByteArray host = request.header("Host").toLower();
    const QByteArray name = host.left(host.contains(':') ? host.lastIndexOf(':') : host.size());
    return name == "localhost" || name == "127.0.0.1";
}

QJsonObject json(const Dispense& dispense)
{
    return {{u"id"_s, dispense.id},
            {u"pharmacy"_s, dispense.pharmacy},
            {u"pharmacyName"_s, dispense.pharmacyName},
            {u"pharmacyAddress"_s, dispense.pharmacyAddress},
            {u"quantity"_s, dispense.quantity},
            {u"handedOver"_s, dispense.handedOver.toString(Qt::ISODate)},
            {u"final"_s, dispense.isFinal},
            {u"cancelled"_s, dispense.isCancelled},
            {u"resource"_s, QJsonDocument::fromJson(dispense.resource).object()},
            {u"claim"_s, QJsonDocument::fromJson(dispense.claim).object()}};
}

QJsonObject json(const Prescription& prescription, const QList<Dispense>& dispenses)
{
    QJsonArray dispenseArray;
    for (const Dispense& dispense : dispenses) {
        dispenseArray.append(json(dispense));
    }
    return {{u"id"_s, prescription.id},
            {u"serialNumber"_s, prescription.serialNumber},
            {u"status"_s, prescription.status},
            {u"inn"_s, prescription.inn},
            {u"tradeName"_s, prescription.tradeName},
            {u"dosageCode"_s, prescription.dosageCode},
            {u"quantity"_s, prescription.quantity},
            {u"dispensed"_s, doses::handedOut(dispenses)},
            {u"written"_s, prescription.written.toString(Qt::ISODate)},
            {u"validUntil"_s, prescription.validUntil.toString(Qt::ISODate)},
            {u"patientShare"_s, prescription.patientShare.value_or(1)},
            {u"payer"_s, prescription.payerId},
            {u"dispenses"_s, dispenseArray}};
}

QJsonObject json(const FaultOrder& order)
{
    return {{u"fault"_s, order.name},
            {u"endpoint"_s, endpointName(order.endpoint)},
            {u"skip"_s, order.occasion.skip},
            {u"times"_s, order.occasion.times},
            {u"carriedOut"_s, order.isCarriedOut}};
}

QJsonObject json(const Rules& rules)
{
    QJsonObject object;
    for (const RuleField& field : ruleFields()) {
        std::visit([&](auto member) { object.insert(field.name, rules.*member); }, field.member);
    }
    return object;
}
} // namespace

struct AdminApi::Operation {
    QByteArray method;
    QByteArray path;
    HttpAnswer (AdminApi::*carryOut)(const HttpRequest&);
};

const QList<AdminApi::Operation>& AdminApi::operations()
{
    static const QList<Operation> all{
        {"GET", "/journal", &AdminApi::journal},
        {"DELETE", "/journal", &AdminApi::clearJournal},

        {"GET", "/faults", &AdminApi::faults},
        {"POST", "/faults", &AdminApi::orderFault},
        {"DELETE", "/faults", &AdminApi::clearFaults},

        {"GET", "/state", &AdminApi::state},
        {"POST", "/seed", &AdminApi::seed},
        {"POST", "/reset", &AdminApi::reset},
        {"POST", "/fill", &AdminApi::fill},
        {"POST", "/dispenses", &AdminApi::dispenseElsewhere},

        {"GET", "/rules", &AdminApi::rules},
        {"POST", "/rules", &AdminApi::changeRules},
        {"DELETE", "/tokens", &AdminApi::expireTokens},
    };
    return all;
}

AdminApi::AdminApi(ScriptedRegistry& registry)
    : m_registry(registry)
{
}

Delivery AdminApi::answer(const HttpRequest& request)
{
    Delivery delivery;
    try {
        delivery.answer = carryOut(request);
    } catch (const EmulatorError& error) {
        delivery.answer = failure(400, error.message());
    }
    return delivery;
}

Delivery AdminApi::unreadable(int status)
{
    Delivery delivery;
    delivery.answer = failure(status, u"the request cannot be read"_s);
    return delivery;
}

HttpAnswer AdminApi::carryOut(const HttpRequest& request)
{
    if (!isForThisMachine(request)) {
        return failure(403, u"Host has to be localhost or 127.0.0.1"_s);
    }
    const QByteArray path = request.path();
    QByteArrayList methods;
    for (const Operation& operation : operations()) {
        if (operation.path != path) {
            continue;
        }
        if (operation.method == request.method) {
            // A page of another site may send texts and forms without asking, but not JSON.
            if (request.method == "POST" && request.mediaType() != "application/json") {
                return failure(415, u"Content-Type has to be application/json"_s);
            }
            return (this->*operation.carryOut)(request);
        }
        methods.append(operation.method);
    }
    if (methods.isEmpty()) {
        return failure(404, u"no such path"_s);
    }
    HttpAnswer answer = failure(405, u"no such method here"_s);
    answer.with("Allow", methods.join(", "));
    return answer;
}

HttpAnswer AdminApi::journal(const HttpRequest&)
{
    QJsonArray requests;
    for (const JournalEntry& entry : m_registry.journal().entries()) {
        requests.append(entry.json());
    }
    return HttpAnswer::json(200, {{u"requests"_s, requests}});
}

HttpAnswer AdminApi::clearJournal(const HttpRequest&)
{
    m_registry.journal().clear();
    return done();
}

HttpAnswer AdminApi::faults(const HttpRequest&)
{
    QJsonArray orders;
    for (const FaultOrder& order : m_registry.faults().pending()) {
        orders.append(json(order));
    }
    return HttpAnswer::json(200, {{u"faults"_s, orders}});
}

HttpAnswer AdminApi::orderFault(const HttpRequest& request)
{
    m_registry.faults().order(FaultOrder::fromJson(JsonNode::parse(request.body)));
    return done();
}

HttpAnswer AdminApi::clearFaults(const HttpRequest&)
{
    m_registry.faults().clear();
    return done();
}

HttpAnswer AdminApi::state(const HttpRequest&)
{
    const PrescriptionStore& store = m_registry.store();
    QJsonArray patients;
    for (const QString& card : store.cards()) {
        const auto dispenses = store.dispensesOfCard(card);
        QJsonArray prescriptions;
        for (const Prescription& prescription : store.prescriptionsOfCard(card)) {
            prescriptions.append(json(prescription, dispenses.value(prescription.id)));
        }
        patients.append(QJsonObject{{u"card"_s, card}, {u"prescriptions"_s, prescriptions}});
    }
    return HttpAnswer::json(200, {{u"patients"_s, patients}});
}

HttpAnswer AdminApi::seed(const HttpRequest& request)
{
    m_registry.seed(JsonNode::parse(request.body));
    return done();
}

HttpAnswer AdminApi::reset(const HttpRequest&)
{
    m_registry.reset();
    return done();
}

HttpAnswer AdminApi::fill(const HttpRequest& request)
{
    const JsonNode node = JsonNode::parse(request.body);
    node.allowOnly({u"card"_s, u"count"_s});
    const QString card = node.text(u"card"_s);
    const auto count = node.count(u"count"_s);
    if (!count || *count > mostSyntheticPrescriptions) {
        node.fail(u"count"_s,
                  u"a whole number up to "_s + QString::number(mostSyntheticPrescriptions) + u" is expected"_s);
    }
    m_registry.fillCard(card, *count);
    return done();
}

HttpAnswer AdminApi::dispenseElsewhere(const HttpRequest& request)
{
    return HttpAnswer::json(200, {{u"id"_s, m_registry.dispenseElsewhere(JsonNode::parse(request.body))}});
}

HttpAnswer AdminApi::rules(const HttpRequest&)
{
    return HttpAnswer::json(200, json(m_registry.store().rules()));
}

HttpAnswer AdminApi::changeRules(const HttpRequest& request)
{
    PrescriptionStore& store = m_registry.store();
    store.setRules(SeedReader::rules(JsonNode::parse(request.body), store.rules()));
    return HttpAnswer::json(200, json(store.rules()));
}

HttpAnswer AdminApi::expireTokens(const HttpRequest&)
{
    m_registry.tokens().expireAll();
    return done();
}
} // namespace emulator
