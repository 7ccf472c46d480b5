// SPDX-License-Identifier: MIT
#include "actionqueuecontroller.h"
#include "actionhost.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "basicform.h"
#include "dialogdouble.h"
#include "finally.h"
#include "graphicaluserinterface.h"
#include "inplace.h"
#include "inputblocker.h"
#include "logcapture.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

using control::Action;
using control::EActionType;

namespace
{

const auto ownCommand = EActionType(1000);
const auto otherCommand = EActionType(1001);
const QString resultKey = u"result"_s;

class ActionQueue : public ::testing::Test
{
protected:
    /// A hook that notes its name and returns `result`.
    ActionTrigger::Function noting(const QString& name, EContext::Result result = EContext::GoOn)
    {
        return [this, name, result](const Action&) {
            m_steps.append(name);
            return result;
        };
    }

    void hostServes(EActionType type, EContext::Result result = EContext::GoOn)
    {
        m_controller->host().setHandler(type, [this, result](Action&) {
            m_steps.append(u"action"_s);
            return result;
        });
    }

    void addTrigger(ActionTrigger::Order order, const QString& name, int priority,
                    EContext::Result result = EContext::GoOn, ActionTrigger::Result expected = ActionTrigger::Any)
    {
        m_controller->host().addTrigger({EContext::Idle, ownCommand, order, noting(name, result), expected, priority});
    }

    EContext::Result execute(EActionType type)
    {
        Action action(type);
        return m_controller->execute(action);
    }

    /// Lets what is queued run.
    bool waitUntilIdle()
    {
        return QTest::qWaitFor([this] { return !m_controller->isBusy(); });
    }

    std::unique_ptr<ActionQueueController> m_controller = std::make_unique<ActionQueueController>();
    DialogDouble m_dialog;
    QStringList m_steps;
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

TEST_F(ActionQueue, nobodyHandlesAction_isNotFoundAndNoTriggerRuns)
{
    addTrigger(ActionTrigger::Before, u"hook"_s, 1);
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    EXPECT_FALSE(m_controller->isHandled(ownCommand));
    EXPECT_TRUE(m_steps.isEmpty());
}

TEST_F(ActionQueue, hostHandler_writesIntoTheVeryAction)
{
    m_controller->host().setHandler(control::AddSelectedGoods, [](Action& action) {
        action.insert(u"positionNumber"_s, 7);
        return EContext::GoOn;
    });
    Action action(control::AddSelectedGoods);
    EXPECT_EQ(m_controller->execute(action), EContext::GoOn);
    EXPECT_EQ(action.value(u"positionNumber"_s).toInt(), 7);
}

TEST_F(ActionQueue, hostHandlers_certainContextWinsAndLaterReplacesEarlier)
{
    hostServes(ownCommand, EContext::NotFound);
    hostServes(ownCommand, EContext::Stop);
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    m_controller->host().setHandler(EContext::Idle, ownCommand, [](Action&) { return EContext::GoOn; });
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    m_controller->host().setContext(EContext::OpenDocument);
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
}

TEST_F(ActionQueue, pluginHandler_servesItsContextOnly)
{
    m_controller->host().addHandler({EContext::OpenDocument, ownCommand, noting(u"plug-in"_s), true});
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    m_controller->host().setContext(EContext::OpenDocument);
    EXPECT_TRUE(m_controller->isHandled(ownCommand));
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("plug-in"));
}

TEST_F(ActionQueue, pluginHandlerDisabled_isPassedOver)
{
    m_controller->host().addHandler({EContext::Idle, ownCommand, noting(u"disabled"_s), false});
    EXPECT_FALSE(m_controller->isHandled(ownCommand));
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    EXPECT_TRUE(m_steps.isEmpty());
}

TEST_F(ActionQueue, severalHandlers_hostBeforePluginsAndFirstPluginBeforeSecond)
{
    m_controller->host().addHandler({EContext::Idle, ownCommand, noting(u"first"_s), true});
    m_controller->host().addHandler({EContext::Idle, ownCommand, noting(u"second"_s), true});
    execute(ownCommand);
    hostServes(ownCommand);
    execute(ownCommand);
    EXPECT_EQ(m_steps, words("first action"));
}

TEST_F(ActionQueue, removedPluginEntries_leaveTheHosts)
{
    hostServes(ownCommand);
    m_controller->host().addHandler({EContext::Idle, otherCommand, noting(u"plug-in"_s), true});
    addTrigger(ActionTrigger::Before, u"hook"_s, 1);
    m_controller->host().removePluginEntries();
    EXPECT_EQ(execute(otherCommand), EContext::NotFound);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("action"));
}

