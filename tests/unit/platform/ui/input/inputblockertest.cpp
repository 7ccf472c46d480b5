// SPDX-License-Identifier: MIT
#include "inputblocker.h"

#include "runningrequest.h"

#include <QAction>
#include <QLineEdit>
#include <QPointingDevice>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <gmock/gmock.h>

#include <memory>
#include <utility>

namespace
{

class InputBlockerTest : public ::testing::Test
{
protected:
    InputBlockerTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&edit);
        layout->addWidget(&button);
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        edit.setFocus();
    }

    /// Posts a key as the window system does: it waits in the event queue.
    void postKey(Qt::Key key, const QString& text)
    {
        QCoreApplication::postEvent(&edit, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    }

    QWidget window;
    QLineEdit edit;
    QPushButton button;
    int clicks = 0;
};

TEST_F(InputBlockerTest, tapOnTheWidgetThatStopsWaiting_isThrownAwayAndAsks)
{
    int asked = 0;
    RunningRequest::setEscape(&window, [&asked](RunningRequest&) { ++asked; });
    RunningRequest request(std::chrono::seconds(5), true);
    const InputBlocker blocker;
    const auto tap = [this] {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
        QCoreApplication::processEvents();
    };
    tap();
    EXPECT_EQ(asked, 0);
    button.setProperty("stopsWaiting", true);
    tap();
    EXPECT_EQ(asked, 1);
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(window.windowHandle(), screen.get()).press(0, button.geometry().center());
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 2);
    QTest::touchEvent(window.windowHandle(), screen.get()).release(0, button.geometry().center());
    EXPECT_EQ(clicks, 0);
}

TEST_F(InputBlockerTest, escapeOfADestroyedOwner_doesNothingAndTheNextOwnersStays)
{
    int former = 0;
    int current = 0;
    auto first = std::make_unique<QObject>();
    const QObject second;
    RunningRequest request(std::chrono::seconds(5), true);
    RunningRequest::setEscape(first.get(), [&former](RunningRequest&) { ++former; });
    first.reset();
    request.escape();
    EXPECT_EQ(former, 0);
    first = std::make_unique<QObject>();
    RunningRequest::setEscape(first.get(), [&former](RunningRequest&) { ++former; });
    RunningRequest::setEscape(&second, [&current](RunningRequest&) { ++current; });
    first.reset();
    request.escape();
    EXPECT_EQ(former, 0);
    EXPECT_EQ(current, 1);
}

TEST_F(InputBlockerTest, escape_isThrownAwayAndAsksTheRequestThatRuns)
{
    int asked = 0;
    RunningRequest::setEscape(&window, [&asked](RunningRequest&) { ++asked; });
    bool escaped = false;
    QShortcut shortcut(Qt::Key_Escape, &window);
    QObject::connect(&shortcut, &QShortcut::activated, [&escaped] { escaped = true; });
    {
        RunningRequest request(std::chrono::seconds(5), true);
        const InputBlocker blocker;
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
        QCoreApplication::processEvents();
        EXPECT_EQ(asked, 1);
        EXPECT_FALSE(escaped);
        const InputBlocker::Pause formIsShown;
        QTest::keyClick(&edit, Qt::Key_Escape);
        QCoreApplication::processEvents();
        EXPECT_EQ(asked, 1);
        EXPECT_TRUE(std::exchange(escaped, false)) << "it is the form's key";
    }
    const InputBlocker withoutRequest;
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(escaped);
}

