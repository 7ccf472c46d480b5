// SPDX-License-Identifier: MIT
#include "pharmacy.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// Nobody may make a file in the folder while it lives, not even root: this thread goes to the disk as somebody else.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString& path)
        : m_path(QFile::encodeName(path))
    {
        ::chmod(m_path.constData(), S_IRUSR | S_IXUSR | S_IRGRP | S_IXGRP | S_IROTH | S_IXOTH);
        if (::geteuid() == 0) {
            ::setfsuid(nobody);
        }
    }
    ~ReadOnlyFolder()
    {
        ::setfsuid(::geteuid());
        ::chmod(m_path.constData(), S_IRWXU);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    QByteArray m_path;
};

class SavingTest : public testing::Test
{
protected:
    /// The first position is registered and saved, the others are due.
    SavingTest()
    {
        pharmacy.order([](emulator::FaultScript& faults) {
            faults.answerStatus(emulator::Endpoint::DispenseRegistration, 503, emulator::Occasion::nth(2));
        });
        EXPECT_EQ(pharmacy.subtotal(), EContext::Stop);
        EXPECT_EQ(pharmacy.takeShown().size(), 1);
        former = pharmacy.savedDocument();
        EXPECT_EQ(former, pharmacy.documentAsJson());
    }

    /// The subtotal went on: both positions are registered, each failed save was told, and the former file stands
    /// alone.
    void expectRegisteredAndShownTwice()
    {
        for (const int position : everyPosition) {
            expectRegistered(pharmacy, position);
        }
        const auto shown = pharmacy.takeShown();
        ASSERT_EQ(shown.size(), 2);
        for (const auto& message : shown) {
            EXPECT_EQ(message.kind, 1);
            EXPECT_TRUE(message.text.contains(u"Документ не сохранён на диск, в силе прежняя запись"_s));
            EXPECT_TRUE(message.text.contains(pharmacy.dataFolder.path())) << message.text.toStdString();
        }
        EXPECT_EQ(pharmacy.savedDocument(), former);
        EXPECT_EQ(QDir(pharmacy.dataFolder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    Pharmacy pharmacy;
    QJsonObject former;
};

TEST_F(SavingTest, diskFullAfterRegistration_isShownTheFormerFileStandsAndTheNextSaveHoldsAll)
{
    {
        const SmallDisk smallDisk(512);
        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    }
    expectRegisteredAndShownTwice();

    EXPECT_EQ(pharmacy.cancellation(3), EContext::GoOn);
    EXPECT_TRUE(pharmacy.takeShown().isEmpty());
    EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
}

TEST_F(SavingTest, readOnlyFolderAfterRegistration_isShownAndTheFormerFileStands)
{
    {
        const ReadOnlyFolder readOnlyFolder(pharmacy.dataFolder.path());
        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    }
    expectRegisteredAndShownTwice();
}

TEST_F(SavingTest, diskFullAfterCancellation_isShownAndTheFormerFileStands)
{
    {
        const SmallDisk smallDisk(512);
        EXPECT_EQ(pharmacy.cancellation(1), EContext::GoOn);
    }
    expectCancelled(pharmacy, 1);
    EXPECT_EQ(pharmacy.takeShown().size(), 1);
    EXPECT_EQ(pharmacy.savedDocument(), former);
}

} // namespace
