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

} // namespace

RegistryDispense::Likeness RegistryDispense::likeness(const DispenseFacts& asked) const
{
    const bool isOfOtherDay = !facts.day.isEmpty() && !asked.day.isEmpty() && facts.day != asked.day;
    const bool hasOtherDoses = facts.doses > 0 && facts.doses != asked.doses;
    if (isOfOtherDay || hasOtherDoses) {
        return Likeness::None;
    }
    const bool isWhole = !id.isEmpty() && !facts.day.isEmpty() && facts.day == asked.day && facts.doses > 0;
    return isWhole && !facts.pharmacy.isEmpty() && facts.isOfPharmacy(asked) ? Likeness::Certain : Likeness::Possible;
}

QList<RegistryDispense> dispensesIn(const QJsonObject& prescription)
{
    QList<RegistryDispense> dispenses;
    const QList<QJsonObject> resources = resourcesIn(prescription, "MedicationDispense"_L1);
    for (const QJsonObject& resource : resources) {
        if (resource["status"_L1].toString() != "entered-in-error"_L1) {
            dispenses.append(
                {resource["id"_L1].toString(), DispenseFacts::of(resource), resource["whenHandedOver"_L1].toString()});
        }
    }
    return dispenses;
}

QJsonObject prescriptionIn(const QJsonObject& prescription)
{
    return resourcesIn(prescription, "MedicationPrescription"_L1).value(0);
}
