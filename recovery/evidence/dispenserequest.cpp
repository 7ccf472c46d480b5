// SPDX-License-Identifier: MIT
#include "dispenserequest.h"

#include "dispenseanswer.h"
#include "requestjournal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

using Kind = DispenseRequest::Kind;
using Outcome = DispenseRequest::Outcome;

constexpr int firstStatusOfRefusal = 400;
constexpr int firstStatusOfFailure = 500;

QJsonObject objectOf(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

/// The MedicationDispense of a dispense document.
QJsonObject dispenseIn(const QJsonObject& document)
{
    const QJsonArray parameters = document["parameter"_L1].toArray();
    const auto found = std::find_if(parameters.begin(), parameters.end(), [](const QJsonValue& parameter) {
        return parameter["name"_L1].toString() == "medicationDispense"_L1;
    });
    return found == parameters.end() ? QJsonObject() : (*found)["resource"_L1].toObject();
}

QString prescriptionOf(const QJsonObject& dispense)
{
    const QJsonValue reference = dispense["authorizingPrescription"_L1][0]["reference"_L1];
    return reference.toString().section(u'/', 1);
}

/// @param confirmation what the answer reports when the registry has done it
Outcome outcomeOf(const JournalledRequest& request, const QString& confirmation)
{
    if (request.state == JournalledRequest::State::NotSent) {
        return Outcome::NotSent;
    }
    if (request.state == JournalledRequest::State::Unanswered) {
        return Outcome::Open;
    }
    const QJsonObject answer = objectOf(request.answer);
    if (request.status >= firstStatusOfRefusal) {
        // A server that fails may have done it before, and what lies between may answer in the registry's place.
        const bool isRegistrysWord = answer["resourceType"_L1].toString() == "OperationOutcome"_L1;
        return isRegistrysWord && request.status < firstStatusOfFailure ? Outcome::Refused : Outcome::Open;
    }
    if (dispenseanswer::reports(answer, confirmation)) {
        return Outcome::Done;
    }
    return dispenseanswer::reportsAnything(answer) ? Outcome::Refused : Outcome::Open;
}

DispenseRequest registrationOf(const JournalledRequest& request)
{
    const QJsonObject dispense = dispenseIn(objectOf(request.body));
    DispenseRequest registration;
    registration.kind = Kind::Registration;
    registration.outcome = outcomeOf(request, dispenseanswer::registered);
    registration.prescription = prescriptionOf(dispense);
    registration.facts = DispenseFacts::of(dispense);
    if (registration.outcome == Outcome::Done) {
        const QStringList ids = dispenseanswer::dispenseIds(objectOf(request.answer));
        registration.dispense = ids.value(ids.size() - 1); // as the prescription plug-in does
    }
    return registration;
}

DispenseRequest cancellationOf(const JournalledRequest& request, const QString& dispense)
{
    DispenseRequest cancellation;
    cancellation.kind = Kind::Cancellation;
    cancellation.outcome = outcomeOf(request, dispenseanswer::cancelled);
    cancellation.dispense = dispense;
    return cancellation;
}

} // namespace

std::optional<DispenseRequest> DispenseRequest::of(const JournalledRequest& request)
{
    const QString path = request.url.path(QUrl::FullyDecoded);
    const QString cancelled = dispenseanswer::dispenseOfCancellation(path);
    std::optional<DispenseRequest> found;
    if (path.endsWith(dispenseanswer::registrationPath)) {
        found = registrationOf(request);
    } else if (!cancelled.isNull()) {
        found = cancellationOf(request, cancelled);
    }
    if (found) {
        found->id = request.id;
        found->status = request.status;
        found->sent = request.sent;
        found->document = request.document;
    }
    return found;
}

QList<DispenseRequest> dispenseRequests()
{
    QList<DispenseRequest> found;
    const QList<JournalledRequest> requests = Singleton<RequestJournal>::get()->requests();
    for (const JournalledRequest& request : requests) {
        if (const auto dispense = DispenseRequest::of(request)) {
            found.append(*dispense);
        }
    }
    return found;
}
