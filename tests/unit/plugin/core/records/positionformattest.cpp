// SPDX-License-Identifier: MIT
#include "positionformat.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

// Saved receipts, the register's marks and the registry hold these names: none may change.
TEST(PositionFormat, names_areTheOnesOfSavedReceipts)
{
    EXPECT_EQ(positionformat::tag, "prescription"_L1);

    EXPECT_EQ(positionformat::id, "id"_L1);
    EXPECT_EQ(positionformat::tradeNameCode, "tradeNameCode"_L1);
    EXPECT_EQ(positionformat::organizationId, "organizationId"_L1);
    EXPECT_EQ(positionformat::sumFactor, "sumFactor"_L1);
    EXPECT_EQ(positionformat::doseQuantity, "doseQuantity"_L1);
    EXPECT_EQ(positionformat::finalDispense, "finalDispense"_L1);
    EXPECT_EQ(positionformat::patientReference, "patientReference"_L1);
    EXPECT_EQ(positionformat::patient, "patient"_L1);
    EXPECT_EQ(positionformat::organization, "organization"_L1);
    EXPECT_EQ(positionformat::serialNumber, "serialNumber"_L1);

    EXPECT_EQ(positionformat::medicationDispenseId, "medicationDispenseId"_L1);
    EXPECT_EQ(positionformat::status, "status"_L1);
    EXPECT_EQ(positionformat::dispensed, "dispensed"_L1);
    EXPECT_EQ(positionformat::canceled, "canceled"_L1);
}

} // namespace
