// SPDX-License-Identifier: MIT
#include "longwork.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "dialogdouble.h"
#include "inplace.h"
#include "logcapture.h"
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

TEST(LongWork, limit_isThatOfTheWorkThatIsShown)
{
    LongWork work;
    QList<int> limits;
    QObject::connect(&work, &LongWork::running,
                     [&](const QString&, const WorkLimit& limit) { limits.append(int(limit.most().count())); });
    work.handleEvent(begin("outer").addArgument(u"seconds"_s, 60));
    work.handleEvent(begin("inner"));
    work.handleEvent(end);
    EXPECT_EQ(limits, (QList<int>{60, 0, 60}));
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

namespace
{

constexpr auto outerAction = control::EActionType(5000);
constexpr auto innerAction = control::EActionType(5001);

/// Actions that begin long work.
class LongWorkOfActions : public ::testing::Test
{
protected:
    LongWorkOfActions() { m_notifier.object.subscribe(&m_work); }

    void serve(control::EActionType type, const std::function<void()>& handler)
    {
        m_controller.object.host().setHandler(type, [handler](control::Action&) {
            handler();
            return EContext::GoOn;
        });
    }
    EContext::Result execute(control::EActionType type)
    {
        control::Action action(type);
        return m_controller.object.execute(action);
    }
    void notify(const Event& event) { m_notifier.object.notify(event); }

    Own<ActionQueueController> m_controller;
    Own<ActivityNotifier> m_notifier;
    DialogDouble m_dialog;
    LongWork m_work;
};

} // namespace

TEST_F(LongWorkOfActions, actionThrowsBetweenBeginningAndEnd_workEndsWithTheActionAndIsLogged)
{
    serve(outerAction, [this] {
        notify(begin("outer"));
        notify(begin("inner"));
        throw 42;
    });
    const QSignalSpy ended(&m_work, &LongWork::ended);
    const LogCapture log;
    EXPECT_EQ(execute(outerAction), EContext::Stop);
    EXPECT_FALSE(m_work.isRunning());
    EXPECT_EQ(ended.size(), 1);
    EXPECT_EQ(log.lines().filter(u"Long work ends without event 73"_s).size(), 2) << log.text().toStdString();
}

TEST_F(LongWorkOfActions, innerActionLeavesWorkOpen_thatOfTheOuterOneGoesOn)
{
    serve(innerAction, [this] { notify(begin("inner")); });
    serve(outerAction, [this] {
        notify(begin("outer"));
        const QSignalSpy running(&m_work, &LongWork::running);
        EXPECT_EQ(execute(innerAction), EContext::GoOn);
        EXPECT_TRUE(m_work.isRunning());
        EXPECT_EQ(running.last().first(), u"outer"_s);
        notify(end);
        EXPECT_FALSE(m_work.isRunning());
    });
    execute(outerAction);
}

TEST_F(LongWorkOfActions, workBegunOutsideActions_outlivesAnAction)
{
    notify(begin("by a timer"));
    serve(outerAction, [] {});
    execute(outerAction);
    EXPECT_TRUE(m_work.isRunning());
    notify(end);
    EXPECT_FALSE(m_work.isRunning());
}

TEST_F(LongWorkOfActions, endedAfterItsAction_isIgnored)
{
    serve(outerAction, [this] { notify(begin("outer")); });
    execute(outerAction);
    const QSignalSpy ended(&m_work, &LongWork::ended);
    notify(end);
    EXPECT_EQ(ended.size(), 0);
}
