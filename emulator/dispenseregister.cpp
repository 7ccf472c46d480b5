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
    const QString location = resource.value(QStringLiteral("resourceType")).toString() + QLatin1Char('/') +
                             resource.value(QStringLiteral("id")).toString();
    return {{QStringLiteral("resource"), resource},
            {QStringLiteral("transactionResponse"),
             QJsonObject{{QStringLiteral("status"), status}, {QStringLiteral("location"), location}}}};
}

HttpAnswer transactionAnswer(const QJsonArray& entries)
{
    return HttpAnswer::json(200, {{QStringLiteral("resourceType"), QStringLiteral("Bundle")},
                                  {QStringLiteral("type"), QStringLiteral("transaction-response")},
                                  {QStringLiteral("entry"), entries}});
}

/// The state that a prescription is in after these dispenses. A prescription that was stopped or put on hold stays so.
QString statusAfter(const Prescription& prescription, const QList<Dispense>& dispenses)
{
    if (prescription.status != prescriptionstatus::active && prescription.status != prescriptionstatus::completed)
        return prescription.status;
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
    const auto prescription = m_store.prescription(document.prescriptionId);
    if (!prescription) {
        throw Refusal(404,
                      QStringLiteral("Рецепт ") + document.prescriptionId + QStringLiteral(" не найден в реестре"));
    }
    QList<Dispense> dispenses = m_store.dispensesOf(prescription->id);
    const QList<QString> payers = m_store.payers().keys();
    checkDispense(document, *prescription, doses::handedOut(dispenses), QSet<QString>(payers.begin(), payers.end()),
                  m_clock().date());

    Dispense dispense;
    dispense.id = newId();
    dispense.prescriptionId = prescription->id;
    dispense.pharmacy = access.organization;
    dispense.quantity = document.quantity;
    dispense.handedOver = document.handedOver;
    dispense.isFinal = document.isFinal;
    document.dispenseResource.insert(QStringLiteral("id"), dispense.id);
    dispense.resource = compact(document.dispenseResource);
    QJsonArray entries{transactionEntry(QStringLiteral("POST:201"), document.dispenseResource)};
    if (document.claim) {
        document.claimResource.insert(QStringLiteral("id"), newId());
        dispense.claim = compact(document.claimResource);
        entries.append(transactionEntry(QStringLiteral("POST:201"), document.claimResource));
    }
    dispenses.append(dispense);
    m_store.book(dispense, statusAfter(*prescription, dispenses));
    return transactionAnswer(entries);
}

HttpAnswer DispenseRegister::cancel(const QString& dispenseId, const Access& access)
{
    if (dispenseId.isEmpty())
        throw Refusal(400, QStringLiteral("Не указано, какой отпуск отменяется"));
    const auto dispense = m_store.dispense(dispenseId);
    if (!dispense)
        throw Refusal(404, QStringLiteral("Отпуск ") + dispenseId + QStringLiteral(" не найден в реестре"));
    if (dispense->isCancelled)
        throw Refusal(409, QStringLiteral("Отпуск ") + dispenseId + QStringLiteral(" уже отменён"));
    if (dispense->pharmacy != access.organization) {
        throw Refusal(403,
                      QStringLiteral("Отпуск ") + dispenseId + QStringLiteral(" зарегистрирован другой организацией"));
    }
    const auto prescription = m_store.prescription(dispense->prescriptionId);
    QList<Dispense> dispenses = m_store.dispensesOf(prescription->id);
    dispenses.removeIf([&](const Dispense& other) { return other.id == dispenseId; });
    m_store.cancel(dispenseId, statusAfter(*prescription, dispenses));

    QJsonObject resource = dispense->resource.isEmpty() ? dispenseResource(*dispense, *prescription)
                                                        : QJsonDocument::fromJson(dispense->resource).object();
    resource.insert(QStringLiteral("status"), QStringLiteral("entered-in-error"));
    return transactionAnswer({transactionEntry(QStringLiteral("PUT:200"), resource)});
}
} // namespace emulator
