// SPDX-License-Identifier: MIT
#include "prescriptionresources.h"

#include "registryuris.h"

#include <QJsonArray>

namespace emulator
{
namespace
{
QJsonObject nameObject(const PersonName& name)
{
    return {{QStringLiteral("use"), QStringLiteral("official")},
            {QStringLiteral("family"), QJsonArray{name.family}},
            {QStringLiteral("given"), QJsonArray::fromStringList(name.given)}};
}

QJsonObject reference(const QString& type, const QString& id)
{
    return {{QStringLiteral("reference"), type + QLatin1Char('/') + id}};
}

QJsonObject identifier(const QString& system, const QString& value)
{
    return {{QStringLiteral("system"), system}, {QStringLiteral("value"), value}};
}

QJsonObject coding(const QString& system, const QString& code, const QString& display)
{
    return {{QStringLiteral("system"), system}, {QStringLiteral("code"), code}, {QStringLiteral("display"), display}};
}

QJsonObject medication(const QString& id, bool isBrand, const QJsonArray& codings)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("Medication")},
            {QStringLiteral("id"), id},
            {QStringLiteral("isBrand"), isBrand},
            {QStringLiteral("code"), QJsonObject{{QStringLiteral("coding"), codings}}}};
}

/// The medicine by its non-proprietary name and, where the prescription names one, by its trade name. The dosage code
/// comes last of the trade name's codings and first of the non-proprietary name's: readers keep a medication's last
/// coding, which so is the code to dispense by in the one case, and the name's own code in the other.
QJsonArray medications(const Prescription& prescription, const QString& dosageSystem)
{
    const auto dosage = [&](const QString& display) { return coding(dosageSystem, prescription.dosageCode, display); };
    QJsonArray innCodings;
    if (!prescription.dosageCode.isEmpty())
        innCodings.append(dosage(prescription.inn));
    innCodings.append(coding(uri::nonProprietaryNames, prescription.innCode, prescription.inn));
    QJsonArray medications{medication(QStringLiteral("inn"), false, innCodings)};
    if (!prescription.tradeName.isEmpty()) {
        QJsonArray codings{coding(uri::tradeNames, prescription.tradeNameCode, prescription.tradeName)};
        if (!prescription.dosageCode.isEmpty())
            codings.append(dosage(prescription.tradeName));
        medications.append(medication(QStringLiteral("trade"), true, codings));
    }
    return medications;
}

QJsonArray instructions(const QStringList& texts)
{
    QJsonArray instructions;
    for (const QString& text : texts)
        instructions.append(QJsonObject{{QStringLiteral("text"), text}});
    return instructions;
}
} // namespace

QJsonObject patientResource(const Patient& patient)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("Patient")},
            {QStringLiteral("id"), patient.id},
            {QStringLiteral("identifier"), QJsonArray{identifier(uri::cardNumbers, patient.card)}},
            {QStringLiteral("name"), QJsonArray{nameObject(patient.name)}},
            {QStringLiteral("birthDate"), patient.birthDate.toString(Qt::ISODate)}};
}

QJsonObject practitionerResource(const Practitioner& practitioner)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("Practitioner")},
            {QStringLiteral("id"), practitioner.id},
            {QStringLiteral("name"), nameObject(practitioner.name)}};
}

QJsonObject payerResource(const Payer& payer)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("Organization")},
            {QStringLiteral("id"), payer.id},
            {QStringLiteral("name"), payer.name}};
}

QJsonObject prescriptionResource(const Prescription& prescription, const QString& dosageSystem)
{
    const QJsonObject validity{{QStringLiteral("start"), prescription.written.toString(Qt::ISODate)},
                               {QStringLiteral("end"), prescription.validUntil.toString(Qt::ISODate)}};
    QJsonObject resource{
        {QStringLiteral("resourceType"), QStringLiteral("MedicationPrescription")},
        {QStringLiteral("id"), prescription.id},
        {QStringLiteral("identifier"), QJsonArray{identifier(uri::serialNumbers, prescription.serialNumber)}},
        {QStringLiteral("status"), prescription.status},
        {QStringLiteral("dateWritten"), prescription.written.toString(Qt::ISODate)},
        {QStringLiteral("patient"), reference(QStringLiteral("Patient"), prescription.patientId)},
        {QStringLiteral("prescriber"), reference(QStringLiteral("Practitioner"), prescription.practitionerId)},
        {QStringLiteral("contained"), medications(prescription, dosageSystem)},
        {QStringLiteral("medication"),
         QJsonObject{{QStringLiteral("reference"),
                      prescription.prescribedByInn ? QStringLiteral("#inn") : QStringLiteral("#trade")}}},
        {QStringLiteral("dosageInstruction"), instructions(prescription.instructions)},
        {QStringLiteral("dispense"),
         QJsonObject{{QStringLiteral("validityPeriod"), validity},
                     {QStringLiteral("quantity"), QJsonObject{{QStringLiteral("value"), prescription.quantity}}}}}};
    if (prescription.patientShare) {
        resource.insert(QStringLiteral("extension"),
                        QJsonArray{QJsonObject{{QStringLiteral("url"), uri::factorExtension},
                                               {QStringLiteral("valueDecimal"), *prescription.patientShare}}});
    }
    return resource;
}

QJsonObject signatureResource(const Prescription& prescription)
{
    return {
        {QStringLiteral("resourceType"), QStringLiteral("Provenance")},
        {QStringLiteral("id"), QStringLiteral("signature-") + prescription.id},
        {QStringLiteral("target"), QJsonArray{reference(QStringLiteral("MedicationPrescription"), prescription.id)}},
        {QStringLiteral("recorded"), prescription.written.startOfDay(Qt::UTC).toString(Qt::ISODate)}};
}

QJsonObject dispenseResource(const Dispense& dispense, const Prescription& prescription)
{
    return {{QStringLiteral("resourceType"), QStringLiteral("MedicationDispense")},
            {QStringLiteral("id"), dispense.id},
            {QStringLiteral("status"), QStringLiteral("completed")},
            {QStringLiteral("extension"), QJsonArray{QJsonObject{{QStringLiteral("url"), uri::finalDispenseExtension},
                                                                 {QStringLiteral("valueBoolean"), dispense.isFinal}}}},
            {QStringLiteral("patient"), reference(QStringLiteral("Patient"), prescription.patientId)},
            {QStringLiteral("authorizingPrescription"),
             QJsonArray{reference(QStringLiteral("MedicationPrescription"), prescription.id)}},
            {QStringLiteral("quantity"), QJsonObject{{QStringLiteral("value"), dispense.quantity}}},
            {QStringLiteral("whenHandedOver"), dispense.handedOver.toString(Qt::ISODate)}};
}
} // namespace emulator
