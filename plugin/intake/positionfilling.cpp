// SPDX-License-Identifier: MIT
#include "centrounding.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "loyaltysystemlayer.h"
#include "patient.h"
#include "positionoptions.h"
#include "singleton.h"

namespace
{

// Half a kopeck, and half a percent of the price. What is not larger counts as nothing.
constexpr double negligible = 0.005;

} // namespace

void ElectronicPrescriptionService::fillElectronicPrescriptionDataForPosition(
    const QSharedPointer<ElectronicPrescription>& prescription, const QSharedPointer<GoodsItem>& position,
    bool finalDispense, double doses) const
{
    // Only active prescriptions can be served, so it is always their patient.
    const auto patient = patientCache.value(activeStatus);
    PositionOptions(*prescription, patient ? patient->getName() : QString(), finalDispense, doses).mark(*position);
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
