// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "export.h"
#include "finally.h"
#include "singleton.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

class ActionHost;

/// Runs actions: the triggers before an action, its handler, the triggers after it.
///
/// One action runs at a time, except that a handler may execute() another one, and that a dialog answer (187) is always
/// served at once. While a RestClient call runs, or listeners hear of an event, no action runs. An exception from a
/// handler or trigger is caught, shown to the cashier, logged, and counts as EContext::Stop. Main thread.
class REGISTERPLATFORM_EXPORT ActionQueueController : public QObject
{
    Q_OBJECT

public:
    explicit ActionQueueController(QObject* parent = nullptr);
    ~ActionQueueController() override;

    /// Queues an action; it runs from the event loop as soon as no other action runs. One that may not run then, or
    /// that nobody handles in the context of then, is dropped.
    ///
    /// @param immediately true: ahead of the actions that wait. A dialog answer (187) goes to the form on top during
    ///        this call, also inside another action.
    virtual void enqueue(const control::Action& action, bool immediately);

    /// Runs an action now and returns its outcome; what the host's handler wrote is in `action` afterwards.
    ///
    /// Stop when the context is not among the action's allowed ones, when a RestClient call runs, when listeners hear
    /// of an event, and when too many actions run inside one another; NotFound when nobody handles it there: then no
    /// trigger runs either. The triggers before it run in order of priority; the first that does not return GoOn ends
    /// the action, and its result is returned. The triggers after it run only when the handler ran; their results
    /// change nothing.
    virtual EContext::Result execute(control::Action& action);

    /// Where the register is. A form on top counts as its own contextCode().
    virtual EContext::Code context() const;

    /// True when the action has a handler in the present context, so that a key can be shown as usable.
    bool isHandled(control::EActionType type) const;
    /// True while an action runs or waits.
    bool isBusy() const;
    /// How many actions run inside one another; 0 when none runs.
    int depth() const { return m_depth; }
    /// Forgets the actions that wait. For the host, before it ends.
    void dropWaiting();

    /// The host's side; a plug-in has no use for it.
    ActionHost& host() { return *m_host; }

signals:
    /// No action runs or waits.
    void idle();
    /// An action has come to its end, in whatever way.
    /// @param depth how many actions still run
    void ended(int depth);
    /// A trigger ended the action before its handler ran.
    /// @param result what the trigger returned: EContext::Stop, EContext::NotFound …
    void stopped(const control::Action& action, EContext::Result result);

private:
    using Step = std::function<EContext::Result(control::Action&)>;

    void scheduleNext(std::chrono::milliseconds delay = {});
    void runNext();
    /// The action runs until the returned object is destroyed.
    Finally enterAction();
    void leaveAction();
    EContext::Result runCourse(EContext::Code context, control::Action& action, const Step& handler);
    EContext::Result runTriggersBefore(EContext::Code context, const control::Action& action);
    void runTriggersAfter(EContext::Code context, const control::Action& action, EContext::Result outcome);

    std::unique_ptr<ActionHost> m_host;
    QList<control::Action> m_queue;
    int m_depth = 0; ///< how many actions run inside one another
    QTimer m_next;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<ActionQueueController>;
