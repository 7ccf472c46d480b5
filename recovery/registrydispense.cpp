// SPDX-License-Identifier: MIT
#include "registrydispense.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace
{

QList<QJsonObject> resourcesIn(const QJsonObject& bundle, QLatin1StringView type)
{
    QList<QJsonObject> resources;
    const QJsonArray entries = bundle["entry"_L1].toArray();
    for (const auto& entry : entries) {
        const QJsonObject resource = entry.toObject()["resource"_L1].toObject();
        if (resource["resourceType"_L1].toString() == type) {
            resources.append(resource);
        }
    }
    return resources;
}

bool differs(const QString& shown, const QString& asked)
{
    return !shown.isEmpty() && shown != asked;
}

} // namespace

RegistryDispense::Likeness RegistryDispense::likeness(const DispenseFacts& asked) const
{
    if (facts == asked && !id.isEmpty() && !facts.pharmacy.isEmpty()) {
        return Likeness::Certain;
    }
    const bool differsSomewhere = differs(facts.day, asked.day) || (facts.doses > 0 && facts.doses != asked.doses) ||
                                  differs(facts.pharmacy, asked.pharmacy) || differs(facts.address, asked.address);
    return differsSomewhere ? Likeness::None : Likeness::Possible;
}

QList<RegistryDispense> dispensesIn(const QJsonObject& prescription)
{
    QList<RegistryDispense> dispenses;
    const QList<QJsonObject> resources = resourcesIn(prescription, "MedicationDispense"_L1);
    for (const QJsonObject& resource : resources) {
        if (resource["status"_L1].toString() != "entered-in-error"_L1) {
            dispenses.append({resource["id"_L1].toString(), DispenseFacts::of(resource)});
        }
    }
    return dispenses;
}

QString prescriptionIdIn(const QJsonObject& prescription)
{
    return resourcesIn(prescription, "MedicationPrescription"_L1).value(0)["id"_L1].toString();
}
