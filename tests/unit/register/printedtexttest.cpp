// SPDX-License-Identifier: MIT
#include "printedtext.h"

#include <gtest/gtest.h>

using printedtext::printable;
using printedtext::wrapped;

namespace
{

struct Printed {
    const char* name;
    QString text;
    QString printed;
};

class PrintableText : public ::testing::TestWithParam<Printed>
{
};

} // namespace

TEST_P(PrintableText, holdsWhatCanBePrinted)
{
    EXPECT_EQ(printable(GetParam().text), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PrintableText,
    ::testing::Values(
        Printed{"markupAndPlaceholders", QStringLiteral("<b>%1</b> &amp; \\n"), QStringLiteral("<b>%1</b> &amp; \\n")},
        Printed{"lineBreaksAndTabs", QStringLiteral(" a\r\nb\tc\x0b d "), QStringLiteral("a b c d")},
        Printed{"controlCharacters", QString(QStringLiteral("a\x1b[31mb\x07") + QChar(0) + QChar(0x9b) + u'c'),
                QStringLiteral("a [31mb c")},
        Printed{"lineAndParagraphSeparators", QStringLiteral("a\u2028b\u2029c\u0085d"), QStringLiteral("a b c d")},
        Printed{"otherBlanks", QStringLiteral("a\u00a0b\u2003c"), QStringLiteral("a b c")},
        Printed{"directionOverrides", QStringLiteral("a\u202eb\u2066c\u200fd\ufeff"), QStringLiteral("abcd")},
        Printed{"rightToLeftLetters", QStringLiteral("שלום"), QStringLiteral("שלום")},
        Printed{"halfACharacter", QString(QStringLiteral("a") + QChar(0xd83d) + u'b'), QStringLiteral("a\ufffdb")},
        Printed{"beyondTheFirstPlane", QStringLiteral("a\U0001F48Ab"), QStringLiteral("a\U0001F48Ab")},
        Printed{"accents", QStringLiteral("e\u0301"), QStringLiteral("e\u0301")}, Printed{"nothing", {}, {}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(WrappedText, breaksAtBlanksAndFillsTheLine)
{
    EXPECT_EQ(wrapped(QStringLiteral("aaa bbb cc d"), 7),
              (QStringList{QStringLiteral("aaa bbb"), QStringLiteral("cc d")}));
    EXPECT_EQ(wrapped(QStringLiteral("aaa bbb"), 6), (QStringList{QStringLiteral("aaa"), QStringLiteral("bbb")}));
}

TEST(WrappedText, longWord_isBrokenWithin)
{
    EXPECT_EQ(wrapped(QStringLiteral("a bbbbbbb c"), 3),
              (QStringList{QStringLiteral("a"), QStringLiteral("bbb"), QStringLiteral("bbb"), QStringLiteral("b c")}));
    const QString name(10'000, QChar(0x416));
    const QStringList lines = wrapped(name, 37);
    EXPECT_EQ(lines.join(QString()), name);
    EXPECT_EQ(lines.size(), 271);
}

TEST(WrappedText, characterOfSeveralUnits_staysTogetherAndCountsOnce)
{
    EXPECT_EQ(wrapped(QStringLiteral("e\u0301\U0001F48Ae\u0301"), 2),
              (QStringList{QStringLiteral("e\u0301\U0001F48A"), QStringLiteral("e\u0301")}));
}

TEST(WrappedText, numberSign_staysWithItsNumber)
{
    EXPECT_EQ(wrapped(QStringLiteral("aaa № 12 b"), 8), (QStringList{QStringLiteral("aaa № 12"), QStringLiteral("b")}));
    EXPECT_EQ(wrapped(QStringLiteral("aaa № 12 b"), 6), (QStringList{QStringLiteral("aaa"), QStringLiteral("№ 12 b")}));
    EXPECT_EQ(wrapped(QStringLiteral("№ 123456"), 4), (QStringList{QStringLiteral("№ 12"), QStringLiteral("3456")}));
}

TEST(WrappedText, nothingToPrint_isNoLine)
{
    EXPECT_TRUE(wrapped({}, 40).isEmpty());
    EXPECT_TRUE(wrapped(QStringLiteral(" \n\x1b\u202e "), 40).isEmpty());
}