TEST_F(ActionQueue, triggers_runByPriorityAndEqualOnesAsAdded)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::After, u"late-after"_s, 9);
    addTrigger(ActionTrigger::Before, u"five-a"_s, 5);
    addTrigger(ActionTrigger::Before, u"five-b"_s, 5);
    addTrigger(ActionTrigger::Before, u"minus"_s, -1);
    addTrigger(ActionTrigger::Before, u"five-c"_s, 5);
    addTrigger(ActionTrigger::After, u"early-after"_s, 0);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("minus five-a five-b five-c action early-after late-after"));
}

TEST_F(ActionQueue, triggersOfOtherContextOrAction_doNotRun)
{
    hostServes(ownCommand);
    m_controller->host().addTrigger(
        {EContext::OpenDocument, ownCommand, ActionTrigger::Before, noting(u"other"_s), ActionTrigger::Any, 1});
    m_controller->host().addTrigger(
        {EContext::Idle, otherCommand, ActionTrigger::Before, noting(u"other"_s), ActionTrigger::Any, 1});
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("action"));
}

class ActionQueueStopped : public ActionQueue, public ::testing::WithParamInterface<EContext::Result>
{
};

TEST_P(ActionQueueStopped, triggerDoesNotGoOn_actionAndLaterTriggersDoNotRunAndResultIsReturned)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::Before, u"first"_s, 1);
    addTrigger(ActionTrigger::Before, u"stopping"_s, 2, GetParam());
    addTrigger(ActionTrigger::Before, u"later"_s, 3);
    addTrigger(ActionTrigger::After, u"after"_s, 1);
    EXPECT_EQ(execute(ownCommand), GetParam());
    EXPECT_EQ(m_steps, words("first stopping"));
    EXPECT_FALSE(m_controller->isBusy());
}

INSTANTIATE_TEST_SUITE_P(Results, ActionQueueStopped,
                         ::testing::Values(EContext::Stop, EContext::NotFound, EContext::Result(3)),
                         [](const auto& row) { return "result" + std::to_string(row.param); });

TEST_F(ActionQueue, triggersAfter_waitForTheirOutcomeAndChangeNothing)
{
    addTrigger(ActionTrigger::After, u"any"_s, 1, EContext::Stop, ActionTrigger::Any);
    addTrigger(ActionTrigger::After, u"done"_s, 2, EContext::Stop, ActionTrigger::Done);
    addTrigger(ActionTrigger::After, u"failed"_s, 3, EContext::GoOn, ActionTrigger::Failed);
    hostServes(ownCommand, EContext::GoOn);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("action any done"));
    m_steps.clear();
    hostServes(ownCommand, EContext::NotFound);
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    EXPECT_EQ(m_steps, words("action any failed"));
}

TEST_F(ActionQueue, actionNotAllowedInContext_stopsBeforeAnything)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::Before, u"hook"_s, 1);
    Action action(ownCommand);
    action.setAllowContexts({EContext::OpenDocument, EContext::StoredDocuments});
    EXPECT_EQ(m_controller->execute(action), EContext::Stop);
    EXPECT_TRUE(m_steps.isEmpty());
    m_controller->host().setContext(EContext::OpenDocument);
    EXPECT_EQ(m_controller->execute(action), EContext::GoOn);
}

TEST_F(ActionQueue, triggerThrowsBasicException_cashierReadsItsTextAndActionStops)
{
    hostServes(ownCommand);
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [](const Action&) -> EContext::Result {
                                         throw BasicException(
                                             tr::Tr(u"cardUnknown"_s, u"Карта %1 неизвестна"_s).arg(u"11002200"_s));
                                     },
                                     ActionTrigger::Any, 1});
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    ASSERT_EQ(m_dialog.messages().size(), 1);
    EXPECT_EQ(m_dialog.messages().first().text, u"Карта 11002200 неизвестна"_s);
    EXPECT_EQ(m_dialog.messages().first().kind, 1);
    EXPECT_TRUE(m_steps.isEmpty());
    EXPECT_EQ(log.lines(), QStringList(u"ERROR action Stopped by an exception with the message cardUnknown"_s));
    EXPECT_FALSE(m_controller->isBusy());
}