TEST_F(InputBlockerTest, whileOneExists_keysAndClicksAreThrownAway)
{
    {
        const InputBlocker blocker;
        EXPECT_TRUE(InputBlocker::isActive());
        QTest::keyClicks(&edit, "123");
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseDClick(&button, Qt::LeftButton);
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(InputBlocker::isActive());
    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(clicks, 0);
}

TEST_F(InputBlockerTest, afterwards_inputIsDelivered)
{
    {
        const InputBlocker blocker;
    }
    QTest::keyClicks(&edit, "123");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(edit.text(), "123");
    EXPECT_EQ(clicks, 1);
}

TEST_F(InputBlockerTest, keysThatWaitInTheQueueAtTheEnd_areThrownAway)
{
    {
        const InputBlocker blocker;
        postKey(Qt::Key_1, "1");
        postKey(Qt::Key_2, "2");
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(edit.text(), "");
}

TEST_F(InputBlockerTest, shortcuts_areThrownAway)
{
    QAction action;
    action.setShortcut(Qt::Key_F5);
    window.addAction(&action);
    int triggered = 0;
    QObject::connect(&action, &QAction::triggered, [&] { ++triggered; });
    QTest::keyClick(&window, Qt::Key_F5);
    ASSERT_EQ(triggered, 1);
    {
        const InputBlocker blocker;
        QTest::keyClick(&window, Qt::Key_F5);
    }
    EXPECT_EQ(triggered, 1);
}

TEST_F(InputBlockerTest, nested_outermostEndsIt)
{
    auto outer = std::make_unique<InputBlocker>();
    {
        const InputBlocker inner;
    }
    EXPECT_TRUE(InputBlocker::isActive());
    QTest::keyClicks(&edit, "1");
    outer.reset();
    EXPECT_FALSE(InputBlocker::isActive());
    EXPECT_EQ(edit.text(), "");
}

TEST_F(InputBlockerTest, timersAndPainting_goOn)
{
    const InputBlocker blocker;
    bool fired = false;
    QTimer::singleShot(0, &window, [&] { fired = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired; }, 5000));
}

TEST_F(InputBlockerTest, paused_inputIsDeliveredUntilThePauseEnds)
{
    const InputBlocker blocker;
    {
        const InputBlocker::Pause pause;
        EXPECT_FALSE(InputBlocker::isActive());
        QTest::keyClicks(&edit, "1");
    }
    EXPECT_TRUE(InputBlocker::isActive());
    QTest::keyClicks(&edit, "2");
    EXPECT_EQ(edit.text(), "1");
}

TEST_F(InputBlockerTest, keysPressedBeforeAPause_areNotDeliveredInIt)
{
    const InputBlocker blocker;
    postKey(Qt::Key_1, "1");
    const InputBlocker::Pause pause;
    QCoreApplication::processEvents();
    EXPECT_EQ(edit.text(), "");
}

TEST_F(InputBlockerTest, blockerInsideAPause_blocksUntilItEnds)
{
    const InputBlocker outer;
    const InputBlocker::Pause pause;
    {
        const InputBlocker inner;
        EXPECT_TRUE(InputBlocker::isActive());
        QTest::keyClicks(&edit, "1");
    }
    EXPECT_FALSE(InputBlocker::isActive());
    QTest::keyClicks(&edit, "2");
    EXPECT_EQ(edit.text(), "2");
}

TEST_F(InputBlockerTest, pauseWithoutABlocker_changesNothing)
{
    {
        const InputBlocker::Pause pause;
        EXPECT_FALSE(InputBlocker::isActive());
    }
    EXPECT_FALSE(InputBlocker::isActive());
    QTest::keyClicks(&edit, "1");
    EXPECT_EQ(edit.text(), "1");
}

TEST_F(InputBlockerTest, windowClosed_closesAfterwards)
{
    {
        const InputBlocker blocker;
        window.close();
        QCoreApplication::processEvents();
        EXPECT_TRUE(window.isVisible());
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 5000));
}

TEST_F(InputBlockerTest, windowClosedBeforeAPause_waitsForTheOutermostBlocker)
{
    {
        const InputBlocker blocker;
        window.close();
        {
            const InputBlocker::Pause pause;
            {
                const InputBlocker inner;
            }
            QCoreApplication::processEvents();
            EXPECT_TRUE(window.isVisible());
        }
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 5000));
}

TEST_F(InputBlockerTest, windowDestroyedBeforeItsCloseIsDue_isForgotten)
{
    const InputBlocker blocker;
    {
        QWidget shortLived;
        shortLived.show();
        shortLived.close();
    }
    SUCCEED();
}

} // namespace
