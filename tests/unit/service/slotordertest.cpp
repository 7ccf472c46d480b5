// SPDX-License-Identifier: MIT
#include "electronicprescriptionservice.h"
#include "vtableslot.h"

#include <gtest/gtest.h>

namespace
{

using Service = ElectronicPrescriptionService;
using Prescriptions = Service::Prescriptions;

/// Reaches the last virtual member of QObject.
class ObjectsEnd : public QObject
{
public:
    static auto slot() { return virtualSlot(&ObjectsEnd::disconnectNotify); }
};

/// The first slot after the service's own members.
struct Continued : Service {
    virtual void next() {}
};

// Doubles are compiled against the order of these members.
TEST(ServiceSlots, virtualMembers_followQObjectInTheirOrderAndThereAreNoOthers)
{
    using WithStatus = void (Service::*)(const QString&, Prescriptions&) const;
    using ListOnly = void (Service::*)(Prescriptions&) const;
    const auto first = ObjectsEnd::slot() + 1;

    EXPECT_EQ(virtualSlot(&Service::handleEvent), first);
    EXPECT_EQ(virtualSlot(&Service::init), first + 1);
    EXPECT_EQ(virtualSlot(&Service::getElectronicPrescriptionsByCardNumber), first + 2);
    EXPECT_EQ(virtualSlot(&Service::fillDictionaryName), first + 3);
    EXPECT_EQ(virtualSlot(static_cast<WithStatus>(&Service::getUnprocessedElectronicPrescriptions)), first + 4);
    EXPECT_EQ(virtualSlot(static_cast<ListOnly>(&Service::getUnprocessedElectronicPrescriptions)), first + 5);
    EXPECT_EQ(virtualSlot(&Service::sendStartEvent), first + 6);
    EXPECT_EQ(virtualSlot(&Service::sendStopEvent), first + 7);
    EXPECT_EQ(virtualSlot(&Service::processElectronicPrescriptions), first + 8);
    EXPECT_EQ(virtualSlot(&Service::selectMedicineForElectronicPrescription), first + 9);
    EXPECT_EQ(virtualSlot(&Service::inputDispensedDoseQuantity), first + 10);
    EXPECT_EQ(virtualSlot(&Service::addSelectedMedicine), first + 11);
    EXPECT_EQ(virtualSlot(&Service::clear), first + 12);
    EXPECT_EQ(virtualSlot(&Service::cancelElectronicPrescription), first + 13);
    EXPECT_EQ(virtualSlot(&Service::hasPrescriptions), first + 14);
    EXPECT_EQ(virtualSlot(&Continued::next), first + 15) << "there are no others";
}

TEST(ServiceSlots, otherMembers_areNotVirtual)
{
    EXPECT_EQ(virtualSlot(&Service::processElectronicPrescriptionsByAction), -1);
    EXPECT_EQ(virtualSlot(&Service::dispenseElectronicPrescriptions), -1);
    EXPECT_EQ(virtualSlot(&Service::beforeSubtotal), -1);
    EXPECT_EQ(virtualSlot(&Service::beforeStornoAll), -1);
    EXPECT_EQ(virtualSlot(&Service::cancelElectronicPrescriptions), -1);
    EXPECT_EQ(virtualSlot(&Service::cancelElectronicPrescriptionByAction), -1);
    EXPECT_EQ(virtualSlot(&Service::fillPatient), -1);
    EXPECT_EQ(virtualSlot(&Service::fillElectronicPrescription), -1);
    EXPECT_EQ(virtualSlot(&Service::fillPayingElectronicPrescriptionOrganization), -1);
    EXPECT_EQ(virtualSlot(&Service::getPatientOrPractitionerName), -1);
    EXPECT_EQ(virtualSlot(&Service::fillElectronicPrescriptionDataForPosition), -1);
    EXPECT_EQ(virtualSlot(&Service::setPriceForPosition), -1);
}

} // namespace
