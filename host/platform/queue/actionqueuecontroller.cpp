// SPDX-License-Identifier: MIT
#include "actionqueuecontroller.h"

#include "actionhost.h"
#include "activitynotifier.h"
#include "caughtfailure.h"
#include "dialog.h"
#include "graphicaluserinterface.h"
#include "inputblocker.h"
#include "listenerhost.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

template struct Singleton<ActionQueueController>;

namespace
{

/// A waiting action checks this often whether the RestClient call, or the event, has ended.
constexpr std::chrono::milliseconds blockedRetry{20};

/// Actions that run inside one another. More are a hook that executes its own action.
constexpr int deepestAction = 32;

void logFailure(const QString& description)
{
    Log4Qt::LogManager::logger(u"action"_s)->error(description);
}

/// Logs the exception that is being handled and returns its text for the cashier.
tr::Tr reportCaughtException()
{
    const Failure caught = caughtFailure();
    logFailure(u"Stopped by "_s + caught.detail);
    return caught.text;
}

void showToCashier(const tr::Tr& message)
{
    try {
        Dialog::create()->showMessage(message, Dialog::Error, 1, 0);
    } catch (...) {
        reportCaughtException();
    }
}

/// What a handler or trigger returns, or Stop when it throws.
EContext::Result guarded(const std::function<EContext::Result()>& step)
{
    try {
        return step();
    } catch (...) {
        showToCashier(reportCaughtException());
        return EContext::Stop;
    }
}

/// True while listeners hear of an event: they are told what has happened, before anything else happens.
bool isReporting()
{
    ActivityNotifier* notifier = Singleton<ActivityNotifier>::instance;
    return notifier && notifier->host().reporting > 0;
}

bool waitsFor(ActionTrigger::Result expected, EContext::Result outcome)
{
    switch (expected) {
    case ActionTrigger::Done:
        return outcome == EContext::GoOn;
    case ActionTrigger::Failed:
        return outcome != EContext::GoOn;
    default:
        return true;
    }
}

} // namespace

ActionQueueController::ActionQueueController(QObject* parent)
    : QObject(parent)
    , m_host(std::make_unique<ActionHost>())
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ActionQueueController::runNext);
}

ActionQueueController::~ActionQueueController() = default;

void ActionQueueController::enqueue(const control::Action& action, bool immediately)
{
    if (action.getType() == control::DialogAnswer) {
        Singleton<GraphicalUserInterface>::get()->answer(action);
        return;
    }
    if (immediately) {
        m_queue.prepend(action);
    } else {
        m_queue.append(action);
    }
    scheduleNext();
}

EContext::Result ActionQueueController::execute(control::Action& action)
{
    if (action.getType() == control::DialogAnswer) {
        Singleton<GraphicalUserInterface>::get()->answer(action);
        return EContext::GoOn;
    }
    const EContext::Code here = context();
    const auto& allowed = action.getAllowContexts();
    if (InputBlocker::isActive() || (!allowed.isEmpty() && !allowed.contains(here))) {
        return EContext::Stop;
    }
    if (isReporting() || m_depth >= deepestAction) {
        logFailure(u"Not executed %1: action %2"_s.arg(isReporting() ? u"during an event"_s : u"at such a depth"_s)
                       .arg(action.getType()));
        return EContext::Stop;
    }
    const Step handler = m_host->handlerOf(here, action.getType());
    if (!handler) {
        return EContext::NotFound;
    }

    const QPointer<ActionQueueController> self(this); // what runs below may delete the controller
    const Finally leaving = enterAction();
    const ActionHost::Frame frame = m_host->frameOf(action.getType());
    if (!frame) {
        return runCourse(here, action, handler);
    }
    return guarded(
        [&] { return frame(action, [&] { return self ? runCourse(here, action, handler) : EContext::Stop; }); });
}

EContext::Result ActionQueueController::runCourse(EContext::Code context, control::Action& action, const Step& handler)
{
    const QPointer<ActionQueueController> self(this);
    const EContext::Result permission = runTriggersBefore(context, action);
    if (permission != EContext::GoOn || !self) {
        if (self) {
            emit stopped(action, permission);
        }
        return permission;
    }
    const EContext::Result outcome = guarded([&] { return handler(action); });
    if (self) {
        runTriggersAfter(context, action, outcome);
    }
    return outcome;
}

EContext::Code ActionQueueController::context() const
{
    const GraphicalUserInterface* gui = Singleton<GraphicalUserInterface>::instance;
    const QSharedPointer<BasicForm> form = gui ? gui->topForm() : nullptr;
    return form ? form->contextCode() : m_host->context();
}

bool ActionQueueController::isHandled(control::EActionType type) const
{
    return bool(m_host->handlerOf(context(), type));
}

bool ActionQueueController::isBusy() const
{
    return m_depth > 0 || !m_queue.isEmpty();
}

void ActionQueueController::dropWaiting()
{
    m_queue.clear();
}

void ActionQueueController::scheduleNext(std::chrono::milliseconds delay)
{
    if (!m_next.isActive() && m_depth == 0 && !m_queue.isEmpty()) {
        m_next.start(delay);
    }
}

void ActionQueueController::runNext()
{
    if (m_depth > 0 || m_queue.isEmpty()) {
        return;
    }
    if (InputBlocker::isActive() || isReporting()) {
        scheduleNext(blockedRetry);
        return;
    }
    const Finally leaving = enterAction(); // also for one that nobody handles: the next one follows
    control::Action action = m_queue.takeFirst();
    execute(action);
}

Finally ActionQueueController::enterAction()
{
    ++m_depth;
    return Finally([self = QPointer<ActionQueueController>(this)] {
        if (self) {
            self->leaveAction();
        }
    });
}

void ActionQueueController::leaveAction()
{
    --m_depth;
    const QPointer<ActionQueueController> self(this);
    emit ended(m_depth);
    if (!self) {
        return;
    }
    if (isBusy()) {
        scheduleNext();
    } else {
        emit idle();
    }
}

EContext::Result ActionQueueController::runTriggersBefore(EContext::Code context, const control::Action& action)
{
    for (const ActionTrigger& trigger : m_host->triggersOf(ActionTrigger::Before, context, action.getType())) {
        const EContext::Result permission = guarded([&] { return trigger.handler(action); });
        if (permission != EContext::GoOn) {
            return permission;
        }
    }
    return EContext::GoOn;
}

void ActionQueueController::runTriggersAfter(EContext::Code context, const control::Action& action,
                                             EContext::Result outcome)
{
    for (const ActionTrigger& trigger : m_host->triggersOf(ActionTrigger::After, context, action.getType())) {
        if (waitsFor(trigger.result, outcome)) {
            guarded([&] { return trigger.handler(action); });
        }
    }
}
