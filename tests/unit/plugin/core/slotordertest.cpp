// SPDX-License-Identifier: MIT
#include "electronicprescriptionservice.h"
#include "vtableslot.h"

#include <gtest/gtest.h>

#include <cxxabi.h>

#include <type_traits>
#include <typeinfo>

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

/// Does not compile when the base is closed to derived classes, too.
struct Derived : Service {
    const DocumentWatcher& documentWatcher() const { return *this; }
};

// The watcher is empty and has no place of its own in the object, so its rank is read from the class's description
// (Itanium C++ ABI, 2.9.5).
TEST(ServiceBases, documentWatcher_isTheThirdAndOpenToDerivedClassesOnly)
{
    const auto* service = dynamic_cast<const abi::__vmi_class_type_info*>(&typeid(Service));
    ASSERT_NE(service, nullptr);
    ASSERT_EQ(service->__base_count, 3U);
    const std::type_info* const bases[] = {&typeid(BaseActivityListener), &typeid(BasicPlugin),
                                           &typeid(DocumentWatcher)};
    for (int rank = 0; rank < 3; ++rank) {
        EXPECT_EQ(*service->__base_info[rank].__base_type, *bases[rank]) << rank;
    }

    static_assert(std::is_convertible_v<Service*, BaseActivityListener*>);
    static_assert(std::is_convertible_v<Service*, BasicPlugin*>);
    static_assert(!std::is_convertible_v<Service*, DocumentWatcher*>);
}

} // namespace
