// SPDX-License-Identifier: MIT
// The disk becomes full, or the data folder read-only, while the register works. The files stay as they were, and the
// cashier gets a message.

#include "cashiersteps.h"
#include "pharmacy.h"

#include <QFile>

#include <sys/stat.h>

namespace
{

const char* const notSaved = "не сохранён на диск, в силе прежняя запись";

class Disk : public Pharmacy
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }

    /// A step that waits until the test has changed the disk.
    ///
    /// @param when names the change
    static QByteArray changeOfTheDisk(const QByteArray& when)
    {
        return R"({"say": ")" + when + R"("}, {"document": {"changed": true}, "file": ")" + when +
               R"(.json", "seconds": 50})";
    }
    /// Changes the disk once the running register has reached that step.
    template <typename Change>
    void changeDisk(const QString& when, const Change& change)
    {
        ASSERT_TRUE(waitForOutput(when));
        QFile changed(dataFolder() + '/' + when + ".json");
        ASSERT_TRUE(changed.open(QIODevice::WriteOnly)); // the change may forbid it
        change();
        changed.write(R"({"changed": true})");
    }

    void setPermissions(mode_t mode) const { EXPECT_EQ(::chmod(QFile::encodeName(dataFolder()).constData(), mode), 0); }
};

TEST_F(Disk, fullWhenTheThirdIsRegistered_isShownAndTheFormerFileStaysUntilTheNextSave)
{
    registry.orderFault({{"endpoint", "register"}, {"nth", 3}, {"fault", "delay"}, {"delay", 2000}});
    startSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", notSaved),
                R"({"expect": "ПОДЫТОГ", "in": "paymentCaptionLabel"})", changeOfTheDisk("freed"), cashier::pays});
    ASSERT_TRUE(waitForRequests("register", 3));
    fillDisk(512);
    changeDisk("freed", [this] {
        EXPECT_EQ(registeredBy(savedDocument()).size(), 2);
        EXPECT_EQ(savedPositions().size(), 3);
        EXPECT_EQ(validDispenses().size(), 3);
        fillDisk(0);
    });
    expectPlayed(waitForEnd());
    EXPECT_EQ(registry.requestsTo("register"), 3);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Disk, fullAtTheClosing_isShownAndTheDocumentStaysOpenUntilThereIsRoom)
{
    startSteps({cashier::findsTheDocument, cashier::toThePayment, changeOfTheDisk("filled"),
                cashier::tries(R"({"key": "Return"})", notSaved),
                R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})", cashier::findsTheDocument,
                changeOfTheDisk("freed"), R"({"key": "Return"})", cashier::isIdle});
    changeDisk("filled", [this] { fillDisk(512); });
    changeDisk("freed", [this] {
        EXPECT_EQ(savedDocument()["state"].toString(), "open");
        EXPECT_EQ(files("finished"), QStringList());
        fillDisk(0);
    });
    expectPlayed(waitForEnd());
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_TRUE(savedDocument().isEmpty());
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Disk, folderReadOnlyAtTheClosing_isShownAndTheDocumentStaysOpenUntilItIsWritable)
{
    startSteps({cashier::findsTheDocument, cashier::toThePayment, changeOfTheDisk("locked"),
                cashier::tries(R"({"key": "Return"})", notSaved),
                R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})", cashier::findsTheDocument});
    changeDisk("locked", [this] { setPermissions(S_IRUSR | S_IXUSR); });
    expectPlayed(waitForEnd());
    setPermissions(S_IRWXU);
    EXPECT_EQ(savedDocument()["state"].toString(), "open");
    EXPECT_EQ(files("finished"), QStringList());

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Disk, fullWhenADocumentIsSuspended_isShownAndItStaysOpen)
{
    startSteps({cashier::findsTheDocument, changeOfTheDisk("filled"),
                cashier::tries(R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "1"})", notSaved),
                cashier::findsTheDocument});
    changeDisk("filled", [this] { fillDisk(512); });
    expectPlayed(waitForEnd());
    EXPECT_EQ(files("putaside"), QStringList());
    EXPECT_EQ(savedPositions().size(), 3);
}

} // namespace
