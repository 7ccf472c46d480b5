// SPDX-License-Identifier: MIT
#include "bycardanswer.h"

#include "prescriptionresources.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QJsonObject entry(const QJsonObject& resource)
{
    return {{u"resource"_s, resource}};
}

QJsonObject bundle(const QString& type, const QJsonArray& entries)
{
    return {{u"resourceType"_s, u"Bundle"_s}, {u"type"_s, type}, {u"entry"_s, entries}};
}

/// What the rules let a pharmacy see of a dispense.
QJsonObject shown(const Dispense& dispense, const Prescription& prescription, const Rules& rules)
{
    QJsonObject resource = dispenseResource(dispense, prescription);
    if (!rules.showDispenseIds) {
        resource.remove(u"id"_s);
    }
    if (!rules.showPharmacies) {
        resource.remove(u"contained"_s);
    }
    return resource;
}
} // namespace

QJsonObject byCardAnswer(const PrescriptionStore& store, const Patient& patient, const QString& status)
{
    const QList<Prescription> prescriptions = store.prescriptionsOfCard(patient.card, status);
    if (prescriptions.isEmpty()) {
        return {{u"resourceType"_s, u"Bundle"_s}, {u"type"_s, u"searchset"_s}, {u"total"_s, 0}};
    }
    const auto dispenses = store.dispensesOfCard(patient.card);
    const auto practitioners = store.practitioners();
    const auto payers = store.payers();
    const Rules& rules = store.rules();

    QJsonArray found{entry(patientResource(patient))};
    for (const Prescription& prescription : prescriptions) {
        QJsonArray entries{entry(prescriptionResource(prescription, rules.dosageSystem)),
                           entry(practitionerResource(practitioners.value(prescription.practitionerId)))};
        if (!prescription.payerId.isEmpty()) {
            entries.append(entry(payerResource(payers.value(prescription.payerId))));
        }
        if (prescription.isSigned) {
            entries.append(entry(signatureResource(prescription)));
        }
        for (const Dispense& dispense : dispenses.value(prescription.id)) {
            if (!dispense.isCancelled || rules.showCancelledDispenses) {
                entries.append(entry(shown(dispense, prescription, rules)));
            }
        }
        found.append(entry(bundle(u"collection"_s, entries)));
    }
    QJsonObject answer = bundle(u"searchset"_s, found);
    answer.insert(u"total"_s, prescriptions.size());
    return answer;
}
} // namespace emulator