TEST_F(ActionQueue, handlerThrowsStandardException_isShownLoggedAndCountsAsStop)
{
    m_controller->host().setHandler(ownCommand,
                                    [](Action&) -> EContext::Result { throw std::runtime_error("Иванов"); });
    addTrigger(ActionTrigger::After, u"failed"_s, 1, EContext::GoOn, ActionTrigger::Failed);
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    ASSERT_EQ(m_dialog.messages().size(), 1);
    EXPECT_TRUE(m_dialog.messages().first().text.contains(u"внутренней ошибки"_s));
    EXPECT_EQ(log.lines(), QStringList(u"ERROR action Stopped by an exception of the type std::runtime_error"_s))
        << "what() may name a patient";
    EXPECT_EQ(m_steps, words("failed"));
}

TEST_F(ActionQueue, handlerThrowsNumber_isShownLoggedAndCountsAsStop)
{
    m_controller->host().setHandler(ownCommand, [](Action&) -> EContext::Result { throw 42; });
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(m_dialog.messages().size(), 1);
    EXPECT_TRUE(log.text().contains(u"the type int"_s)) << log.text().toStdString();
}

TEST_F(ActionQueue, messageItselfThrows_isLoggedAndCountsAsStop)
{
    m_dialog.onMessage = [](const auto&) { throw std::runtime_error("no screen"); };
    m_controller->host().setHandler(ownCommand, [](Action&) -> EContext::Result { throw 42; });
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_TRUE(log.text().contains(u"std::runtime_error"_s)) << log.text().toStdString();
}

TEST_F(ActionQueue, afterTriggerThrows_outcomeStays)
{
    hostServes(ownCommand);
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::After,
                                     [](const Action&) -> EContext::Result { throw 42; }, ActionTrigger::Any, 1});
    addTrigger(ActionTrigger::After, u"next"_s, 2);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_dialog.messages().size(), 1);
    EXPECT_EQ(m_steps, words("action next"));
}

TEST_F(ActionQueue, enqueuedActions_runLaterInOrderAndIdleIsSignalledOnce)
{
    m_controller->host().setHandler(ownCommand, [this](Action& action) {
        m_steps.append(action.value(resultKey).toString());
        return EContext::GoOn;
    });
    QSignalSpy idle(m_controller.get(), &ActionQueueController::idle);
    for (const QString& name : words("a b c")) {
        Action action(ownCommand);
        action.insert(resultKey, name);
        m_controller->enqueue(action, name == u"c");
    }
    EXPECT_TRUE(m_steps.isEmpty());
    EXPECT_TRUE(m_controller->isBusy());
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_EQ(m_steps, words("c a b"));
    EXPECT_EQ(idle.size(), 1);
}

class QueuedBefore : public ActionQueue
{
protected:
    /// Another action, which the host serves, runs after `first` and only then; nothing waits afterwards, which is
    /// reported once.
    void expectNextRunsAfter(const Action& first, const char* steps)
    {
        hostServes(otherCommand);
        QSignalSpy idle(m_controller.get(), &ActionQueueController::idle);
        m_controller->enqueue(first, false);
        m_controller->enqueue(Action(otherCommand), false);
        ASSERT_TRUE(waitUntilIdle());
        EXPECT_EQ(m_steps, words(steps));
        EXPECT_EQ(idle.size(), 1);
    }
};

TEST_F(QueuedBefore, queuedActionThatNobodyHandles_theNextOneStillRuns)
{
    expectNextRunsAfter(Action(ownCommand), "action");
}

TEST_F(QueuedBefore, queuedActionNotAllowedInContext_theNextOneStillRuns)
{
    m_controller->host().setHandler(ownCommand, noting(u"not-allowed"_s));
    Action elsewhere(ownCommand);
    elsewhere.setAllowContexts({EContext::OpenDocument});
    expectNextRunsAfter(elsewhere, "action");
}

