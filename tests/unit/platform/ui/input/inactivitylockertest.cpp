// SPDX-License-Identifier: MIT
#include "inactivitylocker.h"
#include "uitest.h"

#include <QLineEdit>

namespace
{

class InactivityLockerTest : public UiTest
{
protected:
    InactivityLockerTest()
    {
        QObject::connect(&locker, &InactivityLocker::lock, [this] { ++locks; });
    }
    QTimer& timer() { return *locker.findChild<QTimer*>(); }

    InactivityLocker locker;
    int locks = 0;
};

TEST_F(InactivityLockerTest, notConfigured_neverLocks)
{
    locker.start();
    EXPECT_FALSE(timer().isActive());
    locker.resetTimer();
    EXPECT_FALSE(timer().isActive());
}

TEST_F(InactivityLockerTest, timeOver_locksOnce)
{
    config.setForThisRun("GUI:inactivityLockSeconds", "1");
    locker.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return locks > 0; }, 10000));
    EXPECT_EQ(locks, 1);
    EXPECT_FALSE(timer().isActive());
}

TEST_F(InactivityLockerTest, keyOrClick_startsTheTimeAgain)
{
    config.setForThisRun("GUI:inactivityLockSeconds", "3600");
    locker.start();
    QLineEdit edit;
    for (const auto& act : {std::function<void()>([&] { QTest::keyClick(&edit, 'a'); }),
                            std::function<void()>([&] { QTest::mouseClick(&edit, Qt::LeftButton); }),
                            std::function<void()>([&] { locker.resetTimer(); })}) {
        timer().stop();
        act();
        EXPECT_TRUE(timer().isActive());
    }
}

TEST_F(InactivityLockerTest, keyAfterTheLock_startsTheTimeAgain)
{
    config.setForThisRun("GUI:inactivityLockSeconds", "1");
    locker.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return locks > 0; }, 10000));
    QLineEdit edit;
    QTest::keyClick(&edit, 'a');
    EXPECT_TRUE(timer().isActive());
}

TEST_F(InactivityLockerTest, startedAgainWithoutATime_stops)
{
    config.setForThisRun("GUI:inactivityLockSeconds", "3600");
    locker.start();
    config.setForThisRun("GUI:inactivityLockSeconds", "0");
    locker.start();
    locker.resetTimer();
    EXPECT_FALSE(timer().isActive());
}

} // namespace
