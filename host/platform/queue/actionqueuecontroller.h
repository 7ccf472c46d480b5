// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "actionhandler.h"
#include "actiontrigger.h"
#include "export.h"
#include "finally.h"
#include "singleton.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <utility>

/// Runs actions: the triggers before it, the handler, the triggers after it.
///
/// One action runs at a time, except that a handler may itself execute() another one, and that a dialog answer (187)
/// is always served at once. While a RestClient call runs no action runs. Whatever a handler or trigger throws is
/// caught, shown to the cashier, logged, and counts as EContext::Stop. Main thread.
class REGISTERPLATFORM_EXPORT ActionQueueController : public QObject
{
    Q_OBJECT

public:
    /// A handler of the host: it gets the very action that was executed and may write results into it.
    using HostFunction = std::function<EContext::Result(control::Action&)>;

    explicit ActionQueueController(QObject* parent = nullptr);
    ~ActionQueueController() override;

    /// Queues an action; it runs from the event loop as soon as no other action runs. One that may not run, or that
    /// nobody handles where the register stands then, is dropped.
    ///
    /// @param immediately true: ahead of the actions that wait. A dialog answer (187) goes to the form on top during
    ///        this call, also inside another action.
    virtual void enqueue(const control::Action& action, bool immediately);

    /// Runs an action now and returns its outcome; what the host's handler wrote is in `action` afterwards.
    ///
    /// Stop when the context is not among the action's allowed ones or when a RestClient call runs; NotFound when
    /// nobody handles it there: then no trigger runs either. The triggers before it run in order of priority; the
    /// first that does not return GoOn ends the action, and its result is returned. The triggers after it run only
    /// when the handler ran; their results change nothing.
    virtual EContext::Result execute(control::Action& action);

    /// Where the register stands. A form on top counts as its own contextCode().
    virtual EContext::Code context() const;
    /// For the host: where the register stands when no form is on top.
    void setContext(EContext::Code context);

    /// For the host: its own handler of an action, in one context or in any; a later one for the same place replaces
    /// an earlier one, and one for a certain context wins over one for any.
    void setHostHandler(EContext::Code context, control::EActionType type, HostFunction handler);
    void setHostHandler(control::EActionType type, HostFunction handler);

    /// What the host does around the triggers and the handler of an action; it returns the action's outcome.
    using HostFrame =
        std::function<EContext::Result(control::Action&, const std::function<EContext::Result()>& course)>;
    /// For the host: sets an action's frame, in any context. It is not asked when nobody handles the action.
    void setHostFrame(control::EActionType type, HostFrame frame);

    /// For the host: takes a plug-in's handlers and triggers over. A host handler wins over a plug-in's; of two
    /// plug-ins' handlers for the same place the first one wins.
    void addHandler(const ActionHandler& handler);
    void addTrigger(const ActionTrigger& trigger);
    /// For the host: forgets the plug-ins' handlers and triggers, before the plug-ins are unloaded.
    void removePluginEntries();

    /// True when somebody would handle the action in the present context, so that a key can be shown as usable.
    bool isHandled(control::EActionType type) const;
    /// True while an action runs or waits.
    bool isBusy() const;

signals:
    /// Nothing runs and nothing waits any more.
    void idle();
    /// A trigger ended the action before its handler ran.
    /// @param result what the trigger returned: EContext::Stop, EContext::NotFound …
    void stopped(const control::Action& action, EContext::Result result);

private:
    /// The context may be "any".
    using Place = std::pair<std::optional<EContext::Code>, control::EActionType>;

    void scheduleNext(std::chrono::milliseconds delay = {});
    void runNext();
    /// An action runs until what is returned is destroyed.
    Finally enterAction();
    void leaveAction();
    HostFunction handlerOf(EContext::Code context, control::EActionType type) const;
    QList<ActionTrigger> triggersOf(ActionTrigger::Order order, EContext::Code context,
                                    control::EActionType type) const;
    EContext::Result runCourse(EContext::Code context, control::Action& action, const HostFunction& handler);
    EContext::Result runTriggersBefore(EContext::Code context, const control::Action& action);
    void runTriggersAfter(EContext::Code context, const control::Action& action, EContext::Result outcome);

    QList<control::Action> m_queue;
    std::map<Place, HostFunction> m_hostHandlers;
    std::map<control::EActionType, HostFrame> m_hostFrames;
    QList<ActionHandler> m_handlers;
    QList<ActionTrigger> m_triggers;
    EContext::Code m_context = EContext::Idle;
    int m_depth = 0; ///< how many actions run inside one another
    QTimer m_next;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ActionQueueController>;
