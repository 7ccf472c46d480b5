// SPDX-License-Identifier: MIT
#include "lockstate.h"
#include "clockdouble.h"
#include "logcapture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class LockStateTest : public ::testing::Test
{
protected:
    LockState state() const { return LockState(folder.path()); }
    void write(const QByteArray& content) const
    {
        QFile file(folder.filePath(u"screenlock.json"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir folder;
    ClockDouble clock{QDateTime({2024, 2, 29}, {12, 0})};
};

TEST_F(LockStateTest, never_isUnlockedWithoutAFile)
{
    EXPECT_FALSE(state().isLocked());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(LockStateTest, locked_staysSoAcrossARestartUntilItIsUnlocked)
{
    LockState first = state();
    first.lock();
    EXPECT_TRUE(first.isLocked());
    LockState restarted = state();
    EXPECT_TRUE(restarted.isLocked());
    restarted.unlock();
    EXPECT_FALSE(restarted.isLocked());
    EXPECT_FALSE(state().isLocked());
}

TEST_F(LockStateTest, wrongTries_costNothingTwiceAndThenEverMoreUpToFiveMinutes)
{
    LockState lock = state();
    lock.lock();
    for (const auto expected : {0s, 0s, 5s, 10s, 20s, 40s, 80s, 160s, 300s, 300s}) {
        lock.countWrongTry();
        EXPECT_EQ(lock.wait(), expected);
    }
}

TEST_F(LockStateTest, timePasses_theWaitShrinksToItsEnd)
{
    LockState lock = state();
    lock.lock();
    for (int i = 0; i < 4; ++i) {
        lock.countWrongTry();
    }
    clock.now = clock.now.addMSecs(9'001);
    EXPECT_EQ(lock.wait(), 1s);
    clock.now = clock.now.addMSecs(999);
    EXPECT_EQ(lock.wait(), 0s);
    clock.now = clock.now.addDays(1);
    EXPECT_EQ(lock.wait(), 0s);
}

TEST_F(LockStateTest, restart_doesNotShortenTheWait)
{
    LockState lock = state();
    lock.lock();
    for (int i = 0; i < 4; ++i) {
        lock.countWrongTry();
    }
    clock.now = clock.now.addSecs(3);
    LockState restarted = state();
    EXPECT_EQ(restarted.wait(), 7s);
    restarted.countWrongTry();
    EXPECT_EQ(restarted.wait(), 20s);
}

TEST_F(LockStateTest, unlockedAndLockedAgain_theTriesAreForgotten)
{
    LockState lock = state();
    lock.lock();
    for (int i = 0; i < 5; ++i) {
        lock.countWrongTry();
    }
    lock.unlock();
    lock.lock();
    EXPECT_EQ(lock.wait(), 0s);
    lock.countWrongTry();
    EXPECT_EQ(lock.wait(), 0s);
}

TEST_F(LockStateTest, clockSetBack_theWaitBeginsAnewAndEnds)
{
    LockState lock = state();
    lock.lock();
    for (int i = 0; i < 3; ++i) {
        lock.countWrongTry();
    }
    clock.now = clock.now.addYears(-1);
    EXPECT_EQ(lock.wait(), 5s);
    clock.now = clock.now.addSecs(5);
    EXPECT_EQ(lock.wait(), 0s);
}

TEST_F(LockStateTest, damagedFile_leavesTheScreenLockedAndIsLogged)
{
    write("{\"wrongTries\": ");
    const LogCapture log;
    LockState lock = state();
    EXPECT_TRUE(lock.isLocked());
    EXPECT_EQ(lock.wait(), 0s);
    EXPECT_TRUE(log.text().contains(u"screenlock.json"_s)) << qPrintable(log.text());
}

TEST_F(LockStateTest, fileWithoutATime_theWaitEnds)
{
    write("{\"wrongTries\": 3}");
    LockState lock = state();
    EXPECT_EQ(lock.wait(), 5s);
    clock.now = clock.now.addSecs(5);
    EXPECT_EQ(lock.wait(), 0s);
}

TEST_F(LockStateTest, folderCannotBeWritten_isLockedAllTheSameAndIsLogged)
{
    const LogCapture log;
    LockState lock(folder.filePath(u"absent"_s));
    lock.lock();
    EXPECT_TRUE(lock.isLocked());
    EXPECT_TRUE(log.text().contains(u"A restart would come back unlocked"_s)) << qPrintable(log.text());
}
