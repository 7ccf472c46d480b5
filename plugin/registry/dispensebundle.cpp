// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "centrounding.h"
#include "currenttime.h"
#include "goodsitem.h"
#include "positionformat.h"
#include "prescriptionposition.h"
#include "registryuris.h"

#include <cmath>

namespace
{

// Half a cent, and half a percent: a share below it counts as none.
constexpr double negligible = 0.005;

QString today()
{
    return CurrentTime::create()->current().toString("yyyy-MM-dd");
}

QString prescriptionReference(const QJsonDocument& options)
{
    return "MedicationPrescription/" + options[positionformat::id].toString();
}

QJsonObject amount(double value)
{
    return {{"value", value}, {"system", registryuris::currencies}, {"code", "BYN"}};
}

} // namespace

void ElectronicPrescriptionInterface::formMedicationDispense(const QSharedPointer<GoodsItem>& position,
                                                             QJsonDocument& document) const
{
    const QJsonDocument options(readPositionOptions(*position));

    QJsonObject dispense;
    formMedicationDispenseResource(options, dispense);
    QJsonArray parameters{QJsonObject{{"name", "medicationDispense"}, {"resource", dispense}}};

    if (1.0 - options[positionformat::sumFactor].toDouble() > negligible) {
        const double fullPrice = roundToCents(position->getQuantity() * position->getTmcPrice());
        QJsonObject claim;
        formClaimResource(options, position->getSumb(), fullPrice, claim);
        parameters.append(QJsonObject{{"name", "claim"}, {"resource", claim}});
    }

    document = QJsonDocument(QJsonObject{{"resourceType", "Parameters"}, {"parameter", parameters}});
}

void ElectronicPrescriptionInterface::formMedicationDispenseResource(const QJsonDocument& options,
                                                                     QJsonObject& resource) const
{
    QJsonObject medication;
    formMedicationResource(options, medication);
    const QJsonObject finalDispense{
        {"url", registryuris::finalDispense},
        {"valueBoolean", options[positionformat::finalDispense].toBool()},
    };
    const double doses = roundToCents(options[positionformat::doseQuantity].toDouble());

    resource = {
        {"resourceType", "MedicationDispense"},
        {"extension", QJsonArray{finalDispense}},
        {"contained", QJsonArray{medication, formLocationResource()}},
        {"status", "completed"},
        {"patient", QJsonObject{{"reference", options[positionformat::patientReference].toString()}}},
        {"quantity", QJsonObject{{"value", doses}}},
        {"authorizingPrescription", QJsonArray{QJsonObject{{"reference", prescriptionReference(options)}}}},
        {"medication", QJsonObject{{"reference", "#internalMedication"}}},
        {"whenHandedOver", today()},
    };
}

void ElectronicPrescriptionInterface::formClaimResource(const QJsonDocument& options, double sum, double fullPrice,
                                                        QJsonObject& resource) const
{
    const double patientShare = roundToCents(options[positionformat::sumFactor].toDouble());
    const double factor = roundToCents(1.0 - patientShare);
    const bool patientPaysNothing = std::abs(patientShare) < negligible;
    const double unitPrice = patientPaysNothing ? fullPrice : roundToCents(sum / patientShare);
    const double net = patientPaysNothing ? fullPrice : roundToCents(sum * factor / patientShare);

    const QJsonObject item{
        {"sequence", 1},
        {"type",
         QJsonObject{{"display", "Электронный рецепт"}, {"system", registryuris::invoiceGroups}, {"code", "group"}}},
        {"service", QJsonObject{{"system", registryuris::services}, {"code", "2102"}}},
        {"unitPrice", amount(unitPrice)},
        {"factor", factor},
        {"net", amount(net)},
    };
    resource = {
        {"resourceType", "Claim"},
        {"type", "pharmacy"},
        {"created", today()},
        {"organization",
         QJsonObject{{"reference", "Organization/" + options[positionformat::organizationId].toString()}}},
        {"originalPrescription", QJsonObject{{"reference", prescriptionReference(options)}}},
        {"patient", QJsonObject{{"reference", options[positionformat::patientReference].toString()}}},
        {"item", QJsonArray{item}},
    };
}

void ElectronicPrescriptionInterface::formMedicationResource(const QJsonDocument& options, QJsonObject& resource) const
{
    QJsonObject code;
    formCoding(registryuris::dosageDictionary, options[positionformat::tradeNameCode].toString(), code);
    resource = {
        {"resourceType", "Medication"},
        {"id", "internalMedication"},
        {"isBrand", true},
        {"code", code},
    };
}

QJsonObject ElectronicPrescriptionInterface::formLocationResource() const
{
    QJsonObject type;
    formCoding(registryuris::addressTypes, "location", type);
    const QJsonObject addressType{{"url", registryuris::addressType}, {"valueCodeableConcept", type}};
    return {
        {"resourceType", "Location"},
        {"name", organizationName},
        {"address", QJsonObject{{"extension", QJsonArray{addressType}}, {"text", organizationAddress}}},
    };
}

void ElectronicPrescriptionInterface::formCoding(const QString& system, const QString& code, QJsonObject& target) const
{
    target["coding"] = QJsonArray{QJsonObject{{"system", system}, {"code", code}}};
}
