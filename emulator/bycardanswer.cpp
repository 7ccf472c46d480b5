// SPDX-License-Identifier: MIT
#include "bycardanswer.h"

#include "prescriptionresources.h"

#include <QJsonArray>

namespace emulator
{
namespace
{
QJsonObject entry(const QJsonObject& resource)
{
    return {{QStringLiteral("resource"), resource}};
}

QJsonObject bundle(const QString& type, const QJsonArray& entries)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("Bundle")},
            {QStringLiteral("type"), type},
            {QStringLiteral("entry"), entries}};
}
} // namespace

QJsonObject byCardAnswer(const PrescriptionStore& store, const Patient& patient, const QString& status)
{
    const QList<Prescription> prescriptions = store.prescriptionsOfCard(patient.card, status);
    if (prescriptions.isEmpty()) {
        return {{QStringLiteral("resourceType"), QStringLiteral("Bundle")},
                {QStringLiteral("type"), QStringLiteral("searchset")},
                {QStringLiteral("total"), 0}};
    }
    const auto dispenses = store.dispensesOfCard(patient.card);
    const auto practitioners = store.practitioners();
    const auto payers = store.payers();

    QJsonArray found{entry(patientResource(patient))};
    for (const Prescription& prescription : prescriptions) {
        QJsonArray entries{entry(prescriptionResource(prescription, store.rules().dosageSystem)),
                           entry(practitionerResource(practitioners.value(prescription.practitionerId)))};
        if (!prescription.payerId.isEmpty())
            entries.append(entry(payerResource(payers.value(prescription.payerId))));
        if (prescription.isSigned)
            entries.append(entry(signatureResource(prescription)));
        for (const Dispense& dispense : dispenses.value(prescription.id)) {
            if (!dispense.isCancelled)
                entries.append(entry(dispenseResource(dispense, prescription)));
        }
        found.append(entry(bundle(QStringLiteral("collection"), entries)));
    }
    QJsonObject answer = bundle(QStringLiteral("searchset"), found);
    answer.insert(QStringLiteral("total"), prescriptions.size());
    return answer;
}
} // namespace emulator
