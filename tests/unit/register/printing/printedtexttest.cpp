// SPDX-License-Identifier: MIT
#include "printedtext.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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

TEST_P(PrintableText, hasOnlyPrintableCharacters)
{
    EXPECT_EQ(printable(GetParam().text), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PrintableText,
    ::testing::Values(Printed{"markupAndPlaceholders", u"<b>%1</b> &amp; \\n"_s, u"<b>%1</b> &amp; \\n"_s},
                      Printed{"lineBreaksAndTabs", u" a\r\nb\tc\x0b d "_s, u"a b c d"_s},
                      Printed{"controlCharacters", QString(u"a\x1b[31mb\x07"_s + QChar(0) + QChar(0x9b) + u'c'),
                              u"a [31mb c"_s},
                      Printed{"lineAndParagraphSeparators", u"a\u2028b\u2029c\u0085d"_s, u"a b c d"_s},
                      Printed{"otherBlanks", u"a\u00a0b\u2003c"_s, u"a b c"_s},
                      Printed{"directionOverrides", u"a\u202eb\u2066c\u200fd\ufeff"_s, u"abcd"_s},
                      Printed{"rightToLeftLetters", u"שלום"_s, u"שלום"_s},
                      Printed{"halfACharacter", QString(u"a"_s + QChar(0xd83d) + u'b'), u"a\ufffdb"_s},
                      Printed{"beyondTheFirstPlane", u"a\U0001F48Ab"_s, u"a\U0001F48Ab"_s},
                      Printed{"accents", u"e\u0301"_s, u"e\u0301"_s}, Printed{"nothing", {}, {}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(WrappedText, severalWords_breakAtBlanksAndFillTheLine)
{
    EXPECT_EQ(wrapped(u"aaa bbb cc d"_s, 7), (QStringList{u"aaa bbb"_s, u"cc d"_s}));
    EXPECT_EQ(wrapped(u"aaa bbb"_s, 6), (QStringList{u"aaa"_s, u"bbb"_s}));
}

TEST(WrappedText, longWord_isBrokenInside)
{
    EXPECT_EQ(wrapped(u"a bbbbbbb c"_s, 3), (QStringList{u"a"_s, u"bbb"_s, u"bbb"_s, u"b c"_s}));
    const QString name(10'000, QChar(0x416));
    const QStringList lines = wrapped(name, 37);
    EXPECT_EQ(lines.join(QString()), name);
    EXPECT_EQ(lines.size(), 271);
}

TEST(WrappedText, characterOfSeveralUnits_staysTogetherAndCountsOnce)
{
    EXPECT_EQ(wrapped(u"e\u0301\U0001F48Ae\u0301"_s, 2), (QStringList{u"e\u0301\U0001F48A"_s, u"e\u0301"_s}));
}

TEST(WrappedText, numberSign_staysWithItsNumber)
{
    EXPECT_EQ(wrapped(u"aaa № 12 b"_s, 8), (QStringList{u"aaa № 12"_s, u"b"_s}));
    EXPECT_EQ(wrapped(u"aaa № 12 b"_s, 6), (QStringList{u"aaa"_s, u"№ 12 b"_s}));
    EXPECT_EQ(wrapped(u"№ 123456"_s, 4), (QStringList{u"№ 12"_s, u"3456"_s}));
}

TEST(WrappedText, nothingToPrint_hasNoLines)
{
    EXPECT_TRUE(wrapped({}, 40).isEmpty());
    EXPECT_TRUE(wrapped(u" \n\x1b\u202e "_s, 40).isEmpty());
}
