// SPDX-License-Identifier: MIT
#include "lockscreen.h"
#include "clockdouble.h"
#include "configured.h"
#include "registerstyle.h"
#include "tallokeyboard.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class LockScreenTest : public ::testing::Test
{
protected:
    LockScreenTest()
    {
        applyRegisterStyle(*qApp, {1024, 600});
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
    void typeWrongCodes(int count)
    {
        for (int i = 0; i < count; ++i) {
            type(u"1111"_s);
        }
    }
    QColor hintColour() const { return label().palette().color(QPalette::WindowText); }

    Configured config;
    QTemporaryDir folder;
    ClockDouble clock{QDateTime({2024, 2, 29}, {12, 0})};
    QWidget window;
    LockScreen screen{u"2468"_s, LockState(folder.path()), &window};

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

TEST_F(LockScreenTest, wrongCodeThatIsNotOfDigitsAlone_theHintNamesTheLayout)
{
    screen.lock();
    type(u"24b8"_s);
    EXPECT_EQ(hint(), u"Код не подходит. Проверьте раскладку клавиатуры и введите ещё раз."_s);
    EXPECT_EQ(hintColour(), RegisterColours().error);
    type(u"[;"_s);
    EXPECT_EQ(hint(), u"Код не подходит. Проверьте раскладку клавиатуры и введите ещё раз."_s);
    type(u"24b8"_s);
    EXPECT_EQ(hint(), u"Код не подходит. Проверьте раскладку клавиатуры. Следующая попытка через 5 с."_s);
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

TEST_F(LockScreenTest, thirdWrongCode_theRightOneIsTakenOnlyAfterAWait)
{
    screen.lock();
    typeWrongCodes(3);
    EXPECT_EQ(hint(), u"Код не подходит. Следующая попытка через 5 с."_s);
    clock.now = clock.now.addSecs(4);
    type(u"2468"_s);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(hint(), u"Неверный код вводили много раз. Следующая попытка через 1 с."_s);
    clock.now = clock.now.addSecs(1);
    QTest::keyClick(screen.findChild<QLineEdit*>(u"unlockLineEdit"_s), Qt::Key_Return);
    EXPECT_FALSE(screen.isVisible()) << "what was typed during the wait is still there";
}

TEST_F(LockScreenTest, waitOver_theHintAsksForTheCodeByItself)
{
    screen.lock();
    typeWrongCodes(3);
    clock.now = clock.now.addSecs(5);
    EXPECT_TRUE(QTest::qWaitFor([this] { return hint() == u"Введите код кассира"_s; }));
}

TEST_F(LockScreenTest, returnWithoutACode_isNoTry)
{
    screen.lock();
    for (int i = 0; i < 5; ++i) {
        type({});
    }
    type(u"2468"_s);
    EXPECT_FALSE(screen.isVisible());
}

struct Code {
    const char* name;
    const char* code;
    bool canBeTyped;
};

class LockKeyboard : public LockScreenTest, public ::testing::WithParamInterface<Code>
{
protected:
    /// Presses the key of the character, in the layout and the case that it needs.
    static void touch(QWidget& keyboard, QChar character)
    {
        for (int layout = 0; layout < 3; ++layout) {
            for (const bool shifted : {false, true}) {
                const QString name =
                    character == u' ' ? u"space"_s : QString(shifted ? character.toLower() : character);
                auto* key = seen(keyboard, name);
                auto* shift = seen(keyboard, u"shift"_s);
                if (!key || (shifted && !shift)) {
                    continue;
                }
                if (shifted) {
                    QTest::mouseClick(shift, Qt::LeftButton);
                }
                QTest::mouseClick(key, Qt::LeftButton);
                return;
            }
            if (auto* next = seen(keyboard, u"layout"_s)) {
                QTest::mouseClick(next, Qt::LeftButton);
            }
        }
        ADD_FAILURE() << "no key for " << int(character.unicode());
    }

private:
    static QPushButton* seen(QWidget& keyboard, const QString& name)
    {
        for (auto* key : keyboard.findChildren<QPushButton*>(u"key_"_s + name)) {
            if (key->isVisible()) {
                return key;
            }
        }
        return nullptr;
    }
};

TEST_P(LockKeyboard, unlocksWithEveryCodeThatIsAllowed)
{
    const QString code = QString::fromUtf8(GetParam().code);
    EXPECT_EQ(LockScreen::canBeTyped(code), GetParam().canBeTyped);
    if (!GetParam().canBeTyped) {
        return;
    }
    config.set(u"GUI:touchMode"_s, u"true"_s);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    LockScreen locked(code, LockState(folder.path()), &window);
    locked.lock();
    auto* keyboard = locked.findChild<TalloKeyboard*>(u"unlockKeyboard"_s);
    for (const QChar character : code) {
        touch(*keyboard, character);
    }
    EXPECT_EQ(locked.findChild<QLineEdit*>(u"unlockLineEdit"_s)->text(), code);
    EXPECT_TRUE(window.rect().contains(keyboard->geometry()));
    QTest::mouseClick(locked.findChild<QPushButton*>(u"unlockButton"_s), Qt::LeftButton);
    EXPECT_FALSE(locked.isLocked());
}

INSTANTIATE_TEST_SUITE_P(, LockKeyboard,
                         ::testing::Values(Code{"digits", "2468", true}, Code{"russian", "ключ7", true},
                                           Code{"latin", "open sesame", true}, Code{"capitals", "Ёлка-Door", true},
                                           Code{"signs", "!#$%&'()*+,-./:;<=>?@[\\]^_`{|}~\"", true},
                                           Code{"foreignLetter", "schlüssel", false}, Code{"beyondTheBmp", "🔑", false}),
                         [](const auto& instance) { return std::string(instance.param.name); });
