// SPDX-License-Identifier: MIT
#include "lockscreen.h"
#include "configured.h"
#include "registerstyle.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
        auto* input = screen.findChild<QLineEdit*>(u"unlockLineEdit"_s);
        QTest::keyClicks(input, code);
        QTest::keyClick(input, Qt::Key_Return);
    }
    QString hint() const { return label().text(); }
    QColor hintColour() const { return label().palette().color(QPalette::WindowText); }

    Configured config;
    QWidget window;
    LockScreen screen{u"2468"_s, &window};

private:
    const QLabel& label() const { return *screen.findChild<QLabel*>(u"lockHintLabel"_s); }
};

TEST_F(LockScreenTest, wrongCode_isShownAsAnError)
{
    screen.lock();
    EXPECT_EQ(hint(), u"Введите код кассира"_s);
    EXPECT_NE(hintColour(), RegisterColours().error);
    type(u"1111"_s);
    EXPECT_EQ(hint(), u"Код не подходит. Введите ещё раз."_s);
    EXPECT_EQ(hintColour(), RegisterColours().error);
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(LockScreenTest, lockedAgainAfterAWrongCode_showsTheFirstHint)
{
    screen.lock();
    const QColor asked = hintColour();
    type(u"1111"_s);
    type(u"2468"_s);
    ASSERT_FALSE(screen.isVisible());
    screen.lock();
    EXPECT_EQ(hint(), u"Введите код кассира"_s);
    EXPECT_EQ(hintColour(), asked);
}
