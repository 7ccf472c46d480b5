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

/// No file can be made in the folder while it lives, by root either: this thread uses the disk as another user.
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
        EXPECT_EQ(pharmacy.takeMessages().size(), 1);
        former = pharmacy.savedDocument();
        EXPECT_EQ(former, pharmacy.documentAsJson());
    }

    /// All positions are registered, the cashier got a message for each of the two failed saves, and only the former
    /// file is there.
    void expectRegisteredAndTwoMessages()
    {
        for (const int position : everyPosition) {
            expectRegistered(pharmacy, position);
        }
        const auto shown = pharmacy.takeMessages();
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

TEST_F(SavingTest, diskFullAfterRegistration_isShownAndTheFormerFileStaysUntilTheNextSave)
{
    {
        const SmallDisk smallDisk(512);
        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    }
    expectRegisteredAndTwoMessages();

    EXPECT_EQ(pharmacy.cancelPosition(3), EContext::GoOn);
    EXPECT_TRUE(pharmacy.takeMessages().isEmpty());
    EXPECT_EQ(pharmacy.savedDocument(), pharmacy.documentAsJson());
}

TEST_F(SavingTest, readOnlyFolderAfterRegistration_isShownAndTheFormerFileStays)
{
    {
        const ReadOnlyFolder readOnlyFolder(pharmacy.dataFolder.path());
        EXPECT_EQ(pharmacy.subtotal(), EContext::GoOn);
    }
    expectRegisteredAndTwoMessages();
}

TEST_F(SavingTest, diskFullAfterCancellation_isShownAndTheFormerFileStays)
{
    {
        const SmallDisk smallDisk(512);
        EXPECT_EQ(pharmacy.cancelPosition(1), EContext::GoOn);
    }
    expectCancelled(pharmacy, 1);
    EXPECT_EQ(pharmacy.takeMessages().size(), 1);
    EXPECT_EQ(pharmacy.savedDocument(), former);
}

} // namespace
