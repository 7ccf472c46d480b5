// SPDX-License-Identifier: MIT
#include "scanrecognizer_p.h"

#include <gmock/gmock.h>

namespace
{

/// Sends characters, `gap` milliseconds apart, into a field that takes them all; returns the time after the last.
quint64 send(ScanRecognizer& recognizer, const QString& text, quint64 begin, quint64 gap, QString field = {})
{
    quint64 time = begin;
    for (const QChar character : text) {
        recognizer.character(character, time, field);
        field += character;
        time += gap;
    }
    return time;
}

TEST(ScanRecognizerTest, burstThatEndsInReturn_isAScan)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "4601234567890", 1000, 10);
    const auto scan = recognizer.finish(end);
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234567890");
    EXPECT_EQ(scan->fieldBefore, "");
}

TEST(ScanRecognizerTest, charactersExactly50msApart_areAScan)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_TRUE(recognizer.finish(send(recognizer, "12345678", 1000, 50)));
}

TEST(ScanRecognizerTest, charactersFurtherApart_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(recognizer.finish(send(recognizer, "12345678", 1000, 51)));
}

TEST(ScanRecognizerTest, returnPressedAfterAPause_isTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(recognizer.finish(send(recognizer, "12345678", 1000, 10) + 200));
}

TEST(ScanRecognizerTest, fewCharacters_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(recognizer.finish(send(recognizer, "123", 1000, 5)));
}

TEST(ScanRecognizerTest, eventsWithoutATime_areTyped)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_FALSE(recognizer.finish(send(recognizer, "12345678", 0, 0)));
}

TEST(ScanRecognizerTest, scanAfterTyping_givesOnlyTheScanAndWhatWasTypedBefore)
{
    ScanRecognizer recognizer({}, {});
    send(recognizer, "77", 1000, 300);
    const auto scan = recognizer.finish(send(recognizer, "4601234", 5000, 10, "77"));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234");
    EXPECT_EQ(scan->fieldBefore, "77");
}

TEST(ScanRecognizerTest, configuredPrefixAndSuffix_areTakenOff)
{
    ScanRecognizer recognizer(";", "?");
    const auto scan = recognizer.finish(send(recognizer, ";9900000001?", 1000, 10));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "9900000001");
}

TEST(ScanRecognizerTest, configuredPrefix_tellsASlowScannerFromTyping)
{
    ScanRecognizer recognizer(";", "?");
    send(recognizer, "12", 1000, 300);
    const auto scan = recognizer.finish(send(recognizer, ";99?", 2000, 120, "12"));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "99");
    EXPECT_EQ(scan->fieldBefore, "12");
}

TEST(ScanRecognizerTest, controlCharacters_areTakenOff)
{
    ScanRecognizer recognizer({}, {});
    const auto scan = recognizer.finish(send(recognizer, QStringLiteral("\u00024601\u001d234\u0003"), 1000, 5));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "4601234");
}

TEST(ScanRecognizerTest, anotherKeyInBetween_isNoScan)
{
    ScanRecognizer recognizer({}, {});
    const quint64 end = send(recognizer, "12345678", 1000, 10);
    recognizer.reset();
    EXPECT_FALSE(recognizer.finish(end));
}

TEST(ScanRecognizerTest, secondScan_isToldAgain)
{
    ScanRecognizer recognizer({}, {});
    EXPECT_TRUE(recognizer.finish(send(recognizer, "11111111", 1000, 10)));
    const auto scan = recognizer.finish(send(recognizer, "22222222", 5000, 10));
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->text, "22222222");
}

} // namespace
