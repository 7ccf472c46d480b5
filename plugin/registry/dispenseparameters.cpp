// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "centrounding.h"
#include "currenttime.h"
#include "goodsitem.h"
#include "positionoptions.h"
#include "registryuris.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

// Half a percent. A share below it counts as none.
constexpr double negligible = 0.005;

QString today()
{
    return CurrentTime::create()->current().toString(u"yyyy-MM-dd"_s);
}

QJsonObject reference(const QString& target)
{
    return {{"reference"_L1, target}};
}

QJsonObject prescriptionReference(const PositionOptions& options)
{
    return reference("MedicationPrescription/"_L1 + options.id());
}

QJsonObject amount(double value)
{
    return {{"value"_L1, value}, {"system"_L1, registryuris::currencies}, {"code"_L1, "BYN"_L1}};
}

QJsonObject parameter(QLatin1StringView name, const QJsonObject& resource)
{
    return {{"name"_L1, name}, {"resource"_L1, resource}};
}

QJsonObject claimOf(const PositionOptions& options, double sum, double fullPrice, const QString& date)
{
    const double patientShare = roundToCents(options.sumFactor());
    const double factor = roundToCents(1.0 - patientShare);
    const bool patientPaysNothing = std::abs(patientShare) < negligible;
    const double unitPrice = patientPaysNothing ? fullPrice : roundToCents(sum / patientShare);
    const double net = patientPaysNothing ? fullPrice : roundToCents(sum * factor / patientShare);

    const QJsonObject type{
        {"display"_L1, u"Электронный рецепт"_s}, {"system"_L1, registryuris::invoiceGroups}, {"code"_L1, "group"_L1}};
    const QJsonObject item{
        {"sequence"_L1, 1},
        {"type"_L1, type},
        {"service"_L1, QJsonObject{{"system"_L1, registryuris::services}, {"code"_L1, "2102"_L1}}},
        {"unitPrice"_L1, amount(unitPrice)},
        {"factor"_L1, factor},
        {"net"_L1, amount(net)},
    };
    return {
        {"resourceType"_L1, "Claim"_L1},
        {"type"_L1, "pharmacy"_L1},
        {"created"_L1, date},
        {"organization"_L1, reference("Organization/"_L1 + options.organizationId())},
        {"originalPrescription"_L1, prescriptionReference(options)},
        {"patient"_L1, reference(options.patientReference())},
        {"item"_L1, QJsonArray{item}},
    };
}

} // namespace

void ElectronicPrescriptionInterface::formMedicationDispense(const QSharedPointer<GoodsItem>& position,
                                                             QJsonDocument& document) const
{
    const PositionOptions options(*position);
    const QString date = today(); // asked for once: both resources are of the same day, at midnight too

    QJsonArray parameters{parameter("medicationDispense"_L1, medicationDispenseOf(options, date))};
    if (1.0 - options.sumFactor() > negligible) {
        const double fullPrice = roundToCents(position->getQuantity() * position->getTmcPrice());
        parameters.append(parameter("claim"_L1, claimOf(options, position->getSumb(), fullPrice, date)));
    }
    document = QJsonDocument({{"resourceType"_L1, "Parameters"_L1}, {"parameter"_L1, parameters}});
}

void ElectronicPrescriptionInterface::formMedicationDispenseResource(const QJsonDocument& options,
                                                                     QJsonObject& resource) const
{
    resource = medicationDispenseOf(PositionOptions(options), today());
}

void ElectronicPrescriptionInterface::formClaimResource(const QJsonDocument& options, double sum, double fullPrice,
                                                        QJsonObject& resource) const
{
    resource = claimOf(PositionOptions(options), sum, fullPrice, today());
}

void ElectronicPrescriptionInterface::formMedicationResource(const QJsonDocument& options, QJsonObject& resource) const
{
    QJsonObject code;
    formCoding(registryuris::dosageDictionary, PositionOptions(options).tradeNameCode(), code);
    resource = {
        {"resourceType"_L1, "Medication"_L1},
        {"id"_L1, "internalMedication"_L1},
        {"isBrand"_L1, true},
        {"code"_L1, code},
    };
}

QJsonObject ElectronicPrescriptionInterface::formLocationResource() const
{
    QJsonObject type;
    formCoding(registryuris::addressTypes, u"location"_s, type);
    const QJsonObject addressType{{"url"_L1, registryuris::addressType}, {"valueCodeableConcept"_L1, type}};
    return {
        {"resourceType"_L1, "Location"_L1},
        {"name"_L1, organizationName},
        {"address"_L1, QJsonObject{{"extension"_L1, QJsonArray{addressType}}, {"text"_L1, organizationAddress}}},
    };
}

void ElectronicPrescriptionInterface::formCoding(const QString& system, const QString& code, QJsonObject& target) const
{
    target["coding"_L1] = QJsonArray{QJsonObject{{"system"_L1, system}, {"code"_L1, code}}};
}

QJsonObject ElectronicPrescriptionInterface::medicationDispenseOf(const PositionOptions& options,
                                                                  const QString& date) const
{
    QJsonObject medication;
    formMedicationResource(options.toDocument(), medication);
    const QJsonObject finalDispense{
        {"url"_L1, registryuris::finalDispense},
        {"valueBoolean"_L1, options.isFinalDispense()},
    };
    return {
        {"resourceType"_L1, "MedicationDispense"_L1},
        {"extension"_L1, QJsonArray{finalDispense}},
        {"contained"_L1, QJsonArray{medication, formLocationResource()}},
        {"status"_L1, "completed"_L1},
        {"patient"_L1, reference(options.patientReference())},
        {"quantity"_L1, QJsonObject{{"value"_L1, roundToCents(options.doseQuantity())}}},
        {"authorizingPrescription"_L1, QJsonArray{prescriptionReference(options)}},
        {"medication"_L1, reference(u"#internalMedication"_s)},
        {"whenHandedOver"_L1, date},
    };
}
