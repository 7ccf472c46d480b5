// SPDX-License-Identifier: MIT
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "patient.h"
#include "payingelectronicprescriptionorganization.h"
#include "registrydate.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace
{

/// A member's text; empty when it is missing or no text. A look-up by [] would copy the value.
QString text(const QJsonObject& object, QLatin1StringView name)
{
    const auto member = object.constFind(name);
    return member == object.constEnd() ? QString() : member->toString();
}

void setPrescriptionDate(const QJsonValue& date, ElectronicPrescription& prescription)
{
    prescription.setPrescriptionDate(readRegistryDate(date.toString()));
}

/// The texts are joined. A blank goes before each text, also an empty one, once there is something before it.
void setInstructions(const QJsonValue& dosageInstructions, ElectronicPrescription& prescription)
{
    QString instructions;
    const QJsonArray array = dosageInstructions.toArray();
    for (const auto& dosageInstruction : array) {
        if (!instructions.isEmpty()) {
            instructions += u' ';
        }
        instructions += text(dosageInstruction.toObject(), "text"_L1);
    }
    prescription.setInstructions(instructions);
}

/// The patient's share of the price. Without such an extension the record keeps its default: the patient pays all.
void setPayByPatientSumFactor(const QJsonValue& extensions, ElectronicPrescription& prescription)
{
    const QJsonArray array = extensions.toArray();
    for (const auto& extension : array) {
        const QJsonObject object = extension.toObject();
        if (text(object, "url"_L1).endsWith("by-factor"_L1)) {
            prescription.setPayByPatientSumFactor(object["valueDecimal"_L1].toDouble());
        }
    }
}

void setDispense(const QJsonValue& value, ElectronicPrescription& prescription)
{
    const QJsonObject dispense = value.toObject();
    prescription.setExpirationDate(readRegistryDate(text(dispense["validityPeriod"_L1].toObject(), "end"_L1)));
    prescription.setDoseQuantity(dispense["quantity"_L1]["value"_L1].toDouble());
}

void setPatientReference(const QJsonValue& patient, ElectronicPrescription& prescription)
{
    prescription.setPatientReference(text(patient.toObject(), "reference"_L1));
}

void setSerialNumber(const QJsonValue& identifiers, ElectronicPrescription& prescription)
{
    prescription.setSerialNumber(text(identifiers[0].toObject(), "value"_L1));
}

/// A member of a "MedicationPrescription" resource and what it does to the record. It does it when it is missing, too.
struct PrescriptionMember {
    QLatin1StringView name;
    void (*apply)(const QJsonValue&, ElectronicPrescription&) = nullptr;
};

// In the order in which they are applied, after the id and the medicine.
constexpr PrescriptionMember prescriptionMembers[] = {
    {"dateWritten"_L1, setPrescriptionDate},    {"dosageInstruction"_L1, setInstructions},
    {"extension"_L1, setPayByPatientSumFactor}, {"dispense"_L1, setDispense},
    {"patient"_L1, setPatientReference},        {"identifier"_L1, setSerialNumber},
};

} // namespace

void ElectronicPrescriptionService::fillPatient(const QString& status, const QJsonObject& patient)
{
    const QString name = getPatientOrPractitionerName(patient["name"_L1][0].toObject());
    const QDate birthday = readRegistryDate(text(patient, "birthDate"_L1));
    patientCache.insert(status, QSharedPointer<Patient>(new Patient(name, birthday)));
}

void ElectronicPrescriptionService::fillElectronicPrescription(
    const QJsonObject& resource, const QSharedPointer<ElectronicPrescription>& prescription) const
{
    const QString type = text(resource, "resourceType"_L1);
    if (type == "MedicationPrescription"_L1) {
        fillMedicationPrescription(resource, *prescription);
    } else if (type == "Provenance"_L1) {
        // A provenance records the signature. Nothing in it is read.
        prescription->setDigitalSignature();
    } else if (type == "Organization"_L1) {
        QSharedPointer<PayingElectronicPrescriptionOrganization> organization;
        fillPayingElectronicPrescriptionOrganization(resource, organization);
        prescription->setPayingElectronicPrescriptionOrganization(organization);
    } else if (type == "MedicationDispense"_L1) {
        prescription->addMedicationDispenseDate(readRegistryDate(text(resource, "whenHandedOver"_L1)));
        prescription->addDispensedDoseQuantity(resource["quantity"_L1]["value"_L1].toDouble());
    } else if (type == "Practitioner"_L1) {
        prescription->setPractitionerName(getPatientOrPractitionerName(resource["name"_L1].toObject()));
    }
}

void ElectronicPrescriptionService::fillPayingElectronicPrescriptionOrganization(
    const QJsonObject& organization, QSharedPointer<PayingElectronicPrescriptionOrganization>& result) const
{
    result = QSharedPointer<PayingElectronicPrescriptionOrganization>(
        new PayingElectronicPrescriptionOrganization(text(organization, "id"_L1), text(organization, "name"_L1)));
}

QString ElectronicPrescriptionService::getPatientOrPractitionerName(const QJsonObject& name) const
{
    const QJsonArray given = name["given"_L1].toArray();
    return name["family"_L1][0].toString() % u' ' % given.first().toString() % u' ' % given.last().toString();
}

void ElectronicPrescriptionService::fillMedicationPrescription(const QJsonObject& resource,
                                                               ElectronicPrescription& prescription) const
{
    prescription.setId(text(resource, "id"_L1));
    fillPrescribedMedicine(resource, prescription);
    for (const PrescriptionMember& member : prescriptionMembers) {
        member.apply(resource[member.name], prescription);
    }
}

void ElectronicPrescriptionService::fillPrescribedMedicine(const QJsonObject& resource,
                                                           ElectronicPrescription& prescription) const
{
    // A local reference: "#" and the id of a contained resource.
    const QString reference = text(resource["medication"_L1].toObject(), "reference"_L1);
    const QStringView prescribedId = QStringView(reference).mid(1);
    const QJsonArray medications = resource["contained"_L1].toArray();
    for (const auto& contained : medications) {
        const QJsonObject medication = contained.toObject();
        const bool isBrand = medication["isBrand"_L1].toBool();
        const bool isPrescribed = !isBrand && text(medication, "id"_L1) == prescribedId;
        // A coding of any system names the medicine, so that the last one stays.
        const QJsonArray codings = medication["code"_L1]["coding"_L1].toArray();
        for (const auto& element : codings) {
            const QJsonObject coding = element.toObject();
            const QString code = text(coding, "code"_L1);
            if (isBrand) {
                prescription.setTradeName(text(coding, "display"_L1));
                prescription.setTradeNameCode(code);
            } else {
                prescription.setInn(text(coding, "display"_L1));
                prescription.setInnCode(code);
            }
            if (isPrescribed) {
                prescription.setPrescribedByInn();
            }
            if (text(coding, "system"_L1) == dosageSystemId) {
                prescription.setDictCode(code);
            }
        }
    }
}
