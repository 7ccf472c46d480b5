// SPDX-License-Identifier: MIT
#include "finally.h"
#include "mockfactory.h"
#include "pluginscope.h"
#include "singleton.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace
{

struct Clerk : MockFactory<Clerk> {
    int number = 1;
};

struct Till {
    int opened = 0;
};

} // namespace

TEST(Finally, scopeLeft_runsOnce)
{
    int runs = 0;
    {
        const Finally finally([&runs] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

TEST(Finally, scopeLeftByException_runs)
{
    int runs = 0;
    EXPECT_THROW(
        {
            const Finally finally([&runs] { ++runs; });
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 1);
}

TEST(Finally, emptyFunction_isPassedOver)
{
    EXPECT_NO_THROW(const Finally finally{std::function<void()>()});
}

TEST(Finally, type_cannotBeCopiedOrMoved)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Finally>);
    EXPECT_FALSE(std::is_copy_assignable_v<Finally>);
    EXPECT_FALSE(std::is_move_constructible_v<Finally>);
}

TEST(PluginScope, scopesNest_theInnermostIsCurrent)
{
    EXPECT_EQ(PluginScope::current(), QString());
    {
        const PluginScope outer(u"cards"_s);
        EXPECT_EQ(PluginScope::current(), u"cards"_s);
        {
            const PluginScope inner{QString()};
            EXPECT_EQ(PluginScope::current(), QString());
        }
        EXPECT_EQ(PluginScope::current(), u"cards"_s);
    }
    EXPECT_EQ(PluginScope::current(), QString());
}

TEST(MockFactory, notMocked_makesNewObjects)
{
    const QSharedPointer<Clerk> first = Clerk::create();
    const QSharedPointer<Clerk> second = Clerk::create();
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->number, 1);
}

TEST(MockFactory, mocked_handsOutTheTestsObject)
{
    const auto own = QSharedPointer<Clerk>::create();
    MockFactory<Clerk>::mocked = [own] { return own; };
    const Finally restoring([] { MockFactory<Clerk>::mocked = nullptr; });
    EXPECT_EQ(Clerk::create(), own);
}

TEST(Singleton, get_makesOneObjectAndKeepsIt)
{
    ASSERT_EQ(Singleton<Till>::instance, nullptr);
    Till* const made = Singleton<Till>::get();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(Singleton<Till>::get(), made);
    EXPECT_EQ(Singleton<Till>::instance, made);
    Singleton<Till>::instance = nullptr;
    delete made;
}

TEST(Singleton, instanceSetBefore_isTheOneThatIsGot)
{
    Till own;
    Singleton<Till>::instance = &own;
    EXPECT_EQ(Singleton<Till>::get(), &own);
    Singleton<Till>::instance = nullptr;
}
