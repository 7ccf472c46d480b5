// SPDX-License-Identifier: MIT
#include "plaintooltip.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PlainToolTip, tagsAndLines_areShownAsTheyAre)
{
    EXPECT_EQ(plainToolTip(u"<b>a</b> & b\nc"_s), u"<qt>&lt;b&gt;a&lt;/b&gt; &amp; b<br>c</qt>"_s);
}

TEST(PlainToolTip, noText_isNoToolTip)
{
    EXPECT_EQ(plainToolTip({}), QString());
}

TEST(PlainToolTip, directionMarks_areLeftOut)
{
    EXPECT_EQ(plainToolTip(u"a\u202eb\u2066c"_s), u"<qt>abc</qt>"_s);
}
