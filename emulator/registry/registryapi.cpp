// SPDX-License-Identifier: MIT
#include "registryapi.h"

#include "bycardanswer.h"
#include "emulatorerror.h"
#include "percentdecoding.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
void demandJson(const HttpRequest& request)
{
    demand(request.mediaType() == "application/json", RefusalCode::BodyNotJson);
}

QString parameter(const DecodedPairs& query, const QString& name)
{
    QString value;
    bool isFound = false;
    for (const auto& [itemName, itemValue] : query) {
        if (itemName != name) {
            continue;
        }
        demand(!isFound, RefusalCode::QueryParameterTwice, {name});
        isFound = true;
        value = itemValue;
    }
    return value;
}
} // namespace

RegistryApi::RegistryApi(PrescriptionStore& store, const Clock& clock, const QString& basePath)
    : m_store(store)
    , m_router(basePath)
    , m_tokens(store, clock)
    , m_register(store, clock)
{
}

HttpAnswer RegistryApi::answer(const HttpRequest& request, const Route& route)
{
    try {
        return carryOut(request, route);
    } catch (const Refusal& refusal) {
        return refusal.answer();
    } catch (const EmulatorError& error) {
        return Refusal(RefusalCode::RegistryFailed, {error.message()}).answer();
    }
}

QString RegistryApi::dispenseElsewhere(const Dispense& dispense)
{
    try {
        return m_register.bookElsewhere(dispense);
    } catch (const Refusal& refusal) {
        throw EmulatorError(refusal.details());
    }
}

HttpAnswer RegistryApi::unreadable(int status)
{
    switch (status) {
    case 408:
        return Refusal(RefusalCode::RequestNotInTime).answer();
    case 413:
        return Refusal(RefusalCode::BodyTooLarge).answer();
    case 431:
        return Refusal(RefusalCode::HeadersTooLarge).answer();
    case 505:
        return Refusal(RefusalCode::HttpVersionUnknown).answer();
    default:
        return Refusal(RefusalCode::RequestUnreadable).answer();
    }
}

HttpAnswer RegistryApi::carryOut(const HttpRequest& request, const Route& route)
{
    demand(route.endpoint != Endpoint::Unknown, RefusalCode::PathUnknown);
    if (request.method != route.method) {
        throw Refusal(RefusalCode::MethodWrong, {QString::fromLatin1(request.method)}).with("Allow", route.method);
    }
    switch (route.endpoint) {
    case Endpoint::Token:
        return m_tokens.issue(request);
    case Endpoint::PrescriptionsByCard:
        return prescriptionsByCard(request);
    case Endpoint::DispenseRegistration:
        return registerDispense(request);
    default:
        return cancelDispense(request, route.id);
    }
}

HttpAnswer RegistryApi::prescriptionsByCard(const HttpRequest& request) const
{
    m_tokens.admit(request, m_store.rules().prescriptionScope);
    const auto query = decodeQuery(request.query());
    demand(query.has_value(), RefusalCode::QueryUndecodable);
    const QString card = parameter(*query, u"patientIdentifier"_s);
    demand(!card.isEmpty(), RefusalCode::CardMissing);
    const QString status = parameter(*query, u"status"_s);
    demand(status.isEmpty() || prescriptionstatus::all.contains(status), RefusalCode::StatusUnknown, {status});
    const auto patient = m_store.patientOfCard(card);
    demand(patient.has_value(), RefusalCode::CardUnknown);
    return HttpAnswer::json(200, byCardAnswer(m_store, *patient, status));
}

HttpAnswer RegistryApi::registerDispense(const HttpRequest& request)
{
    const Access access = m_tokens.admit(request, m_store.rules().dispenseScope);
    demandJson(request);
    return m_register.book(request.body, access);
}

HttpAnswer RegistryApi::cancelDispense(const HttpRequest& request, const QString& dispenseId)
{
    const Access access = m_tokens.admit(request, m_store.rules().dispenseScope);
    demandJson(request);
    demand(QJsonDocument::fromJson(request.body).isObject(), RefusalCode::CancellationNoObject);
    return m_register.cancel(dispenseId, access);
}
} // namespace emulator
