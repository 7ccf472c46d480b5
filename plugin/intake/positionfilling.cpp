// SPDX-License-Identifier: MIT
#include "centrounding.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "loyaltysystemlayer.h"
#include "patient.h"
#include "payingelectronicprescriptionorganization.h"
#include "positionformat.h"
#include "prescriptionposition.h"
#include "singleton.h"

namespace
{

// Half a kopeck, and half a percent of a percent: what is no larger counts as nothing.
constexpr double negligible = 0.005;

} // namespace

void ElectronicPrescriptionService::fillElectronicPrescriptionDataForPosition(
    const QSharedPointer<ElectronicPrescription>& prescription, const QSharedPointer<GoodsItem>& position,
    bool finalDispense, double doses) const
{
    const auto organization = prescription->getPayingElectronicPrescriptionOrganization();
    // Only active prescriptions are served, so theirs is the patient, whatever status the list was asked for under.
    const auto patient = patientCache.value(activeStatus);

    writePositionOptions(*position,
                         {
                             {positionformat::id, prescription->getId()},
                             {positionformat::tradeNameCode, prescription->getTradeNameCode()},
                             {positionformat::organizationId, organization ? organization->getId() : QString()},
                             {positionformat::sumFactor, prescription->getPayByPatientSumFactor()},
                             {positionformat::doseQuantity, doses},
                             {positionformat::finalDispense, finalDispense},
                             {positionformat::patientReference, prescription->getPatientReference()},
                             {positionformat::patient, patient ? patient->getName() : QString()},
                             {positionformat::organization, organization ? organization->getName() : QString()},
                             {positionformat::serialNumber, prescription->getSerialNumber()},
                         });
    position->setSoftCheckId(prescription->getId());
    position->setTag(positionformat::tag);
}

void ElectronicPrescriptionService::setPriceForPosition(const QSharedPointer<ElectronicPrescription>& prescription,
                                                        const QSharedPointer<GoodsItem>& position) const
{
    const double patientShare = prescription->getPayByPatientSumFactor();
    if (1.0 - patientShare <= negligible) {
        return;
    }

    const double benefitPrice = roundToCents(patientShare * position->getPrice());
    const double lowestPrice = position->getMinRetailPrice();
    const bool belowLowest = lowestPrice > negligible && lowestPrice - benefitPrice > negligible;
    position->setPrice(belowLowest ? lowestPrice : benefitPrice);
    Singleton<LoyaltySystemLayer>::get()->recalculate(getDocument());
}
