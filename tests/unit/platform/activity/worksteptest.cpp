// SPDX-License-Identifier: MIT
#include "workstep.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

tr::Tr plain(const QString& text)
{
    return {tr::undefined, text};
}

} // namespace

TEST(WorkStepTest, noStep_hasNoTextNoAdviceAndRequestsHaveEffects)
{
    EXPECT_EQ(WorkStep::currentText(), QString());
    EXPECT_EQ(WorkStep::currentAdvice(), QString());
    EXPECT_FALSE(WorkStep::isWithoutEffect());
}

TEST(WorkStepTest, nestedSteps_areReadInLinesFromTheOutermost)
{
    const WorkStep outer(plain(u"Регистрация"_s));
    {
        const WorkStep inner(plain(u"Вход"_s));
        EXPECT_EQ(WorkStep::currentText(), u"Регистрация\nВход"_s);
    }
    EXPECT_EQ(WorkStep::currentText(), u"Регистрация"_s);
}

TEST(WorkStepTest, advice_isThatOfTheInnermostStep)
{
    WorkStep outer(plain(u"a"_s));
    outer.setAdvice(plain(u"Повторите"_s));
    EXPECT_EQ(WorkStep::currentAdvice(), u"Повторите"_s);
    const WorkStep inner(plain(u"b"_s));
    EXPECT_EQ(WorkStep::currentAdvice(), QString());
}

TEST(WorkStepTest, effect_isThatOfTheInnermostStep)
{
    const WorkStep outer(plain(u"a"_s), WorkStep::Effect::None);
    EXPECT_TRUE(WorkStep::isWithoutEffect());
    {
        const WorkStep inner(plain(u"b"_s));
        EXPECT_FALSE(WorkStep::isWithoutEffect());
    }
    EXPECT_TRUE(WorkStep::isWithoutEffect());
}

TEST(WorkStepTest, stepEndedBeforeTheOneInsideIt_leavesTheInnerOne)
{
    auto outer = std::make_unique<WorkStep>(plain(u"a"_s));
    auto inner = std::make_unique<WorkStep>(plain(u"b"_s), WorkStep::Effect::None);
    outer.reset();
    EXPECT_EQ(WorkStep::currentText(), u"b"_s);
    EXPECT_TRUE(WorkStep::isWithoutEffect());
    inner.reset();
    EXPECT_EQ(WorkStep::currentText(), QString());
    EXPECT_FALSE(WorkStep::isWithoutEffect());
}

TEST(WorkStepTest, hidden_showsOnlyWhatBeginsMeanwhile)
{
    auto ending = std::make_unique<WorkStep>(plain(u"a"_s));
    const WorkStep outer(plain(u"b"_s), WorkStep::Effect::None);
    {
        const WorkStep::Hidden otherWork;
        EXPECT_EQ(WorkStep::currentText(), QString());
        EXPECT_FALSE(WorkStep::isWithoutEffect());
        const WorkStep inner(plain(u"c"_s));
        EXPECT_EQ(WorkStep::currentText(), u"c"_s);
        ending.reset();
        EXPECT_EQ(WorkStep::currentText(), u"c"_s);
    }
    EXPECT_EQ(WorkStep::currentText(), u"b"_s);
    EXPECT_TRUE(WorkStep::isWithoutEffect());
}
