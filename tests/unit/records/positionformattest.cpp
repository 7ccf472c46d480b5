// SPDX-License-Identifier: MIT
#include "positionformat.h"

#include <gtest/gtest.h>

namespace
{

// Saved receipts, the register's marks and the registry hold these names: none may change.
TEST(PositionFormat, names_areTheOnesOfSavedReceipts)
{
    EXPECT_EQ(positionformat::tag, QLatin1StringView("prescription"));

    EXPECT_EQ(positionformat::id, QLatin1StringView("id"));
    EXPECT_EQ(positionformat::tradeNameCode, QLatin1StringView("tradeNameCode"));
    EXPECT_EQ(positionformat::organizationId, QLatin1StringView("organizationId"));
    EXPECT_EQ(positionformat::sumFactor, QLatin1StringView("sumFactor"));
    EXPECT_EQ(positionformat::doseQuantity, QLatin1StringView("doseQuantity"));
    EXPECT_EQ(positionformat::finalDispense, QLatin1StringView("finalDispense"));
    EXPECT_EQ(positionformat::patientReference, QLatin1StringView("patientReference"));
    EXPECT_EQ(positionformat::patient, QLatin1StringView("patient"));
    EXPECT_EQ(positionformat::organization, QLatin1StringView("organization"));
    EXPECT_EQ(positionformat::serialNumber, QLatin1StringView("serialNumber"));

    EXPECT_EQ(positionformat::medicationDispenseId, QLatin1StringView("medicationDispenseId"));
    EXPECT_EQ(positionformat::status, QLatin1StringView("status"));
    EXPECT_EQ(positionformat::dispensed, QLatin1StringView("dispensed"));
    EXPECT_EQ(positionformat::canceled, QLatin1StringView("canceled"));
}

} // namespace
