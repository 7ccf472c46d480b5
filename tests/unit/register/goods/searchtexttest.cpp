// SPDX-License-Identifier: MIT
#include "searchtext.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SearchText, caseYoAndBlanks_areFolded)
{
    EXPECT_EQ(searchText(u"  ЁЛКА\t«Снежная»\u00a0№ 1 \n"_s), u"елка «снежная» № 1"_s);
    EXPECT_EQ(searchText(u"АМОКСИЦИЛЛИН"_s), searchText(u"амоксициллин "_s));
    EXPECT_EQ(searchText({}), QString());
}

TEST(SearchText, letterOfTwoCodePoints_isTheLetterOfOne)
{
    EXPECT_EQ(searchText(u"И\u0306од"_s), searchText(u"йод"_s));
    EXPECT_EQ(searchText(u"е\u0308лка"_s), u"елка"_s);
}

TEST(OtherLayout, russianTypedWithEnglishKeys_isRussian)
{
    EXPECT_EQ(onOtherLayout(u"fyfkmuby"_s), u"анальгин"_s);
    EXPECT_EQ(onOtherLayout(u"[jatyfr"_s), u"хофенак"_s);
    EXPECT_EQ(onOtherLayout(u"{:<>\"}"_s), u"хжбюэъ"_s);
}

TEST(OtherLayout, keyOfYo_isYe)
{
    EXPECT_EQ(onOtherLayout(u"`krf"_s), u"елка"_s);
    EXPECT_EQ(onOtherLayout(u"tkrf"_s), u"елка"_s);
}

TEST(OtherLayout, englishTypedWithRussianKeys_isEnglish)
{
    EXPECT_EQ(onOtherLayout(u"фызшкшт"_s), u"aspirin"_s);
    EXPECT_EQ(onOtherLayout(u"цшер ез"_s), u"with tp"_s);
}

TEST(OtherLayout, digitsAndUnknownCharacters_stay)
{
    EXPECT_EQ(onOtherLayout(u"4600 №-日"_s), u"4600 №-日"_s);
    EXPECT_EQ(onOtherLayout({}), QString());
}
