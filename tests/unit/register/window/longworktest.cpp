// SPDX-License-Identifier: MIT
#include "longwork.h"
#include "tr.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

Event begin(const char* message)
{
    return Event(EActivityListener::LongWorkBegins)
        .addArgument(u"message"_s, QVariant::fromValue(tr::Tr(tr::undefined, QLatin1StringView(message))));
}

const Event end(EActivityListener::LongWorkEnds);

} // namespace

TEST(LongWork, nested_runsUntilTheOuterEndsWithTheMessageOfTheInner)
{
    LongWork work;
    const QSignalSpy running(&work, &LongWork::running);
    const QSignalSpy ended(&work, &LongWork::ended);
    work.handleEvent(begin("outer"));
    work.handleEvent(begin("inner"));
    work.handleEvent(end);
    EXPECT_TRUE(work.isRunning());
    EXPECT_EQ(ended.size(), 0);
    work.handleEvent(end);
    EXPECT_FALSE(work.isRunning());
    EXPECT_EQ(ended.size(), 1);
    ASSERT_EQ(running.size(), 3);
    EXPECT_EQ(running.at(1).first().toString(), u"inner"_s);
    EXPECT_EQ(running.at(2).first().toString(), u"outer"_s);
}

TEST(LongWork, endWithoutABeginning_isIgnored)
{
    LongWork work;
    const QSignalSpy ended(&work, &LongWork::ended);
    work.handleEvent(end);
    work.handleEvent(begin("x"));
    EXPECT_TRUE(work.isRunning());
    EXPECT_EQ(ended.size(), 0);
}

TEST(LongWork, noMessage_runs)
{
    LongWork work;
    work.handleEvent(Event(EActivityListener::LongWorkBegins));
    EXPECT_TRUE(work.isRunning());
}

TEST(LongWork, otherEvents_areIgnored)
{
    LongWork work;
    work.handleEvent(Event(EActivityListener::DocumentOpened));
    EXPECT_FALSE(work.isRunning());
}
