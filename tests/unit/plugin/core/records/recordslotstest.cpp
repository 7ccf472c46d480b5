// SPDX-License-Identifier: MIT
#include "electronicprescription.h"
#include "patient.h"
#include "payingelectronicprescriptionorganization.h"
#include "vtableslot.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

// Doubles are compiled against the order of the virtual members. The destructor takes the first two slots.

/// The first slot after the record's own members.
template <typename Record>
struct Continued : Record {
    virtual void next() {}
};

TEST(RecordSlots, electronicPrescription_hasItsAccessorsInOrderAndNoOthers)
{
    using Record = ElectronicPrescription;
    const std::ptrdiff_t positions[] = {
        virtualSlot(&Record::getId),
        virtualSlot(&Record::setId),
        virtualSlot(&Record::getInn),
        virtualSlot(&Record::setInn),
        virtualSlot(&Record::getInnCode),
        virtualSlot(&Record::setInnCode),
        virtualSlot(&Record::getTradeName),
        virtualSlot(&Record::setTradeName),
        virtualSlot(&Record::getTradeNameCode),
        virtualSlot(&Record::setTradeNameCode),
        virtualSlot(&Record::isPrescribedByInn),
        virtualSlot(&Record::setPrescribedByInn),
        virtualSlot(&Record::getDoseQuantity),
        virtualSlot(&Record::setDoseQuantity),
        virtualSlot(&Record::getDispensedDoseQuantity),
        virtualSlot(&Record::addDispensedDoseQuantity),
        virtualSlot(&Record::getPrescriptionDate),
        virtualSlot(&Record::setPrescriptionDate),
        virtualSlot(&Record::getExpirationDate),
        virtualSlot(&Record::setExpirationDate),
        virtualSlot(&Record::hasDigitalSignature),
        virtualSlot(&Record::setDigitalSignature),
        virtualSlot(&Record::getInstructions),
        virtualSlot(&Record::setInstructions),
        virtualSlot(&Record::getPayByPatientSumFactor),
        virtualSlot(&Record::setPayByPatientSumFactor),
        virtualSlot(&Record::getDiscountPercent),
        virtualSlot(&Record::getPayingElectronicPrescriptionOrganization),
        virtualSlot(&Record::setPayingElectronicPrescriptionOrganization),
        virtualSlot(&Record::getMedicationDispenseDates),
        virtualSlot(&Record::addMedicationDispenseDate),
        virtualSlot(&Record::getPatientReference),
        virtualSlot(&Record::setPatientReference),
        virtualSlot(&Record::getPractitionerName),
        virtualSlot(&Record::setPractitionerName),
        virtualSlot(&Record::getSerialNumber),
        virtualSlot(&Record::setSerialNumber),
        virtualSlot(&Record::setDictName),
        virtualSlot(&Record::getDictName),
        virtualSlot(&Record::setDictCode),
        virtualSlot(&Record::getDictCode),
        virtualSlot(&Continued<Record>::next),
    };
    std::ptrdiff_t expected = 2;
    for (const std::ptrdiff_t slot : positions) {
        EXPECT_EQ(slot, expected++);
    }
    EXPECT_TRUE(std::has_virtual_destructor_v<Record>);
}

TEST(RecordSlots, patient_hasItsGettersInOrderAndNoOthers)
{
    EXPECT_EQ(virtualSlot(&Patient::getName), 2);
    EXPECT_EQ(virtualSlot(&Patient::getBirthday), 3);
    EXPECT_EQ(virtualSlot(&Continued<Patient>::next), 4);
    EXPECT_TRUE(std::has_virtual_destructor_v<Patient>);
}

TEST(RecordSlots, payingOrganization_hasItsGettersInOrderAndNoOthers)
{
    using Record = PayingElectronicPrescriptionOrganization;
    EXPECT_EQ(virtualSlot(&Record::getId), 2);
    EXPECT_EQ(virtualSlot(&Record::getName), 3);
    EXPECT_EQ(virtualSlot(&Continued<Record>::next), 4);
    EXPECT_TRUE(std::has_virtual_destructor_v<Record>);
}

} // namespace
