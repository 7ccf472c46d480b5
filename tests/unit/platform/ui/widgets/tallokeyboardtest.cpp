// SPDX-License-Identifier: MIT
#include "tallokeyboard.h"
#include "registerstyle.h"
#include "tallolineedit.h"
#include "uitest.h"

#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

class TalloKeyboardTest : public UiTest
{
protected:
    TalloKeyboardTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&edit);
        layout->addWidget(&keyboard);
        window.resize(1024, 600);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        edit.setFocus();
    }

    QPushButton* key(const QString& name)
    {
        for (auto* button : keyboard.findChildren<QPushButton*>("key_" + name)) {
            if (button->isVisible()) {
                return button;
            }
        }
        return nullptr;
    }

    void touch(const QString& name)
    {
        ASSERT_NE(key(name), nullptr) << name.toStdString();
        QTest::mouseClick(key(name), Qt::LeftButton);
    }

    QList<QPushButton*> keys()
    {
        QList<QPushButton*> visible = keyboard.findChildren<QPushButton*>();
        visible.removeIf([](const QPushButton* button) { return !button->isVisible(); });
        return visible;
    }

    QWidget window;
    TalloLineEdit edit;
    TalloKeyboard keyboard;
};

TEST_F(TalloKeyboardTest, signsTouched_areTypedAndSeen)
{
    keyboard.setKeyboardLayouts("symbols");
    touch("&");
    touch("№");
    touch("\\");
    EXPECT_EQ(edit.text(), "&№\\");
    EXPECT_EQ(key("&")->text(), "&&") << "one alone would mark a mnemonic";
}

TEST_F(TalloKeyboardTest, canType_asksTheNamedLayouts)
{
    EXPECT_TRUE(TalloKeyboard::canType("0123456789,", "digits"));
    EXPECT_FALSE(TalloKeyboard::canType("12a", "digits"));
    EXPECT_TRUE(TalloKeyboard::canType("Ёлка 7", "ru"));
    EXPECT_FALSE(TalloKeyboard::canType("Door", "ru"));
    EXPECT_TRUE(TalloKeyboard::canType("Door&Ёлка", "ru,en,symbols"));
    EXPECT_FALSE(TalloKeyboard::canType("ü", "ru,en,symbols"));
    EXPECT_TRUE(TalloKeyboard::canType("", "digits"));
}

TEST_F(TalloKeyboardTest, lettersTouched_areTypedIntoTheFocusedField)
{
    keyboard.setKeyboardLayouts("ru,en");
    for (const QString letter : {"ж", "е", "л", "space", "1", "ё"}) {
        touch(letter);
    }
    EXPECT_EQ(edit.text(), "жел 1ё");
    EXPECT_EQ(QApplication::focusWidget(), &edit);
}

TEST_F(TalloKeyboardTest, keysArriveAsKeyEventsWithCodeAndText)
{
    class Recorder : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
                return false;
            }
            const auto* key = static_cast<QKeyEvent*>(event);
            keys.append(u"%1 %2 %3"_s.arg(int(key->type())).arg(key->key()).arg(key->text()));
            return true;
        }
        QStringList keys;
    } recorder;
    edit.installEventFilter(&recorder);
    keyboard.setKeyboardLayouts("en");
    touch("q");
    touch("enter");
    touch("backspace");
    EXPECT_EQ(recorder.keys, QStringList({
                                 u"6 %1 q"_s.arg(int(Qt::Key_Q)),
                                 u"7 %1 q"_s.arg(int(Qt::Key_Q)),
                                 u"6 %1 \r"_s.arg(int(Qt::Key_Return)),
                                 u"7 %1 \r"_s.arg(int(Qt::Key_Return)),
                                 u"6 %1 \b"_s.arg(int(Qt::Key_Backspace)),
                                 u"7 %1 \b"_s.arg(int(Qt::Key_Backspace)),
                             }));
}

TEST_F(TalloKeyboardTest, backspace_deletes)
{
    edit.setText("123");
    touch("backspace");
    EXPECT_EQ(edit.text(), "12");
    EXPECT_TRUE(key("backspace")->autoRepeat());
}

TEST_F(TalloKeyboardTest, shift_isForOneLetter)
{
    keyboard.setKeyboardLayouts("ru");
    touch("shift");
    EXPECT_EQ(key("й")->text(), "Й");
    touch("й");
    touch("й");
    EXPECT_EQ(edit.text(), "Йй");
    EXPECT_EQ(key("й")->text(), "й");
}

TEST_F(TalloKeyboardTest, shiftTouchedTwice_isOff)
{
    keyboard.setKeyboardLayouts("en");
    touch("shift");
    touch("shift");
    touch("q");
    EXPECT_EQ(edit.text(), "q");
}

