// SPDX-License-Identifier: MIT
#include "wrappedlabel.h"

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

TEST(WrappedLabelTest, markup_isDrawnAsItStands)
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

} // namespace
