// SPDX-License-Identifier: MIT
#include "adminapi.h"

#include "doses.h"
#include "emulatorerror.h"
#include "endpointname.h"
#include "registryemulator.h"
#include "seedreader.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace emulator
{
namespace
{
constexpr int mostSyntheticPrescriptions = 100'000; // on one card, by one call

HttpAnswer failure(int status, const QString& message)
{
    return HttpAnswer::json(status, {{QStringLiteral("error"), message}});
}

HttpAnswer done()
{
    return HttpAnswer::json(200, {{QStringLiteral("done"), true}});
}

QJsonObject json(const Dispense& dispense)
{
    return {{QStringLiteral("id"), dispense.id},
            {QStringLiteral("pharmacy"), dispense.pharmacy},
            {QStringLiteral("quantity"), dispense.quantity},
            {QStringLiteral("handedOver"), dispense.handedOver.toString(Qt::ISODate)},
            {QStringLiteral("final"), dispense.isFinal},
            {QStringLiteral("cancelled"), dispense.isCancelled},
            {QStringLiteral("resource"), QJsonDocument::fromJson(dispense.resource).object()},
            {QStringLiteral("claim"), QJsonDocument::fromJson(dispense.claim).object()}};
}

QJsonObject json(const Prescription& prescription, const QList<Dispense>& dispenses)
{
    QJsonArray dispenseArray;
    for (const Dispense& dispense : dispenses)
        dispenseArray.append(json(dispense));
    return {{QStringLiteral("id"), prescription.id},
            {QStringLiteral("serialNumber"), prescription.serialNumber},
            {QStringLiteral("status"), prescription.status},
            {QStringLiteral("inn"), prescription.inn},
            {QStringLiteral("tradeName"), prescription.tradeName},
            {QStringLiteral("dosageCode"), prescription.dosageCode},
            {QStringLiteral("quantity"), prescription.quantity},
            {QStringLiteral("dispensed"), doses::handedOut(dispenses)},
            {QStringLiteral("written"), prescription.written.toString(Qt::ISODate)},
            {QStringLiteral("validUntil"), prescription.validUntil.toString(Qt::ISODate)},
            {QStringLiteral("patientShare"), prescription.patientShare.value_or(1)},
            {QStringLiteral("payer"), prescription.payerId},
            {QStringLiteral("dispenses"), dispenseArray}};
}

QJsonObject json(const FaultOrder& order)
{
    return {{QStringLiteral("fault"), order.name},
            {QStringLiteral("endpoint"), endpointName(order.endpoint)},
            {QStringLiteral("skip"), order.occasion.skip},
            {QStringLiteral("times"), order.occasion.times},
            {QStringLiteral("carriedOut"), order.isCarriedOut}};
}

QJsonObject json(const Rules& rules)
{
    return {{QStringLiteral("tokenLifetime"), rules.tokenLifetime},
            {QStringLiteral("oaisToken"), rules.oaisToken},
            {QStringLiteral("prescriptionScope"), rules.prescriptionScope},
            {QStringLiteral("dispenseScope"), rules.dispenseScope},
            {QStringLiteral("dosageSystem"), rules.dosageSystem}};
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

        {"GET", "/rules", &AdminApi::rules},
        {"POST", "/rules", &AdminApi::changeRules},
        {"DELETE", "/tokens", &AdminApi::expireTokens},
    };
    return all;
}

AdminApi::AdminApi(RegistryEmulator& emulator)
    : m_emulator(emulator)
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
    delivery.answer = failure(status, QStringLiteral("the request cannot be read"));
    return delivery;
}

HttpAnswer AdminApi::carryOut(const HttpRequest& request)
{
    const QByteArray path = request.path();
    QByteArrayList methods;
    for (const Operation& operation : operations()) {
        if (operation.path != path)
            continue;
        if (operation.method == request.method)
            return (this->*operation.carryOut)(request);
        methods.append(operation.method);
    }
    if (methods.isEmpty())
        return failure(404, QStringLiteral("no such path"));
    HttpAnswer answer = failure(405, QStringLiteral("no such method here"));
    answer.with("Allow", methods.join(", "));
    return answer;
}

HttpAnswer AdminApi::journal(const HttpRequest&)
{
    QJsonArray requests;
    for (const JournalEntry& entry : m_emulator.journal().entries())
        requests.append(entry.json());
    return HttpAnswer::json(200, {{QStringLiteral("requests"), requests}});
}

HttpAnswer AdminApi::clearJournal(const HttpRequest&)
{
    m_emulator.journal().clear();
    return done();
}

HttpAnswer AdminApi::faults(const HttpRequest&)
{
    QJsonArray orders;
    for (const FaultOrder& order : m_emulator.faults().pending())
        orders.append(json(order));
    return HttpAnswer::json(200, {{QStringLiteral("faults"), orders}});
}

HttpAnswer AdminApi::orderFault(const HttpRequest& request)
{
    m_emulator.faults().order(FaultOrder::fromJson(JsonNode::parse(request.body)));
    return done();
}

HttpAnswer AdminApi::clearFaults(const HttpRequest&)
{
    m_emulator.faults().clear();
    return done();
}

HttpAnswer AdminApi::state(const HttpRequest&)
{
    const PrescriptionStore& store = m_emulator.store();
    QJsonArray patients;
    for (const QString& card : store.cards()) {
        const auto dispenses = store.dispensesOfCard(card);
        QJsonArray prescriptions;
        for (const Prescription& prescription : store.prescriptionsOfCard(card))
            prescriptions.append(json(prescription, dispenses.value(prescription.id)));
        patients.append(QJsonObject{{QStringLiteral("card"), card}, {QStringLiteral("prescriptions"), prescriptions}});
    }
    return HttpAnswer::json(200, {{QStringLiteral("patients"), patients}});
}

HttpAnswer AdminApi::seed(const HttpRequest& request)
{
    m_emulator.seed(request.body);
    return done();
}

HttpAnswer AdminApi::reset(const HttpRequest&)
{
    m_emulator.reset();
    return done();
}

HttpAnswer AdminApi::fill(const HttpRequest& request)
{
    const JsonNode node = JsonNode::parse(request.body);
    node.allowOnly({QStringLiteral("card"), QStringLiteral("count")});
    const QString card = node.text(QStringLiteral("card"));
    const auto count = node.count(QStringLiteral("count"));
    if (!count || *count > mostSyntheticPrescriptions) {
        node.fail(QStringLiteral("count"), QStringLiteral("a whole number up to ") +
                                               QString::number(mostSyntheticPrescriptions) +
                                               QStringLiteral(" is expected"));
    }
    m_emulator.fillCard(card, *count);
    return done();
}

HttpAnswer AdminApi::rules(const HttpRequest&)
{
    return HttpAnswer::json(200, json(m_emulator.store().rules()));
}

HttpAnswer AdminApi::changeRules(const HttpRequest& request)
{
    PrescriptionStore& store = m_emulator.store();
    store.setRules(SeedReader::rules(JsonNode::parse(request.body), store.rules()));
    return HttpAnswer::json(200, json(store.rules()));
}

HttpAnswer AdminApi::expireTokens(const HttpRequest&)
{
    m_emulator.tokens().expireAll();
    return done();
}
} // namespace emulator
