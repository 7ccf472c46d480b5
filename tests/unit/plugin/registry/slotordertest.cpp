// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"
#include "vtableslot.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

using Interface = ElectronicPrescriptionInterface;

/// The first slot after the interface's own members.
struct Continued : Interface {
    virtual void next() {}
};

// Doubles are compiled against the order of the virtual members. The destructor takes the first two slots.
TEST(InterfaceSlots, virtualOperations_areInTheirOrderAndThereAreNoOthers)
{
    EXPECT_EQ(virtualSlot(&Interface::getElectronicPrescriptionsByCardNumber), 2);
    EXPECT_EQ(virtualSlot(&Interface::sendMedicationDispense), 3);
    EXPECT_EQ(virtualSlot(&Interface::sendCancelMedicationDispense), 4);
    EXPECT_EQ(virtualSlot(&Interface::getAuthorizationToken), 5);
    EXPECT_EQ(virtualSlot(&Interface::sendGetRequest), 6);
    EXPECT_EQ(virtualSlot(&Interface::sendPostRequest), 7);
    EXPECT_EQ(virtualSlot(&Interface::getRequestResult), 8);
    EXPECT_EQ(virtualSlot(&Interface::checkRequestResultStatus), 9);
    EXPECT_EQ(virtualSlot(&Continued::next), 10);
    EXPECT_TRUE(std::has_virtual_destructor_v<Interface>);
}

TEST(InterfaceSlots, otherOperations_areNotVirtual)
{
    EXPECT_EQ(virtualSlot(&Interface::formUrl), -1);
    EXPECT_EQ(virtualSlot(&Interface::formHeaders), -1);
    EXPECT_EQ(virtualSlot(&Interface::addOaisTokenToHeaders), -1);
    EXPECT_EQ(virtualSlot(&Interface::addAcceptToHeaders), -1);
    EXPECT_EQ(virtualSlot(&Interface::formTokenRequest), -1);
    EXPECT_EQ(virtualSlot(&Interface::formMedicationDispense), -1);
    EXPECT_EQ(virtualSlot(&Interface::formMedicationDispenseResource), -1);
    EXPECT_EQ(virtualSlot(&Interface::formClaimResource), -1);
    EXPECT_EQ(virtualSlot(&Interface::formMedicationResource), -1);
    EXPECT_EQ(virtualSlot(&Interface::formLocationResource), -1);
    EXPECT_EQ(virtualSlot(&Interface::formCoding), -1);
}

} // namespace
