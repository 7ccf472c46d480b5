// SPDX-License-Identifier: MIT
#include "emulatorerror.h"
#include "emulatortest.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
class PersistenceTest : public EmulatorTest
{
protected:
    /// Starts again with a state in the folder's file.
    void restart()
    {
        m_emulator.reset();
        emulator::EmulatorSettings settings;
        settings.clock = [this] { return m_now; };
        settings.dataFile = m_folder.filePath(u"registry.sqlite"_s);
        m_emulator = std::make_unique<emulator::RegistryEmulator>(settings);
        m_emulator->start();
    }

    QTemporaryDir m_folder;
};
} // namespace

TEST_F(PersistenceTest, dispensesAndRules_outliveTheEmulator)
{
    restart();
    EXPECT_TRUE(m_emulator->store().isEmpty());
    m_emulator->seed(seedJson());
    EXPECT_FALSE(m_emulator->store().isEmpty());
    auto rules = m_emulator->store().rules();
    rules.tokenLifetime = 77;
    rules.showDispenseIds = false;
    rules.showCancelledDispenses = true;
    m_emulator->store().setRules(rules);
    const QString id = idOfDispense(registerDispense(halfPriceDispense()));
    ASSERT_FALSE(id.isEmpty());

    restart();
    EXPECT_FALSE(m_emulator->store().isEmpty());
    const auto dispense = m_emulator->store().dispense(id);
    ASSERT_TRUE(dispense.has_value());
    EXPECT_EQ(dispense->quantity, 10);
    EXPECT_FALSE(dispense->claim.isEmpty());
    EXPECT_EQ(dispense->pharmacyName, u"Аптека"_s);
    EXPECT_EQ(dispense->pharmacyAddress, u"Улица"_s);
    EXPECT_EQ(m_emulator->store().rules().tokenLifetime, 77);
    EXPECT_FALSE(m_emulator->store().rules().showDispenseIds);
    EXPECT_TRUE(m_emulator->store().rules().showPharmacies);
    EXPECT_TRUE(m_emulator->store().rules().showCancelledDispenses);
    EXPECT_EQ(cancelDispense(id.toUtf8()).status, 200);
}

TEST_F(PersistenceTest, token_doesNotOutliveTheEmulator)
{
    restart();
    m_emulator->seed(seedJson());
    const auto headers = admitted();
    restart();
    EXPECT_EQ(ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers).status, 401);
}

TEST_F(PersistenceTest, folderAsDataFile_isReported)
{
    emulator::EmulatorSettings settings;
    settings.dataFile = m_folder.path();
    EXPECT_THROW(emulator::RegistryEmulator registry(settings), emulator::EmulatorError);
}
