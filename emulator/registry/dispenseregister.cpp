// SPDX-License-Identifier: MIT
#include "dispenseregister.h"

#include "dispensechecks.h"
#include "doses.h"
#include "prescriptionresources.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QJsonObject transactionEntry(const QString& status, const QJsonObject& resource)
{
    const QString location = resource.value(u"resourceType"_s).toString() + u'/' + resource.value(u"id"_s).toString();
    return {{u"resource"_s, resource},
            {u"transactionResponse"_s, QJsonObject{{u"status"_s, status}, {u"location"_s, location}}}};
}

HttpAnswer transactionAnswer(const QJsonArray& entries)
{
    return HttpAnswer::json(
        200, {{u"resourceType"_s, u"Bundle"_s}, {u"type"_s, u"transaction-response"_s}, {u"entry"_s, entries}});
}

/// The state of a prescription after these dispenses. A stopped or held prescription stays as it is.
QString statusAfter(const Prescription& prescription, const QList<Dispense>& dispenses)
{
    if (prescription.status != prescriptionstatus::active && prescription.status != prescriptionstatus::completed) {
        return prescription.status;
    }
    const bool isDeclaredFinal = std::any_of(dispenses.begin(), dispenses.end(), [](const Dispense& dispense) {
        return dispense.isFinal && !dispense.isCancelled;
    });
    const bool isUsedUp = doses::handedOut(dispenses) > prescription.quantity - doses::tolerance;
    return isDeclaredFinal || isUsedUp ? prescriptionstatus::completed : prescriptionstatus::active;
}
} // namespace

DispenseRegister::DispenseRegister(PrescriptionStore& store, Clock clock)
    : m_store(store)
    , m_clock(std::move(clock))
{
}

HttpAnswer DispenseRegister::book(const QByteArray& body, const Access& access)
{
    DispenseDocument document = DispenseDocument::read(body);
    const Prescription prescription = knownPrescription(document.prescriptionId);
    QList<Dispense> dispenses = m_store.dispensesOf(prescription.id);
    const QList<QString> payers = m_store.payers().keys();
    checkDispense(document, prescription, doses::handedOut(dispenses), QSet<QString>(payers.begin(), payers.end()),
                  m_clock().date());

    Dispense dispense;
    dispense.id = newId();
    dispense.prescriptionId = prescription.id;
    dispense.pharmacy = access.organization;
    dispense.pharmacyName = document.pharmacyName;
    dispense.pharmacyAddress = document.pharmacyAddress;
    dispense.quantity = document.quantity;
    dispense.handedOver = document.handedOver;
    dispense.isFinal = document.isFinal;
    document.dispenseResource.insert(u"id"_s, dispense.id);
    dispense.resource = compact(document.dispenseResource);
    QJsonArray entries{transactionEntry(u"POST:201"_s, document.dispenseResource)};
    if (document.claim) {
        document.claimResource.insert(u"id"_s, newId());
        dispense.claim = compact(document.claimResource);
        entries.append(transactionEntry(u"POST:201"_s, document.claimResource));
    }
    dispenses.append(dispense);
    m_store.book(dispense, statusAfter(prescription, dispenses));
    return transactionAnswer(entries);
}

QString DispenseRegister::bookElsewhere(Dispense dispense)
{
    const Prescription prescription = knownPrescription(dispense.prescriptionId);
    QList<Dispense> dispenses = m_store.dispensesOf(prescription.id);
    checkValidity(prescription, dispense.handedOver, m_clock().date());
    checkQuantity(dispense.quantity, prescription, doses::handedOut(dispenses));

    dispense.id = newId();
    dispense.isCancelled = false;
    dispense.resource.clear();
    dispense.claim.clear();
    dispenses.append(dispense);
    m_store.book(dispense, statusAfter(prescription, dispenses));
    return dispense.id;
}

HttpAnswer DispenseRegister::cancel(const QString& dispenseId, const Access& access)
{
    demand(!dispenseId.isEmpty(), RefusalCode::DispenseIdMissing);
    const auto dispense = m_store.dispense(dispenseId);
    demand(dispense.has_value(), RefusalCode::DispenseUnknown, {dispenseId});
    demand(!dispense->isCancelled, RefusalCode::DispenseAlreadyCancelled, {dispenseId});
    demand(dispense->pharmacy == access.organization, RefusalCode::DispenseOfOtherPharmacy, {dispenseId});
    const auto prescription = m_store.prescription(dispense->prescriptionId);
    QList<Dispense> dispenses = m_store.dispensesOf(prescription->id);
    dispenses.removeIf([&](const Dispense& other) { return other.id == dispenseId; });
    m_store.cancel(dispenseId, statusAfter(*prescription, dispenses));

    QJsonObject resource = dispense->resource.isEmpty() ? dispenseResource(*dispense, *prescription)
                                                        : QJsonDocument::fromJson(dispense->resource).object();
    resource.insert(u"status"_s, u"entered-in-error"_s);
    return transactionAnswer({transactionEntry(u"PUT:200"_s, resource)});
}

Prescription DispenseRegister::knownPrescription(const QString& id) const
{
    const auto prescription = m_store.prescription(id);
    demand(prescription.has_value(), RefusalCode::PrescriptionUnknown, {id});
    return *prescription;
}
} // namespace emulator
