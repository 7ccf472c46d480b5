// SPDX-License-Identifier: MIT
#include "dispensedocument.h"

#include "refusal.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QJsonObject onlyObject(const QJsonValue& array, RefusalCode code)
{
    demand(array.isArray() && array.toArray().size() == 1 && array.toArray().first().isObject(), code);
    return array.toArray().first().toObject();
}

/// The id in a reference to that type, such as "Organization/17".
QString referencedId(const QJsonValue& holder, const QString& type, RefusalCode code)
{
    const QString reference = holder.toObject().value(u"reference"_s).toString();
    const QString prefix = type + u'/';
    demand(reference.startsWith(prefix), code);
    return reference.mid(prefix.size());
}

QString patientOf(const QJsonObject& resource, RefusalCode code)
{
    const QJsonValue reference = resource.value(u"patient"_s).toObject().value(u"reference"_s);
    demand(reference.isString(), code);
    return reference.toString();
}

QDate day(const QJsonValue& value, RefusalCode code)
{
    const QDate date = QDate::fromString(value.toString(), u"yyyy-MM-dd"_s);
    demand(date.isValid(), code);
    return date;
}

double number(const QJsonValue& value, RefusalCode code)
{
    demand(value.isDouble(), code);
    return value.toDouble();
}

/// The resources of the parameters by name; a name may occur once.
QHash<QString, QJsonObject> parametersIn(const QByteArray& body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    demand(document.isObject(), RefusalCode::DocumentNoObject);
    const QJsonObject root = document.object();
    demand(root.value(u"resourceType"_s) == "Parameters"_L1, RefusalCode::DocumentNoParametersResource);
    demand(root.value(u"parameter"_s).isArray(), RefusalCode::DocumentWithoutParameters);
    QHash<QString, QJsonObject> resources;
    const QJsonArray parameters = root.value(u"parameter"_s).toArray();
    for (const auto value : parameters) {
        const QJsonObject parameter = value.toObject();
        const QString name = parameter.value(u"name"_s).toString();
        demand(name == "medicationDispense"_L1 || name == "claim"_L1, RefusalCode::DocumentParameterUnknown, {name});
        demand(!resources.contains(name), RefusalCode::DocumentParameterTwice, {name});
        resources.insert(name, parameter.value(u"resource"_s).toObject());
    }
    return resources;
}

QJsonObject contained(const QJsonObject& resource, const QString& type)
{
    const QJsonArray all = resource.value(u"contained"_s).toArray();
    for (const auto value : all) {
        if (value.toObject().value(u"resourceType"_s) == type) {
            return value.toObject();
        }
    }
    return {};
}

QString medicationCodeOf(const QJsonObject& resource)
{
    const QJsonObject medication = contained(resource, u"Medication"_s);
    demand(!medication.isEmpty(), RefusalCode::MedicationMissing);
    const QString reference = resource.value(u"medication"_s).toObject().value(u"reference"_s).toString();
    demand(reference == u'#' + medication.value(u"id"_s).toString(), RefusalCode::MedicationReferenceWrong);
    demand(medication.value(u"isBrand"_s).isBool(), RefusalCode::MedicationBrandMissing);
    const QJsonObject coding =
        onlyObject(medication.value(u"code"_s).toObject().value(u"coding"_s), RefusalCode::MedicationCodeNotOne);
    demand(coding.value(u"code"_s).isString(), RefusalCode::MedicationCodeNoText);
    return coding.value(u"code"_s).toString();
}

bool isFinalDispense(const QJsonObject& resource)
{
    const QJsonArray extensions = resource.value(u"extension"_s).toArray();
    for (const auto value : extensions) {
        const QJsonObject extension = value.toObject();
        if (extension.value(u"url"_s).toString().endsWith("by-finalDispense"_L1) &&
            extension.value(u"valueBoolean"_s).isBool()) {
            return extension.value(u"valueBoolean"_s).toBool();
        }
    }
    throw Refusal(RefusalCode::FinalMissing);
}

