// SPDX-License-Identifier: MIT
#include "prescriptionresources.h"

#include "registryuris.h"

#include <QJsonArray>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QJsonObject nameObject(const PersonName& name)
{
    return {{u"use"_s, u"official"_s},
            {u"family"_s, QJsonArray{name.family}},
            {u"given"_s, QJsonArray::fromStringList(name.given)}};
}

QJsonObject reference(const QString& type, const QString& id)
{
    return {{u"reference"_s, type + u'/' + id}};
}

QJsonObject identifier(const QString& system, const QString& value)
{
    return {{u"system"_s, system}, {u"value"_s, value}};
}

QJsonObject coding(const QString& system, const QString& code, const QString& display)
{
    return {{u"system"_s, system}, {u"code"_s, code}, {u"display"_s, display}};
}

QJsonObject medication(const QString& id, bool isBrand, const QJsonArray& codings)
{
    return {{u"resourceType"_s, u"Medication"_s},
            {u"id"_s, id},
            {u"isBrand"_s, isBrand},
            {u"code"_s, QJsonObject{{u"coding"_s, codings}}}};
}

/// The medicine by its non-proprietary name and, if the prescription has one, by its trade name. A reader keeps the
/// last coding of a medication. The trade name's last coding is the dosage code, by which the medicine is dispensed;
/// the non-proprietary name's is the code of the name itself.
QJsonArray medications(const Prescription& prescription, const QString& dosageSystem)
{
    const auto dosage = [&](const QString& display) { return coding(dosageSystem, prescription.dosageCode, display); };
    QJsonArray innCodings;
    if (!prescription.dosageCode.isEmpty()) {
        innCodings.append(dosage(prescription.inn));
    }
    innCodings.append(coding(uri::nonProprietaryNames, prescription.innCode, prescription.inn));
    QJsonArray medications{medication(u"inn"_s, false, innCodings)};
    if (!prescription.tradeName.isEmpty()) {
        QJsonArray codings{coding(uri::tradeNames, prescription.tradeNameCode, prescription.tradeName)};
        if (!prescription.dosageCode.isEmpty()) {
            codings.append(dosage(prescription.tradeName));
        }
        medications.append(medication(u"trade"_s, true, codings));
    }
    return medications;
}

QJsonArray instructions(const QStringList& texts)
{
    QJsonArray instructions;
    for (const QString& text : texts) {
        instructions.append(QJsonObject{{u"text"_s, text}});
    }
    return instructions;
}

QJsonObject location(const QString& name, const QString& address)
{
    return {{u"resourceType"_s, u"Location"_s}, {u"name"_s, name}, {u"address"_s, QJsonObject{{u"text"_s, address}}}};
}
} // namespace

QJsonObject patientResource(const Patient& patient)
{
    return {{u"resourceType"_s, u"Patient"_s},
            {u"id"_s, patient.id},
            {u"identifier"_s, QJsonArray{identifier(uri::cardNumbers, patient.card)}},
            {u"name"_s, QJsonArray{nameObject(patient.name)}},
            {u"birthDate"_s, patient.birthDate.toString(Qt::ISODate)}};
}

QJsonObject practitionerResource(const Practitioner& practitioner)
{
    return {
        {u"resourceType"_s, u"Practitioner"_s}, {u"id"_s, practitioner.id}, {u"name"_s, nameObject(practitioner.name)}};
}

QJsonObject payerResource(const Payer& payer)
{
    return {{u"resourceType"_s, u"Organization"_s}, {u"id"_s, payer.id}, {u"name"_s, payer.name}};
}

QJsonObject prescriptionResource(const Prescription& prescription, const QString& dosageSystem)
{
    const QJsonObject validity{{u"start"_s, prescription.written.toString(Qt::ISODate)},
                               {u"end"_s, prescription.validUntil.toString(Qt::ISODate)}};
    QJsonObject resource{
        {u"resourceType"_s, u"MedicationPrescription"_s},
        {u"id"_s, prescription.id},
        {u"identifier"_s, QJsonArray{identifier(uri::serialNumbers, prescription.serialNumber)}},
        {u"status"_s, prescription.status},
        {u"dateWritten"_s, prescription.written.toString(Qt::ISODate)},
        {u"patient"_s, reference(u"Patient"_s, prescription.patientId)},
        {u"prescriber"_s, reference(u"Practitioner"_s, prescription.practitionerId)},
        {u"contained"_s, medications(prescription, dosageSystem)},
        {u"medication"_s, QJsonObject{{u"reference"_s, prescription.prescribedByInn ? u"#inn"_s : u"#trade"_s}}},
        {u"dosageInstruction"_s, instructions(prescription.instructions)},
        {u"dispense"_s, QJsonObject{{u"validityPeriod"_s, validity},
                                    {u"quantity"_s, QJsonObject{{u"value"_s, prescription.quantity}}}}}};
    if (prescription.patientShare) {
        resource.insert(u"extension"_s, QJsonArray{QJsonObject{{u"url"_s, uri::factorExtension},
                                                               {u"valueDecimal"_s, *prescription.patientShare}}});
    }
    return resource;
}

QJsonObject signatureResource(const Prescription& prescription)
{
    return {{u"resourceType"_s, u"Provenance"_s},
            {u"id"_s, u"signature-"_s + prescription.id},
            {u"target"_s, QJsonArray{reference(u"MedicationPrescription"_s, prescription.id)}},
            {u"recorded"_s, prescription.written.startOfDay(QTimeZone::utc()).toString(Qt::ISODate)}};
}

QJsonObject dispenseResource(const Dispense& dispense, const Prescription& prescription)
{
    QJsonObject resource{
        {u"resourceType"_s, u"MedicationDispense"_s},
        {u"id"_s, dispense.id},
        {u"status"_s, dispense.isCancelled ? u"entered-in-error"_s : u"completed"_s},
        {u"extension"_s,
         QJsonArray{QJsonObject{{u"url"_s, uri::finalDispenseExtension}, {u"valueBoolean"_s, dispense.isFinal}}}},
        {u"patient"_s, reference(u"Patient"_s, prescription.patientId)},
        {u"authorizingPrescription"_s, QJsonArray{reference(u"MedicationPrescription"_s, prescription.id)}},
        {u"quantity"_s, QJsonObject{{u"value"_s, dispense.quantity}}},
        {u"whenHandedOver"_s, dispense.handedOver.toString(Qt::ISODate)}};
    if (!dispense.pharmacyName.isEmpty() || !dispense.pharmacyAddress.isEmpty()) {
        resource.insert(u"contained"_s, QJsonArray{location(dispense.pharmacyName, dispense.pharmacyAddress)});
    }
    return resource;
}
} // namespace emulator