TEST_F(QueuedBefore, queuedActionWhoseHandlerThrows_theNextOneStillRuns)
{
    m_controller->host().setHandler(ownCommand, [this](Action&) -> EContext::Result {
        m_steps.append(u"thrown"_s);
        throw 42;
    });
    const LogCapture log;
    expectNextRunsAfter(Action(ownCommand), "thrown action");
    EXPECT_EQ(m_dialog.messages().size(), 1);
}

TEST_F(QueuedBefore, queuedActionRunsAnotherAndAnEventLoop_theNextOneWaitsForItsEnd)
{
    const auto innerCommand = EActionType(1002);
    m_controller->host().setHandler(innerCommand, noting(u"inner"_s));
    m_controller->host().setHandler(ownCommand, [this](Action&) {
        execute(innerCommand); // its end must not let the next one in
        QCoreApplication::processEvents();
        m_steps.append(u"end"_s);
        return EContext::GoOn;
    });
    expectNextRunsAfter(Action(ownCommand), "inner end action");
}

TEST_F(ActionQueue, nobodyHandlesTheLastQueuedAction_idleIsSignalled)
{
    QSignalSpy idle(m_controller.get(), &ActionQueueController::idle);
    m_controller->enqueue(Action(ownCommand), false);
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_EQ(idle.size(), 1);
}

TEST_F(ActionQueue, controllerDeletedByAQueuedAction_whatWaitsIsDropped)
{
    hostServes(otherCommand);
    m_controller->host().setHandler(ownCommand, [this](Action&) {
        m_controller.reset();
        return EContext::GoOn;
    });
    m_controller->enqueue(Action(ownCommand), false);
    m_controller->enqueue(Action(otherCommand), false);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_controller; }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_steps.isEmpty());
}

TEST_F(ActionQueue, enqueuedInsideAction_runsAfterItEvenWhenItHasAnEventLoop)
{
    hostServes(otherCommand);
    m_controller->host().setHandler(ownCommand, [this](Action&) {
        m_controller->enqueue(Action(otherCommand), true);
        QCoreApplication::processEvents();
        m_steps.append(u"end"_s);
        return EContext::GoOn;
    });
    execute(ownCommand);
    EXPECT_TRUE(m_controller->isBusy());
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_EQ(m_steps, words("end action"));
}

TEST_F(ActionQueue, executeInsideHandler_runsAtOnce)
{
    hostServes(otherCommand);
    m_controller->host().setHandler(ownCommand, [this](Action&) {
        m_steps.append(QString::number(execute(otherCommand)));
        return EContext::GoOn;
    });
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("action 2"));
}

TEST_F(ActionQueue, inputBlocked_executeReturnsStopAndQueuedActionsWait)
{
    hostServes(ownCommand);
    {
        const InputBlocker blocker;
        EXPECT_EQ(execute(ownCommand), EContext::Stop);
        m_controller->enqueue(Action(ownCommand), true);
        bool looked = false; // a timer that fires after the queue's first look
        QTimer::singleShot(0, [&looked] { looked = true; });
        ASSERT_TRUE(QTest::qWaitFor([&looked] { return looked; }));
        EXPECT_TRUE(m_steps.isEmpty());
        EXPECT_TRUE(m_controller->isBusy());
    }
    ASSERT_TRUE(waitUntilIdle());
    EXPECT_EQ(m_steps, words("action"));
}

TEST_F(ActionQueue, formOnTop_itsContextCountsAndItsAnswerIsServedInsideTheAction)
{
    GraphicalUserInterface gui;
    const InPlace<GraphicalUserInterface> place(&gui);

    m_controller->host().setContext(EContext::OpenDocument);
    EContext::Code contextWithForm{};
    core::BasicDialog::Result answer;
    m_controller->host().setHandler(ownCommand, [&](Action&) {
        QTimer::singleShot(0, m_controller.get(), [&] {
            contextWithForm = m_controller->context();
            Action reply(control::DialogAnswer);
            reply.insert(u"data"_s, 3);
            m_controller->enqueue(reply, true);
        });
        answer = gui.run(QSharedPointer<BasicForm>::create(nullptr));
        return EContext::GoOn;
    });
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(contextWithForm, EContext::DialogOnTop);
    EXPECT_EQ(answer.getData().toMap().value(u"data"_s).toInt(), 3);
    EXPECT_FALSE(answer.canceled());
    EXPECT_EQ(m_controller->context(), EContext::OpenDocument);
    EXPECT_FALSE(m_controller->isBusy());
}

