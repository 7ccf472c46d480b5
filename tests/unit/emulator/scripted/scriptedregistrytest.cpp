// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include "emulatorerror.h"

using namespace Qt::StringLiterals;

namespace
{
class ScriptedRegistryTest : public EmulatorTest
{
};
} // namespace

TEST_F(ScriptedRegistryTest, reset_beginsAgainWithTheSeed)
{
    const auto headers = admitted();
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    m_emulator->faults().neverAnswer(emulator::Endpoint::Any);
    m_emulator->reset();
    EXPECT_EQ(m_emulator->store().dispenses().size(), 2);
    EXPECT_TRUE(m_emulator->faults().pending().isEmpty());
    EXPECT_TRUE(m_emulator->journal().entries().isEmpty());
    const RawAnswer answer = ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers);
    expectRefusal(answer, emulator::RefusalCode::TokenExpired);
}

TEST_F(ScriptedRegistryTest, seedWithMistake_leavesStateAsItWas)
{
    EXPECT_THROW(m_emulator->seed("{\"patients\": 1}"), emulator::EmulatorError);
    m_emulator->reset();
    EXPECT_EQ(m_emulator->store().prescriptionsOfCard(u"1100"_s).size(), 6);
}
