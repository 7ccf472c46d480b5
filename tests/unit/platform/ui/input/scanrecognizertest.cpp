// SPDX-License-Identifier: MIT
#include "scanrecognizer.h"
#include "uitest.h"

#include <QKeyEvent>
#include <QMetaEnum>

using namespace Qt::StringLiterals;

namespace
{

void press(ScanRecognizer& recognizer, int key, Qt::KeyboardModifiers modifiers, const QString& text, quint64 time,
           const QString& field)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    press.setTimestamp(time);
    EXPECT_FALSE(recognizer.take(press, field));
}

std::optional<ScanRecognizer::Scan> pressReturn(ScanRecognizer& recognizer, quint64 time)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
    press.setTimestamp(time);
    return recognizer.take(press, {});
}

/// Sends characters, `gap` milliseconds apart, into a field that takes them all. Returns the time after the last.
quint64 send(ScanRecognizer& recognizer, const QString& text, quint64 begin, quint64 gap, QString field = {})
{
    quint64 time = begin;
    for (const QChar character : text) {
        press(recognizer, character.toUpper().unicode(), Qt::NoModifier, character, time, field);
        field += character;
        time += gap;
    }
    return time;
}

TEST(ScanRecognizerTest, burstThatEndsInReturn_isAScan)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "4601234567890", 1000, 10);
    const auto scan = pressReturn(recognizer, end);
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234567890");
    EXPECT_EQ(scan->fieldBefore, "");
}

TEST(ScanRecognizerTest, charactersExactly50msApart_areAScan)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_TRUE(pressReturn(recognizer, send(recognizer, "12345678", 1000, 50)));
}

TEST(ScanRecognizerTest, charactersFurtherApart_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(pressReturn(recognizer, send(recognizer, "12345678", 1000, 51)));
}

TEST(ScanRecognizerTest, returnPressedAfterAPause_isTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(pressReturn(recognizer, send(recognizer, "12345678", 1000, 10) + 200));
}

TEST(ScanRecognizerTest, enterOfTheKeypad_endsAScanToo)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "4601234567890", 1000, 10);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::KeypadModifier, u"\r"_s);
    enter.setTimestamp(end);
    EXPECT_TRUE(recognizer.take(enter, {}));
}

TEST(ScanRecognizerTest, fewCharacters_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(pressReturn(recognizer, send(recognizer, "123", 1000, 5)));
}

TEST(ScanRecognizerTest, keyHeldDown_isTyped)
{
    ScanRecognizer recognizer({}, {});
    quint64 time = 1000;
    for (int repeats = 0; repeats < 20; ++repeats, time += 30) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, "1", repeats > 0);
        key.setTimestamp(time);
        EXPECT_FALSE(recognizer.take(key, {}));
    }
    EXPECT_FALSE(pressReturn(recognizer, time));
}

TEST(ScanRecognizerTest, eventsWithoutATime_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(pressReturn(recognizer, send(recognizer, "12345678", 0, 0)));
}

TEST(ScanRecognizerTest, scanAfterTyping_givesOnlyTheScanAndWhatWasTypedBefore)
{
    ScanRecognizer recognizer({}, {});
    send(recognizer, "77", 1000, 300);
    const auto scan = pressReturn(recognizer, send(recognizer, "4601234", 5000, 10, "77"));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234");
    EXPECT_EQ(scan->fieldBefore, "77");
}

TEST(ScanRecognizerTest, configuredPrefixAndSuffix_areTakenOff)
{
    ScanRecognizer recognizer(";", "?");
    const auto scan = pressReturn(recognizer, send(recognizer, ";9900000001?", 1000, 10));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "9900000001");
}

TEST(ScanRecognizerTest, configuredPrefix_slowScannerIsRecognized)
{
    ScanRecognizer recognizer(";", "?");
    send(recognizer, "12", 1000, 300);
    const auto scan = pressReturn(recognizer, send(recognizer, ";99?", 2000, 120, "12"));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "99");
    EXPECT_EQ(scan->fieldBefore, "12");
}

TEST(ScanRecognizerTest, controlCharacters_areTakenOff)
{
    ScanRecognizer recognizer({}, {});
    const auto scan = pressReturn(recognizer, send(recognizer, u"\u00024601\u001d234\u0003"_s, 1000, 5));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234");
}

TEST(ScanRecognizerTest, anotherKeyInBetween_isNoScan)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "12345678", 1000, 10);
    press(recognizer, Qt::Key_Left, Qt::NoModifier, {}, end, "12345678");
    EXPECT_FALSE(pressReturn(recognizer, end));
}

TEST(ScanRecognizerTest, shortcutInBetween_isNoScan)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "12345678", 1000, 10);
    press(recognizer, Qt::Key_Control, Qt::ControlModifier, {}, end, "12345678");
    press(recognizer, Qt::Key_C, Qt::ControlModifier, {}, end, "12345678");
    EXPECT_FALSE(pressReturn(recognizer, end));
}

class ModifierInAScan : public ::testing::TestWithParam<Qt::Key>
{
};

TEST_P(ModifierInAScan, cutsNothing)
{
    ScanRecognizer recognizer({}, {});
    quint64 time = send(recognizer, "0104", 1000, 10, "7");
    press(recognizer, GetParam(), Qt::NoModifier, {}, time, "70104");
    time = send(recognizer, "6012", time + 10, 10, "70104");
    press(recognizer, GetParam(), Qt::NoModifier, {}, time, "701046012");
    const auto scan = pressReturn(recognizer, time + 10);
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "01046012");
    EXPECT_EQ(scan->fieldBefore, "7");
}

INSTANTIATE_TEST_SUITE_P(, ModifierInAScan,
                         ::testing::Values(Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta,
                                           Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock),
                         [](const auto& instance) {
                             const QByteArray name(QMetaEnum::fromType<Qt::Key>().valueToKey(instance.param));
                             return name.mid(name.indexOf('_') + 1).toStdString();
                         });

TEST(ScanRecognizerTest, groupSeparatorPressedAsControlAndABracket_isTakenOff)
{
    ScanRecognizer recognizer({}, {});
    quint64 time = send(recognizer, "0104", 1000, 10);
    press(recognizer, Qt::Key_Control, Qt::NoModifier, {}, time, "0104");
    press(recognizer, Qt::Key_BracketRight, Qt::ControlModifier, u"\u001d"_s, time + 10, "0104");
    const auto scan = pressReturn(recognizer, send(recognizer, "91ab", time + 20, 10, "0104"));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "010491ab");
    EXPECT_EQ(scan->fieldBefore, "");
}

class ConfiguredScanRecognizerTest : public UiTest
{
};

TEST_F(ConfiguredScanRecognizerTest, prefixAndSuffixOfTheConfiguration_areTakenOff)
{
    config.setForThisRun("Scanner:prefix", ";");
    config.setForThisRun("Scanner:suffix", "?");
    ScanRecognizer recognizer = ScanRecognizer::configured();
    const auto scan = pressReturn(recognizer, send(recognizer, ";99?", 1000, 200));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "99");
}

TEST(ScanRecognizerTest, secondScan_isRecognizedToo)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_TRUE(pressReturn(recognizer, send(recognizer, "11111111", 1000, 10)));
    const auto scan = pressReturn(recognizer, send(recognizer, "22222222", 5000, 10));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "22222222");
}

} // namespace
