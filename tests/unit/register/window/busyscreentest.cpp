// SPDX-License-Identifier: MIT
#include "busyscreen.h"
#include "clockdouble.h"
#include "configured.h"
#include "finally.h"
#include "inputblocker.h"
#include "registerstyle.h"
#include "runningrequest.h"
#include "workstep.h"

#include <QLabel>

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

    QString text(const char* label) const { return screen.findChild<QLabel*>(QLatin1StringView(label))->text(); }

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

TEST_F(BusyScreenTest, stepOfTheWork_isShownUntilItEnds)
{
    screen.start(u"Обращение к сервису"_s);
    EXPECT_EQ(text("busyStepLabel"), QString());
    {
        const WorkStep step({tr::undefined, u"Регистрация 2 из 3"_s});
        EXPECT_TRUE(QTest::qWaitFor([this] { return text("busyStepLabel") == u"Регистрация 2 из 3"_s; }));
        EXPECT_EQ(text("busyMessageLabel"), u"Обращение к сервису"_s);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return text("busyStepLabel").isEmpty(); }));
    screen.stop();
}

TEST_F(BusyScreenTest, beginningAndLimit_areShownAndInnerWorkDoesNotRestartTheClock)
{
    ClockDouble clock(QDateTime({2026, 3, 1}, {14, 2, 31}));
    screen.start(u"x"_s);
    EXPECT_EQ(text("busyTimeLabel"), u"Начато в 14:02:31"_s);
    EXPECT_EQ(text("busyHintLabel"), QString());
    clock.now = clock.now.addSecs(60);
    const RunningRequest request(std::chrono::seconds(20), true);
    screen.start(u"y"_s);
    EXPECT_EQ(text("busyTimeLabel"), u"Начато в 14:02:31. Ждём ответа 0 с, самое большее 20 с"_s);
    screen.stop();
    screen.start(u"z"_s);
    EXPECT_TRUE(text("busyTimeLabel").startsWith(u"Начато в 14:03:31."_s)) << qPrintable(text("busyTimeLabel"));
    screen.stop();
}

TEST_F(BusyScreenTest, limitOfTheWork_isShownUnlessARequestHasItsOwn)
{
    const ClockDouble clock(QDateTime({2026, 3, 1}, {14, 2, 31}));
    screen.start(u"x"_s, WorkLimit(std::chrono::seconds(60)));
    EXPECT_EQ(text("busyTimeLabel"), u"Начато в 14:02:31. Ждём ответа 0 с, самое большее 60 с"_s);
    EXPECT_EQ(text("busyHintLabel"), QString()) << "Esc stops requests only";
    {
        const RunningRequest request(std::chrono::seconds(20), true);
        EXPECT_TRUE(QTest::qWaitFor([this] { return text("busyTimeLabel").endsWith(u"самое большее 20 с"_s); }));
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return text("busyTimeLabel").endsWith(u"самое большее 60 с"_s); }));
    screen.start(u"y"_s);
    EXPECT_EQ(text("busyTimeLabel"), u"Начато в 14:02:31"_s) << "it is not known of the inner work";
    screen.stop();
}

TEST_F(BusyScreenTest, limitThatIsNone_isNotShown)
{
    const ClockDouble clock(QDateTime({2026, 3, 1}, {14, 2, 31}));
    for (const int most : {0, -5}) {
        screen.start(u"x"_s, WorkLimit(std::chrono::seconds(most)));
        EXPECT_EQ(text("busyTimeLabel"), u"Начато в 14:02:31"_s) << most;
        screen.stop();
    }
}

TEST_F(BusyScreenTest, escapeAtARequestThatChangesNothing_stopsItOnlyWhileTheScreenIsSeen)
{
    RunningRequest request(std::chrono::seconds(20), false);
    request.escape();
    EXPECT_FALSE(request.isStopped());
    screen.start(u"x"_s);
    EXPECT_TRUE(text("busyHintLabel").startsWith(u"Esc — прекратить"_s));
    request.escape();
    EXPECT_TRUE(request.isStopped());
    screen.stop();
}

TEST_F(BusyScreenTest, stepOfTheRequest_isShownThoughItIsHiddenFromHandlers)
{
    const WorkStep step({tr::undefined, u"Регистрация 2 из 3"_s});
    const RunningRequest request(std::chrono::seconds(20), true, WorkStep::currentText());
    const WorkStep::Hidden otherWork;
    screen.start(u"x"_s);
    EXPECT_EQ(WorkStep::currentText(), QString());
    EXPECT_EQ(text("busyStepLabel"), u"Регистрация 2 из 3"_s);
    screen.stop();
}

TEST_F(BusyScreenTest, touchMode_theHintIsTappedInPlaceOfEsc)
{
    const Configured configuration({{u"GUI:touchMode"_s, u"true"_s}});
    BusyScreen touched(&window);
    RunningRequest request(std::chrono::seconds(20), false);
    touched.start(u"x"_s);
    const auto* hint = touched.findChild<QLabel*>(u"busyHintLabel"_s);
    EXPECT_FALSE(hint->text().contains(u"Esc"_s));
    EXPECT_TRUE(hint->text().contains(u"Коснитесь здесь"_s));
    EXPECT_GE(hint->height(), 44);
    const InputBlocker blocker;
    QApplication::processEvents(); // places the label
    const QPoint place = hint->mapTo(&window, hint->rect().center());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
    QApplication::processEvents();
    EXPECT_TRUE(request.isStopped());
    touched.stop();
}

TEST_F(BusyScreenTest, panel_growsWithTheType)
{
    const Finally sizeOfTheOtherTests([] {
        applyRegisterStyle(*qApp, {1024, 600});
        qApp->setStyleSheet(QString());
    });
    applyRegisterStyle(*qApp, {1920, 1080});
    const BusyScreen large(&window);
    EXPECT_EQ(large.findChild<QLabel*>(u"busyHintLabel"_s)->parentWidget()->width(), scaledPixels(560));
    EXPECT_GT(scaledPixels(560), 560);
}

TEST_F(BusyScreenTest, longestTexts_fitTheSmallestWindow)
{
    const WorkStep step({tr::undefined, u"Регистрация отпуска 10 из 12. Рецепт 1234567890, товар: "_s +
                                            u"Очень длинное название лекарства "_s.repeated(20)});
    const RunningRequest request(std::chrono::seconds(600), true, WorkStep::currentText());
    window.resize(1024, 600);
    screen.start(u"Обращение к сервису электронных рецептов "_s.repeated(5));
    QApplication::processEvents();
    for (const auto* label : screen.findChildren<QLabel*>()) {
        const QRect place(label->mapTo(&window, QPoint()), label->size());
        EXPECT_TRUE(window.rect().contains(place)) << qPrintable(label->objectName());
    }
    screen.stop();
}
