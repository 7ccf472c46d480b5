// SPDX-License-Identifier: MIT
#pragma once

#include "actionhandler.h"
#include "actiontrigger.h"
#include "export.h"

#include <QList>

#include <functional>
#include <map>
#include <optional>
#include <utility>

/// The host's side of the actions: where the register is, and who serves which action there.
///
/// Found through ActionQueueController::host(). Main thread.
class REGISTERPLATFORM_EXPORT ActionHost
{
public:
    /// A handler of the host: it gets the very action that was executed and may write results into it.
    using Handler = std::function<EContext::Result(control::Action&)>;

    /// What the host does around the triggers and the handler of an action; it returns the action's outcome.
    /// `course` runs them.
    using Frame = std::function<EContext::Result(control::Action&, const std::function<EContext::Result()>& course)>;

    /// Where the register is when no form is on top.
    EContext::Code context() const { return m_context; }
    void setContext(EContext::Code context) { m_context = context; }

    /// Sets the host's own handler of an action, in one context or in any. A later one for the same place replaces an
    /// earlier one, and one for a certain context wins over one for any.
    void setHandler(EContext::Code context, control::EActionType type, Handler handler);
    void setHandler(control::EActionType type, Handler handler);

    /// Sets an action's frame, in any context. It is not asked when nobody handles the action.
    void setFrame(control::EActionType type, Frame frame);

    /// Takes a plug-in's handler over. A host's handler wins over a plug-in's; of two plug-ins' handlers for the same
    /// place the first one wins.
    void addHandler(const ActionHandler& handler);
    /// Takes a plug-in's trigger over, behind those of the same priority.
    void addTrigger(const ActionTrigger& trigger);
    /// Forgets the plug-ins' handlers and triggers, before the plug-ins are unloaded.
    void removePluginEntries();

    /// Who handles the action in that context; empty when nobody does.
    Handler handlerOf(EContext::Code context, control::EActionType type) const;
    /// The action's frame; empty when it has none.
    Frame frameOf(control::EActionType type) const;
    /// The triggers around the action in that context, in order of priority.
    QList<ActionTrigger> triggersOf(ActionTrigger::Order order, EContext::Code context,
                                    control::EActionType type) const;

private:
    /// No context: any.
    using Place = std::pair<std::optional<EContext::Code>, control::EActionType>;

    EContext::Code m_context = EContext::Idle;
    std::map<Place, Handler> m_hostHandlers;
    std::map<control::EActionType, Frame> m_frames;
    QList<ActionHandler> m_handlers;
    QList<ActionTrigger> m_triggers;
};