TEST_F(ActionQueue, dialogAnswerWithoutForm_isPassedOver)
{
    m_controller->enqueue(Action(control::DialogAnswer), true);
    EXPECT_FALSE(m_controller->isBusy());
    EXPECT_EQ(execute(control::DialogAnswer), EContext::GoOn);
}

TEST_F(ActionQueue, entriesRemovedOrReplacedDuringAction_actionFinishesWithWhatItBeganWith)
{
    hostServes(ownCommand);
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [this](const Action&) {
                                         m_controller->host().removePluginEntries();
                                         m_controller->host().setHandler(ownCommand,
                                                                         [](Action&) { return EContext::Stop; });
                                         return EContext::GoOn;
                                     },
                                     ActionTrigger::Any, 1});
    addTrigger(ActionTrigger::Before, u"second"_s, 2);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("second action"));
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
}

TEST_F(ActionQueue, frame_runsAroundTriggersAndHandlerAndItsResultCounts)
{
    addTrigger(ActionTrigger::Before, u"before"_s, 1);
    addTrigger(ActionTrigger::After, u"after"_s, 1);
    m_controller->host().setHandler(ownCommand, [this](Action& action) {
        m_steps.append(u"action"_s);
        action.insert(resultKey, 7);
        return EContext::GoOn;
    });
    m_controller->host().setFrame(ownCommand, [this](Action& action, const std::function<EContext::Result()>& course) {
        m_steps.append(u"in"_s);
        EXPECT_TRUE(m_controller->isBusy());
        EXPECT_EQ(course(), EContext::GoOn);
        EXPECT_EQ(action.value(resultKey).toInt(), 7);
        action.insert(resultKey, 8);
        m_steps.append(u"out"_s);
        return EContext::NotFound;
    });
    Action action(ownCommand);
    EXPECT_EQ(m_controller->execute(action), EContext::NotFound);
    EXPECT_EQ(m_steps, words("in before action after out"));
    EXPECT_EQ(action.value(resultKey).toInt(), 8) << "the very action";
    EXPECT_FALSE(m_controller->isBusy());
}

TEST_F(ActionQueue, frameAsksForNothing_neitherTriggersNorHandlerRun)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::Before, u"before"_s, 1);
    addTrigger(ActionTrigger::After, u"after"_s, 1);
    m_controller->host().setFrame(ownCommand, [](Action&, const auto&) { return EContext::Stop; });
    QSignalSpy stopped(m_controller.get(), &ActionQueueController::stopped);
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_TRUE(m_steps.isEmpty());
    EXPECT_TRUE(stopped.isEmpty()) << "no trigger refused";
}

TEST_F(ActionQueue, frame_isOfItsActionInAnyContextAndALaterOneReplacesIt)
{
    hostServes(ownCommand);
    hostServes(otherCommand);
    const auto framing = [this](const QString& name) {
        return [this, name](Action&, const std::function<EContext::Result()>& course) {
            m_steps.append(name);
            return course();
        };
    };
    m_controller->host().setFrame(ownCommand, framing(u"former"_s));
    m_controller->host().setFrame(ownCommand, framing(u"frame"_s));
    for (const auto context : {EContext::Idle, EContext::OpenDocument, EContext::StoredDocuments}) {
        m_controller->host().setContext(context);
        EXPECT_EQ(execute(ownCommand), EContext::GoOn);
        EXPECT_EQ(execute(otherCommand), EContext::GoOn);
    }
    EXPECT_EQ(m_steps, words("frame action action frame action action frame action action"));
}