void readLocation(const QJsonObject& resource, DispenseDocument& document)
{
    const QJsonObject location = contained(resource, u"Location"_s);
    demand(!location.isEmpty(), RefusalCode::LocationMissing);
    const QJsonValue name = location.value(u"name"_s);
    const QJsonValue address = location.value(u"address"_s).toObject().value(u"text"_s);
    demand(name.isString() && address.isString(), RefusalCode::LocationIncomplete);
    document.pharmacyName = name.toString();
    document.pharmacyAddress = address.toString();
}

Claim claimIn(const QJsonObject& resource)
{
    demand(resource.value(u"resourceType"_s) == "Claim"_L1, RefusalCode::ClaimMissing);
    demand(resource.value(u"type"_s) == "pharmacy"_L1, RefusalCode::ClaimTypeWrong);
    day(resource.value(u"created"_s), RefusalCode::ClaimDateMissing);
    Claim claim;
    claim.payerId = referencedId(resource.value(u"organization"_s), u"Organization"_s, RefusalCode::ClaimPayerMissing);
    claim.prescriptionId = referencedId(resource.value(u"originalPrescription"_s), u"MedicationPrescription"_s,
                                        RefusalCode::ClaimPrescriptionMissing);
    claim.patientReference = patientOf(resource, RefusalCode::ClaimPatientMissing);

    const QJsonObject item = onlyObject(resource.value(u"item"_s), RefusalCode::ClaimItemNotOne);
    demand(item.value(u"sequence"_s).toInt() == 1, RefusalCode::ClaimItemNumberWrong);
    demand(item.value(u"type"_s).toObject().value(u"code"_s) == "group"_L1, RefusalCode::ClaimItemTypeUnknown);
    demand(item.value(u"service"_s).toObject().value(u"code"_s) == "2102"_L1, RefusalCode::ClaimServiceUnknown);
    const QJsonObject unitPrice = item.value(u"unitPrice"_s).toObject();
    const QJsonObject net = item.value(u"net"_s).toObject();
    claim.unitPrice = number(unitPrice.value(u"value"_s), RefusalCode::ClaimPriceMissing);
    claim.factor = number(item.value(u"factor"_s), RefusalCode::ClaimFactorMissing);
    claim.net = number(net.value(u"value"_s), RefusalCode::ClaimNetMissing);
    claim.unitPriceCurrency = unitPrice.value(u"code"_s).toString();
    claim.netCurrency = net.value(u"code"_s).toString();
    return claim;
}
} // namespace

DispenseDocument DispenseDocument::read(const QByteArray& body)
{
    const QHash<QString, QJsonObject> resources = parametersIn(body);
    DispenseDocument document;
    document.dispenseResource = resources.value(u"medicationDispense"_s);
    document.claimResource = resources.value(u"claim"_s);

    const QJsonObject& dispense = document.dispenseResource;
    demand(dispense.value(u"resourceType"_s) == "MedicationDispense"_L1, RefusalCode::DispenseMissing);
    demand(dispense.value(u"status"_s) == "completed"_L1, RefusalCode::DispenseNotCompleted);
    const QJsonObject authorizing =
        onlyObject(dispense.value(u"authorizingPrescription"_s), RefusalCode::PrescriptionNotOne);
    document.prescriptionId = referencedId(authorizing, u"MedicationPrescription"_s, RefusalCode::PrescriptionMissing);
    document.patientReference = patientOf(dispense, RefusalCode::PatientMissing);
    document.medicationCode = medicationCodeOf(dispense);
    readLocation(dispense, document);
    document.isFinal = isFinalDispense(dispense);
    document.quantity =
        number(dispense.value(u"quantity"_s).toObject().value(u"value"_s), RefusalCode::QuantityMissing);
    document.handedOver = day(dispense.value(u"whenHandedOver"_s), RefusalCode::HandedOverMissing);
    if (resources.contains(u"claim"_s)) {
        document.claim = claimIn(document.claimResource);
    }
    return document;
}
} // namespace emulator