TEST_F(TalloKeyboardTest, layoutKey_switchesBetweenTheLayouts)
{
    keyboard.setKeyboardLayouts("ru, en,digits");
    EXPECT_EQ(keyboard.keyboardLayouts(), QStringList({"ru", "en", "digits"}));
    QStringList seen;
    QObject::connect(&keyboard, &TalloKeyboard::layoutChanged, [&](QEvent* event) {
        EXPECT_EQ(event->type(), QEvent::KeyboardLayoutChange);
        seen.append(keyboard.currentLayout());
    });
    EXPECT_EQ(keyboard.currentLayout(), "ru");
    EXPECT_EQ(key("layout")->text(), "ENG");
    touch("layout");
    QCoreApplication::processEvents();
    EXPECT_EQ(key("layout")->text(), "123");
    touch("layout");
    QCoreApplication::processEvents();
    EXPECT_EQ(key("layout")->text(), "РУС");
    touch("layout");
    EXPECT_EQ(seen, QStringList({"en", "digits", "ru"}));
}

TEST_F(TalloKeyboardTest, everyLayout_hasItsLetters)
{
    keyboard.setKeyboardLayouts("ru");
    for (const QChar letter : u"абвгдеёжзийклмнопрстуфхцчшщъыьэюя0123456789.,-"_s) {
        EXPECT_NE(key(letter), nullptr) << QString(letter).toStdString();
    }
    keyboard.setKeyboardLayouts("en");
    for (const QChar letter : u"abcdefghijklmnopqrstuvwxyz0123456789.,-"_s) {
        EXPECT_NE(key(letter), nullptr) << QString(letter).toStdString();
    }
    keyboard.setKeyboardLayouts("digits");
    for (const QChar letter : u"0123456789,"_s) {
        EXPECT_NE(key(letter), nullptr) << QString(letter).toStdString();
    }
    EXPECT_NE(key("backspace"), nullptr);
    EXPECT_EQ(key("shift"), nullptr);
}

TEST_F(TalloKeyboardTest, oneLayout_hasNoLayoutKey)
{
    keyboard.setKeyboardLayouts("ru");
    EXPECT_EQ(key("layout"), nullptr);
}

TEST_F(TalloKeyboardTest, unknownLayouts_arePassedOverAndEnglishIsLeft)
{
    keyboard.setKeyboardLayouts("xx,ru,,yy");
    EXPECT_EQ(keyboard.keyboardLayouts(), QStringList("ru"));
    keyboard.setKeyboardLayouts("xx");
    EXPECT_EQ(keyboard.keyboardLayouts(), QStringList("en"));
    keyboard.setKeyboardLayouts("");
    EXPECT_EQ(keyboard.keyboardLayouts(), QStringList("en"));
}

TEST_F(TalloKeyboardTest, keyDelivered_keyPressedIsEmittedAfterwards)
{
    QStringList texts;
    QObject::connect(&keyboard, &TalloKeyboard::keyPressed, [&] { texts.append(edit.text()); });
    touch("1");
    touch("2");
    EXPECT_EQ(texts, QStringList({"1", "12"}));
}

TEST_F(TalloKeyboardTest, nothingFocused_keyPressedIsNotEmitted)
{
    edit.clearFocus();
    bool isTold = false;
    QObject::connect(&keyboard, &TalloKeyboard::keyPressed, [&] { isTold = true; });
    touch("1");
    EXPECT_FALSE(isTold);
}

TEST_F(TalloKeyboardTest, keys_haveNamesForScreenReadersAndTakeNoFocus)
{
    keyboard.setKeyboardLayouts("ru,en");
    for (const QPushButton* button : keys()) {
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
    }
    EXPECT_EQ(key("backspace")->accessibleName(), "Стереть символ");
}

TEST_F(TalloKeyboardTest, keys_areForFingersInEveryLayoutAndStyle)
{
    setTouchMode();
    applyRegisterStyle(*qApp, {1024, 600});
    for (const QString layout : {"ru", "en", "digits"}) {
        keyboard.setKeyboardLayouts(layout);
        QCoreApplication::processEvents();
        const QList<QPushButton*> all = keys();
        for (const QPushButton* one : all) {
            EXPECT_GE(one->width(), 44) << layout.toStdString() << one->objectName().toStdString();
            EXPECT_GE(one->height(), 44) << layout.toStdString() << one->objectName().toStdString();
            const QRect room = QRect(one->mapTo(&keyboard, QPoint()), one->size()).adjusted(-7, -7, 7, 7);
            for (const QPushButton* other : all) {
                EXPECT_TRUE(one == other || !room.intersects(QRect(other->mapTo(&keyboard, QPoint()), other->size())))
                    << one->objectName().toStdString() << " too near to " << other->objectName().toStdString();
            }
        }
        EXPECT_LE(keyboard.minimumSizeHint().width(), 1024 - 32);
    }
    qApp->setStyleSheet({});
}

/// Deletes the widget that it watches at the first key.
class Closer : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress) {
            return false;
        }
        delete watched;
        return true;
    }
};

TEST_F(TalloKeyboardTest, fieldDestroyedByTheKey_keyPressedIsEmittedAllTheSame)
{
    Closer closer;
    const QPointer<TalloLineEdit> doomed = new TalloLineEdit(&window);
    doomed->show();
    doomed->setFocus();
    doomed->installEventFilter(&closer);
    int reported = 0;
    QObject::connect(&keyboard, &TalloKeyboard::keyPressed, [&] { ++reported; });
    touch("1");
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(edit.text(), "");
}

} // namespace
