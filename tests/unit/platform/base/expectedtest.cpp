// SPDX-License-Identifier: MIT
#include "expected.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

const Failure noPaper{{u"printerNoPaper"_s, u"Нет бумаги"_s}, u"printer: no paper"_s};

Expected<void> print(bool hasPaper)
{
    if (!hasPaper) {
        return noPaper;
    }
    return {};
}

} // namespace

TEST(Expected, value_isThereAndTrue)
{
    Expected<QString> name = u"Иванова"_s;
    EXPECT_TRUE(name);
    EXPECT_EQ(*name, u"Иванова"_s);
    EXPECT_EQ(name->size(), 7);
    name->append(u'!');
    EXPECT_EQ(*name, u"Иванова!"_s);
}

TEST(Expected, failure_isFalseAndCarriesTextAndDetail)
{
    const Expected<QString> name = noPaper;
    EXPECT_FALSE(name);
    EXPECT_EQ(name.failure().text, noPaper.text);
    EXPECT_EQ(name.failure().detail, u"printer: no paper"_s);
}

TEST(Expected, wrongSideAsked_throws)
{
    const Expected<int> value = 3;
    const Expected<int> failure = noPaper;
    EXPECT_THROW(value.failure(), std::bad_variant_access);
    EXPECT_THROW(*failure, std::bad_variant_access);
    EXPECT_THROW(print(true).failure(), std::bad_variant_access);
}

TEST(Expected, emptyText_isAValueLikeAnyOther)
{
    EXPECT_TRUE(Expected<QString>(QString()));
}

TEST(Expected, valueThatIsNoCopy_isMovedOut)
{
    Expected<std::unique_ptr<int>> number = std::make_unique<int>(7);
    const std::unique_ptr<int> taken = *std::move(number);
    EXPECT_EQ(*taken, 7);
}

TEST(Expected, withoutValue_isSuccessOrFailure)
{
    EXPECT_TRUE(print(true));
    ASSERT_FALSE(print(false));
    EXPECT_EQ(print(false).failure().text, noPaper.text);
}
