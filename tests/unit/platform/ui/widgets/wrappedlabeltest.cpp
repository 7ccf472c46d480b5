// SPDX-License-Identifier: MIT
#include "wrappedlabel.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QToolTip>

#include <gmock/gmock.h>

namespace
{

TEST(WrappedLabelTest, wordOfTenThousandLetters_widensNothingAndGrowsInHeight)
{
    WrappedLabel label;
    label.setText("Короткий текст");
    const int oneLine = label.heightForWidth(600);
    label.setText(QString(10000, u'Ж'));
    EXPECT_LT(label.minimumSizeHint().width(), 50);
    EXPECT_LE(label.sizeHint().width(), 700);
    EXPECT_GT(label.heightForWidth(600), 50 * oneLine);
}

TEST(WrappedLabelTest, directionMarks_changeNothingOfThePicture)
{
    WrappedLabel plain;
    plain.setText("Амоксидар 500 мг, капсулы");
    WrappedLabel marked;
    marked.setText(QString::fromUtf16(u"Амоксидар \u202e500 мг, \u2067капсулы"));
    for (WrappedLabel* label : {&plain, &marked}) {
        label->resize(plain.sizeHint());
    }
    EXPECT_EQ(marked.grab().toImage(), plain.grab().toImage());
}

TEST(WrappedLabelTest, textHigherThanTheLabel_isCut)
{
    WrappedLabel label;
    label.setText("строка\nстрока\nстрока");
    label.resize(label.sizeHint());
    EXPECT_FALSE(label.isCut());
    label.resize(label.width(), label.height() / 2);
    EXPECT_TRUE(label.isCut());
}

/// A letter is one code point, or a code point with its accent.
class LongWord : public ::testing::TestWithParam<const char*>
{
};

TEST_P(LongWord, drawn_fillsItsLines)
{
    const QString line = QString(GetParam()).repeated(20);
    WrappedLabel lines;
    lines.setText((line + u'\n').repeated(11) + line);
    WrappedLabel word;
    word.setText(line.repeated(12));
    for (WrappedLabel* label : {&lines, &word}) {
        label->resize(lines.sizeHint());
    }
    EXPECT_EQ(word.grab().toImage(), lines.grab().toImage());
    EXPECT_EQ(word.heightForWidth(lines.width()), lines.height());
}

INSTANTIATE_TEST_SUITE_P(Letter, LongWord, ::testing::Values("Ж", "И\u0306"),
                         [](const auto& letter) { return letter.index == 0 ? "simple" : "accented"; });

TEST(WrappedLabelTest, lineBreaks_areKept)
{
    WrappedLabel label;
    label.setText("а");
    const int oneLine = label.heightForWidth(600);
    label.setText("а\nб\nв");
    EXPECT_EQ(label.heightForWidth(600), 3 * oneLine);
}

TEST(WrappedLabelTest, shortText_asksForItsOwnWidth)
{
    WrappedLabel label;
    label.setText("абв");
    EXPECT_LT(label.sizeHint().width(), 100);
    EXPECT_EQ(label.heightForWidth(label.sizeHint().width()), label.sizeHint().height());
}

TEST(WrappedLabelTest, markup_isDrawnLiterally)
{
    WrappedLabel literal;
    literal.setText("<b>x</b>");
    WrappedLabel bare;
    bare.setText("x");
    EXPECT_GT(literal.sizeHint().width(), bare.sizeHint().width() + 20);
}

TEST(WrappedLabelTest, painted_theTextIsThere)
{
    WrappedLabel label;
    label.setText("ЖЖЖ");
    label.resize(200, 40);
    const QImage with = label.grab().toImage();
    label.setText("");
    EXPECT_NE(with, label.grab().toImage());
}

/// Counts how often its text is broken into lines.
class CountingLabel : public WrappedLabel
{
public:
    mutable int broken = 0;

protected:
    QSizeF breakIntoLines(QTextLayout& layout, int width) const override
    {
        ++broken;
        return WrappedLabel::breakIntoLines(layout, width);
    }
};

TEST(WrappedLabelTest, askedAndPaintedAgain_theTextIsBrokenOnceForEachWidth)
{
    CountingLabel label;
    label.setText(QString(10000, u'Ж'));
    label.resize(600, 100);
    for (int again = 0; again < 3; ++again) {
        label.heightForWidth(600);
        label.grab();
        label.heightForWidth(500);
    }
    EXPECT_EQ(label.broken, 2);
}

TEST(WrappedLabelTest, anotherTextOrFont_isBrokenAgain)
{
    CountingLabel label;
    label.setText("а\nб");
    const int twoLines = label.heightForWidth(600);
    label.setText("а");
    EXPECT_LT(label.heightForWidth(600), twoLines);
    QFont large = label.font();
    large.setPointSize(3 * large.pointSize());
    label.setFont(large);
    EXPECT_GT(label.heightForWidth(600), twoLines);
    EXPECT_EQ(label.broken, 3);
}

QString toolTipOf(WrappedLabel& label)
{
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &help);
    return QToolTip::text();
}

TEST(WrappedLabelTest, textHigherThanItsRoom_endsInAnEllipsisAndIsWholeInTheToolTip)
{
    WrappedLabel label;
    label.setText("первая\nвторая\n<третья>");
    WrappedLabel expected;
    expected.setText("первая\nвторая…");
    for (WrappedLabel* one : {&label, &expected}) {
        one->resize(300, expected.heightForWidth(300));
    }
    label.show();
    EXPECT_EQ(label.grab().toImage(), expected.grab().toImage());
    EXPECT_EQ(toolTipOf(label), "<qt>первая<br>вторая<br>&lt;третья&gt;</qt>");
}

TEST(WrappedLabelTest, textThatHasItsRoom_isWholeAndHasNoToolTip)
{
    WrappedLabel label;
    label.setText("первая\nвторая");
    label.resize(300, label.heightForWidth(300));
    label.show();
    EXPECT_EQ(toolTipOf(label), "");
}

} // namespace