TEST_F(ActionQueue, nobodyHandlesAction_itsFrameIsNotAsked)
{
    bool asked = false;
    m_controller->host().setFrame(ownCommand, [&asked](Action&, const auto&) {
        asked = true;
        return EContext::GoOn;
    });
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    hostServes(ownCommand);
    Action elsewhere(ownCommand);
    elsewhere.setAllowContexts({EContext::OpenDocument});
    EXPECT_EQ(m_controller->execute(elsewhere), EContext::Stop);
    EXPECT_FALSE(asked);
}

TEST_F(ActionQueue, triggerStopsWithinAFrame_theFrameLearnsItsResult)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::Before, u"stopping"_s, 1, EContext::NotFound);
    std::optional<EContext::Result> learnt;
    m_controller->host().setFrame(ownCommand, [&learnt](Action&, const std::function<EContext::Result()>& course) {
        learnt = course();
        return *learnt;
    });
    EXPECT_EQ(execute(ownCommand), EContext::NotFound);
    EXPECT_EQ(learnt, EContext::NotFound);
    EXPECT_EQ(m_steps, words("stopping"));
}

TEST_F(ActionQueue, frameThrows_isShownAndCountsAsStop)
{
    hostServes(ownCommand);
    m_controller->host().setFrame(ownCommand, [](Action&, const std::function<EContext::Result()>& course) {
        course();
        throw std::runtime_error("frame");
        return EContext::GoOn;
    });
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(m_dialog.messages().size(), 1);
    EXPECT_EQ(m_steps, words("action"));
    EXPECT_FALSE(m_controller->isBusy());
}

TEST_F(ActionQueue, controllerDeletedByFrame_courseStops)
{
    hostServes(ownCommand);
    auto* const controller = m_controller.get();
    EContext::Result ofCourse = EContext::GoOn;
    m_controller->host().setFrame(ownCommand, [&](Action&, const std::function<EContext::Result()>& course) {
        m_controller.reset();
        ofCourse = course();
        return EContext::GoOn;
    });
    Action action(ownCommand);
    EXPECT_EQ(controller->execute(action), EContext::GoOn);
    EXPECT_EQ(ofCourse, EContext::Stop);
    EXPECT_TRUE(m_steps.isEmpty());
}

TEST_P(ActionQueueStopped, triggerDoesNotGoOn_isReportedOnceWithActionAndResult)
{
    hostServes(ownCommand);
    addTrigger(ActionTrigger::Before, u"stopping"_s, 1, GetParam());
    QList<std::pair<Action, EContext::Result>> refusals;
    QObject::connect(m_controller.get(), &ActionQueueController::stopped,
                     [&refusals](const Action& action, EContext::Result result) {
                         refusals.append({action, result});
                     });
    Action action(ownCommand);
    action.insert(u"positionNumber"_s, 3);
    EXPECT_EQ(m_controller->execute(action), GetParam());
    ASSERT_EQ(refusals.size(), 1);
    EXPECT_EQ(refusals.first().first, action);
    EXPECT_EQ(refusals.first().second, GetParam());
}

TEST_F(ActionQueue, actionNotStoppedByATrigger_isNotReportedAsStopped)
{
    QSignalSpy stopped(m_controller.get(), &ActionQueueController::stopped);
    EXPECT_EQ(execute(ownCommand), EContext::NotFound) << "nobody handles it";
    hostServes(ownCommand, EContext::Stop);
    addTrigger(ActionTrigger::Before, u"before"_s, 1);
    addTrigger(ActionTrigger::After, u"after"_s, 1, EContext::Stop);
    EXPECT_EQ(execute(ownCommand), EContext::Stop) << "its handler failed";
    Action elsewhere(ownCommand);
    elsewhere.setAllowContexts({EContext::OpenDocument});
    EXPECT_EQ(m_controller->execute(elsewhere), EContext::Stop);
    EXPECT_TRUE(stopped.isEmpty());
}

TEST_F(ActionQueue, triggerThrows_isReportedAsStoppedToo)
{
    hostServes(ownCommand);
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [](const Action&) -> EContext::Result { throw 42; }, ActionTrigger::Any, 1});
    QSignalSpy stopped(m_controller.get(), &ActionQueueController::stopped);
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(stopped.size(), 1);
}

