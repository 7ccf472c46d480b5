// SPDX-License-Identifier: MIT
#include "busyscreen.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

class BusyScreenTest : public ::testing::Test
{
protected:
    BusyScreenTest()
    {
        window.resize(1024, 600);
        other.move(0, 100);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        input->setFocus();
    }

    QWidget window;
    QLineEdit other{&window};
    std::unique_ptr<QLineEdit> input = std::make_unique<QLineEdit>(&window);
    BusyScreen screen{&window};
};

TEST_F(BusyScreenTest, started_theInputBelowHasNoFocusUntilItStops)
{
    ASSERT_TRUE(input->hasFocus());
    screen.start(u"Обращение к сервису"_s);
    screen.start(u"Ещё"_s);
    EXPECT_FALSE(input->hasFocus());
    EXPECT_EQ(QApplication::focusWidget(), &screen);
    screen.stop();
    EXPECT_EQ(QApplication::focusWidget(), input.get());
}

TEST_F(BusyScreenTest, focusTakenDuringTheWork_staysThere)
{
    screen.start(u"x"_s);
    other.setFocus();
    screen.stop();
    EXPECT_EQ(QApplication::focusWidget(), &other);
}

TEST_F(BusyScreenTest, inputDeletedDuringTheWork_stopsWithoutIt)
{
    screen.start(u"x"_s);
    input.reset();
    screen.stop();
    EXPECT_FALSE(screen.isVisible());
    EXPECT_NE(QApplication::focusWidget(), &screen);
}
