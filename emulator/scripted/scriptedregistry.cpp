// SPDX-License-Identifier: MIT
#include "scriptedregistry.h"

#include "seedreader.h"
#include "syntheticprescriptions.h"

#include <QLocale>

#include <utility>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// The form of RFC 9110, 5.6.7.
QByteArray httpDate(const QDateTime& moment)
{
    return QLocale::c().toString(moment.toUTC(), u"ddd, dd MMM yyyy hh:mm:ss 'GMT'"_s).toLatin1();
}

bool books(Endpoint endpoint)
{
    return endpoint == Endpoint::DispenseRegistration || endpoint == Endpoint::DispenseCancellation;
}

/// The status that the client receives; 0 when it receives none.
int statusOf(const Delivery& delivery)
{
    switch (delivery.manner) {
    case Delivery::Manner::Close:
    case Delivery::Manner::Reset:
    case Delivery::Manner::Never:
        return 0;
    default:
        return delivery.answer.status;
    }
}
} // namespace

ScriptedRegistry::ScriptedRegistry(const QString& dataFile, const QString& basePath, Clock clock)
    : m_clock(std::move(clock))
    , m_store(dataFile)
    , m_api(m_store, m_clock, basePath)
{
}

Delivery ScriptedRegistry::answer(const HttpRequest& request)
{
    const Route route = m_api.routeOf(request);
    const auto fault = m_faults.takeFor(route.endpoint);

    Delivery delivery;
    delivery.answer = carryOut(request, route, fault);
    if (fault) {
        delivery = fault->deliver(std::move(delivery.answer));
    }
    JournalEntry entry;
    entry.connection = request.connection;
    entry.received = m_clock();
    entry.endpoint = route.endpoint;
    entry.method = request.method;
    entry.target = request.target;
    entry.headers = request.headers;
    entry.body = request.body;
    entry.status = statusOf(delivery);
    if (fault) {
        entry.fault = fault->name;
    }
    return deliver(m_journal.add(std::move(entry)), std::move(delivery));
}

/// The registry's answer; an empty one when the fault keeps it from carrying the request out, or from doing so now.
HttpAnswer ScriptedRegistry::carryOut(const HttpRequest& request, const Route& route,
                                      const std::optional<FaultOrder>& fault)
{
    if (books(route.endpoint)) {
        const QList<HttpRequest> late = std::exchange(m_keptBack, {});
        for (const HttpRequest& former : late) {
            m_api.answer(former, m_api.routeOf(former));
        }
    }
    if (fault && fault->isLate && fault->isCarriedOut) {
        m_keptBack.append(request);
        return {};
    }
    return !fault || fault->isCarriedOut ? m_api.answer(request, route) : HttpAnswer();
}

Delivery ScriptedRegistry::answerUnreadable(const HttpRequest& request, int status)
{
    Delivery delivery;
    delivery.answer = RegistryApi::unreadable(status);
    JournalEntry entry;
    entry.connection = request.connection;
    entry.received = m_clock();
    entry.status = status;
    return deliver(m_journal.add(std::move(entry)), std::move(delivery));
}

Delivery ScriptedRegistry::deliver(qint64 journalNumber, Delivery delivery)
{
    delivery.answer.with("Date", httpDate(m_clock()));
    delivery.finished = [this, journalNumber](bool whole) { m_journal.answered(journalNumber, whole); };
    return delivery;
}

void ScriptedRegistry::keepSeed(const JsonNode& seed)
{
    SeedReader(today()).read(seed);
    m_seed = seed;
}

void ScriptedRegistry::seed(const JsonNode& seed)
{
    keepSeed(seed);
    reset();
}

void ScriptedRegistry::reset()
{
    m_store.replace(m_seed ? SeedReader(today()).read(*m_seed) : Seed());
    tokens().expireAll();
    m_faults.clear();
    m_keptBack.clear();
    m_journal.clear();
}

void ScriptedRegistry::fillCard(const QString& card, int count)
{
    addSyntheticPrescriptions(m_store, card, count, today());
}

QString ScriptedRegistry::dispenseElsewhere(Dispense dispense)
{
    if (!dispense.handedOver.isValid()) {
        dispense.handedOver = today();
    }
    return m_api.dispenseElsewhere(dispense);
}

QString ScriptedRegistry::dispenseElsewhere(const JsonNode& dispense)
{
    return dispenseElsewhere(SeedReader(today()).readDispenseElsewhere(dispense));
}
} // namespace emulator