TEST_F(ActionQueue, controllerDeletedByTheTriggerThatStops_nothingIsReported)
{
    hostServes(ownCommand);
    QSignalSpy stopped(m_controller.get(), &ActionQueueController::stopped);
    auto* const controller = m_controller.get();
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [this](const Action&) {
                                         m_controller.reset();
                                         return EContext::Stop;
                                     },
                                     ActionTrigger::Any, 1});
    Action action(ownCommand);
    EXPECT_EQ(controller->execute(action), EContext::Stop);
    EXPECT_TRUE(stopped.isEmpty());
}

TEST_F(ActionQueue, controllerDeletedByTrigger_actionEndsQuietly)
{
    hostServes(ownCommand);
    auto* const controller = m_controller.get();
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [this](const Action&) {
                                         m_controller.reset();
                                         return EContext::GoOn;
                                     },
                                     ActionTrigger::Any, 1});
    addTrigger(ActionTrigger::Before, u"second"_s, 2);
    Action action(ownCommand);
    EXPECT_EQ(controller->execute(action), EContext::GoOn);
    EXPECT_EQ(m_steps, words("second"));
}

TEST_F(ActionQueue, controllerDeletedByHandler_outcomeIsReturned)
{
    auto* const controller = m_controller.get();
    m_controller->host().setHandler(ownCommand, [this](Action&) {
        m_controller.reset();
        return EContext::NotFound;
    });
    addTrigger(ActionTrigger::After, u"after"_s, 1);
    Action action(ownCommand);
    EXPECT_EQ(controller->execute(action), EContext::NotFound);
    EXPECT_TRUE(m_steps.isEmpty());
}

TEST_F(ActionQueue, hookExecutesItsOwnAction_stopsAtSomeDepthAndTheNextActionRuns)
{
    int depth = 0;
    m_controller->host().addTrigger({EContext::Idle, ownCommand, ActionTrigger::Before,
                                     [&](const Action&) {
                                         depth = std::max(depth, m_controller->depth());
                                         return execute(ownCommand);
                                     },
                                     ActionTrigger::Any, 1});
    hostServes(ownCommand);
    hostServes(otherCommand);
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(depth, 32);
    EXPECT_EQ(log.lines(), QStringList(u"ERROR action Not executed at such a depth: action 1000"_s));
    EXPECT_EQ(m_controller->depth(), 0);
    EXPECT_EQ(execute(otherCommand), EContext::GoOn);
    EXPECT_EQ(m_steps, words("action"));
}

TEST_F(ActionQueue, listenerExecutesAnAction_stopsAndAQueuedOneRunsAfterTheEvent)
{
    class Executing : public BaseActivityListener
    {
    public:
        void handleEvent(const Event&) override
        {
            Action action(ownCommand);
            outcome = controller->execute(action);
            controller->enqueue(Action(otherCommand), false);
            QCoreApplication::processEvents();
        }

        ActionQueueController* controller = nullptr;
        EContext::Result outcome = EContext::GoOn;
    };
    const Own<ActivityNotifier> notifier;
    Executing listener;
    listener.controller = m_controller.get();
    Singleton<ActivityNotifier>::get()->subscribe(&listener);
    hostServes(ownCommand);
    hostServes(otherCommand);
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentOpened));
    EXPECT_EQ(listener.outcome, EContext::Stop);
    EXPECT_TRUE(m_steps.isEmpty());
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(m_steps, words("action"));
}

TEST_F(ActionQueue, actionEnded_isReportedWithHowManyStillRun)
{
    QList<int> depths;
    QObject::connect(m_controller.get(), &ActionQueueController::ended, [&](int depth) { depths.append(depth); });
    m_controller->host().setHandler(ownCommand, [this](Action&) { return execute(otherCommand); });
    m_controller->host().setHandler(otherCommand, [](Action&) -> EContext::Result { throw 42; });
    execute(ownCommand);
    EXPECT_EQ(depths, QList<int>({1, 0}));
}

TEST_F(ActionQueue, waitingActionsDropped_noneOfThemRuns)
{
    hostServes(ownCommand);
    m_controller->enqueue(Action(ownCommand), false);
    m_controller->dropWaiting();
    EXPECT_FALSE(m_controller->isBusy());
    QTest::qWait(1);
    EXPECT_TRUE(m_steps.isEmpty());
}
