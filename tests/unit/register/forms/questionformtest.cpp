// SPDX-License-Identifier: MIT
#include "cashier.h"
#include "finally.h"
#include "question.h"
#include "registerstyle.h"
#include "tillfixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

class QuestionFormTest : public TillFixture
{
protected:
    /// Asks, does `act` while the question is shown, and returns the answer.
    bool ask(const Cashier::Act& act)
    {
        Cashier cashier;
        cashier.onForm(u"questionForm"_s, [&act](QWidget& root) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&root));
            act(root);
        });
        const bool yes = question.ask();
        EXPECT_TRUE(cashier.isDone());
        return yes;
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static QPushButton* button(const QWidget& root, const char* name)
    {
        return root.findChild<QPushButton*>(QLatin1StringView(name));
    }

    Question question{{tr::undefined, u"Отмена чека"_s},
                      {tr::undefined, u"Отменить чек № 7?"_s},
                      {tr::undefined, u"Отменить чек"_s},
                      {tr::undefined, u"Нет"_s}};
};

TEST_F(QuestionFormTest, shown_showsTheQuestionAndNoHasTheFocus)
{
    ask([](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"titleLabel"_s)->text(), u"Отмена чека"_s);
        EXPECT_EQ(root.findChild<QLabel*>(u"messageLabel"_s)->text(), u"Отменить чек № 7?"_s);
        EXPECT_EQ(button(root, "yesButton")->text(), u"Отменить чек"_s);
        EXPECT_EQ(button(root, "noButton")->text(), u"Нет"_s);
        EXPECT_EQ(QApplication::focusWidget(), button(root, "noButton"));
        EXPECT_TRUE(button(root, "noButton")->isDefault());
        press(Qt::Key_Escape);
    });
}

TEST_F(QuestionFormTest, shown_everyControlHasAnAccessibleNameAndTheButtonsDescribeTheQuestion)
{
    ask([](QWidget& root) {
        EXPECT_EQ(button(root, "yesButton")->accessibleName(), u"Отменить чек"_s);
        EXPECT_EQ(button(root, "noButton")->accessibleName(), u"Нет"_s);
        for (const char* name : {"yesButton", "noButton"}) {
            EXPECT_EQ(button(root, name)->accessibleDescription(), u"Отменить чек № 7?"_s) << name;
        }
        EXPECT_EQ(root.findChild<QScrollArea*>(u"messageScrollArea"_s)->accessibleName(), u"Отменить чек № 7?"_s);
        EXPECT_EQ(root.findChild<QLabel*>(u"iconLabel"_s)->accessibleName(), u"Отмена чека"_s);
        press(Qt::Key_Escape);
    });
}

TEST_F(QuestionFormTest, returnKey_isNo)
{
    EXPECT_FALSE(ask([](QWidget&) { press(Qt::Key_Return); }));
}

TEST_F(QuestionFormTest, scannedOnYes_answersNothing)
{
    EXPECT_FALSE(ask([this](QWidget& root) {
        button(root, "yesButton")->setFocus();
        quint64 time = 1000;
        for (const QChar character : u"4601234567890\r"_s) {
            const int code = character == u'\r' ? int(Qt::Key_Return) : character.unicode();
            QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, character);
            key.setTimestamp(time += 10);
            QCoreApplication::sendEvent(root.windowHandle(), &key);
        }
        EXPECT_TRUE(gui.object.topForm());
        press(Qt::Key_Escape);
    }));
}

TEST_F(QuestionFormTest, escapeKey_isNo)
{
    EXPECT_FALSE(ask([](QWidget& root) {
        button(root, "yesButton")->setFocus();
        press(Qt::Key_Escape);
    }));
}

TEST_F(QuestionFormTest, closedByTheRegister_isNo)
{
    EXPECT_FALSE(ask([this](QWidget&) { gui.object.cancelForms(); }));
}

class QuestionKey : public QuestionFormTest, public ::testing::WithParamInterface<Qt::Key>
{
};

TEST_P(QuestionKey, movesToYesAndReturnKey_isYes)
{
    EXPECT_TRUE(ask([](QWidget& root) {
        press(GetParam());
        EXPECT_EQ(QApplication::focusWidget(), button(root, "yesButton"));
        press(Qt::Key_Return);
    }));
}

INSTANTIATE_TEST_SUITE_P(, QuestionKey, ::testing::Values(Qt::Key_Tab, Qt::Key_Left), [](const auto& instance) {
    return std::string(instance.param == Qt::Key_Tab ? "tab" : "left");
});

TEST_F(QuestionFormTest, clickedButtons_answerYesAndNo)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    EXPECT_TRUE(ask([](QWidget& root) { QTest::mouseClick(button(root, "yesButton"), Qt::LeftButton); }));
    EXPECT_FALSE(ask([](QWidget& root) { QTest::mouseClick(button(root, "noButton"), Qt::LeftButton); }));
}

TEST_F(QuestionFormTest, longText_hasMoreRoomInALargerWindow)
{
    question.text = {tr::undefined, QString(10'000, QChar(0x416))};
    const Finally sizeOfTheOtherTests([] {
        applyRegisterStyle(*qApp, {1024, 600});
        qApp->setStyleSheet(QString());
    });
    QList<int> heights;
    for (const QSize window : {QSize(1024, 600), QSize(1920, 1080)}) {
        applyRegisterStyle(*qApp, window);
        ask([&heights](QWidget& root) {
            heights.append(root.findChild<QScrollArea*>(u"messageScrollArea"_s)->height());
            press(Qt::Key_Escape);
        });
    }
    ASSERT_EQ(heights.size(), 2);
    EXPECT_GE(heights[1], heights[0] * 3 / 2);
}

TEST_F(QuestionFormTest, longText_scrollsByKeyboardAndTheFormFitsTheSmallestScreen)
{
    question.text = {tr::undefined, QString(4'000, QChar(0x416))};
    ask([](QWidget& root) {
        EXPECT_LE(root.width(), 1024);
        EXPECT_LE(root.height(), 600);
        auto* area = root.findChild<QScrollArea*>(u"messageScrollArea"_s);
        area->setFocus(Qt::TabFocusReason);
        ASSERT_EQ(QApplication::focusWidget(), area);
        press(Qt::Key_Down);
        EXPECT_GT(area->verticalScrollBar()->value(), 0);
        press(Qt::Key_Escape);
    });
}
