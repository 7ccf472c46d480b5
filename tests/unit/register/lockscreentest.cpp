// SPDX-License-Identifier: MIT
#include "lockscreen.h"
#include "configured.h"
#include "registerstyle.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

class LockScreenTest : public ::testing::Test
{
protected:
    LockScreenTest()
    {
        applyRegisterStyle(*qApp, 600);
        window.resize(1024, 600);
        window.show();
    }
    ~LockScreenTest() override { qApp->setStyleSheet({}); }

    void type(const QString& code)
    {
        auto* input = screen.findChild<QLineEdit*>(QStringLiteral("unlockLineEdit"));
        QTest::keyClicks(input, code);
        QTest::keyClick(input, Qt::Key_Return);
    }
    QString hint() const { return label().text(); }
    QColor hintColour() const { return label().palette().color(QPalette::WindowText); }

    Configured config;
    QWidget window;
    LockScreen screen{QStringLiteral("2468"), &window};

private:
    const QLabel& label() const { return *screen.findChild<QLabel*>(QStringLiteral("lockHintLabel")); }
};

TEST_F(LockScreenTest, wrongCode_isToldInTheColourOfErrors)
{
    screen.lock();
    EXPECT_EQ(hint(), QStringLiteral("Введите код кассира"));
    EXPECT_NE(hintColour(), RegisterColours().error);
    type(QStringLiteral("1111"));
    EXPECT_EQ(hint(), QStringLiteral("Код не подходит. Введите ещё раз."));
    EXPECT_EQ(hintColour(), RegisterColours().error);
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(LockScreenTest, lockedAgainAfterAWrongCode_asksAsAtFirst)
{
    screen.lock();
    const QColor asked = hintColour();
    type(QStringLiteral("1111"));
    type(QStringLiteral("2468"));
    ASSERT_FALSE(screen.isVisible());
    screen.lock();
    EXPECT_EQ(hint(), QStringLiteral("Введите код кассира"));
    EXPECT_EQ(hintColour(), asked);
}
