// SPDX-License-Identifier: MIT
#include "actionhost.h"

#include <algorithm>
#include <iterator>

void ActionHost::setHandler(EContext::Code context, control::EActionType type, Handler handler)
{
    m_hostHandlers.insert_or_assign({context, type}, std::move(handler));
}

void ActionHost::setHandler(control::EActionType type, Handler handler)
{
    m_hostHandlers.insert_or_assign({std::nullopt, type}, std::move(handler));
}

void ActionHost::setFrame(control::EActionType type, Frame frame)
{
    m_frames.insert_or_assign(type, std::move(frame));
}

void ActionHost::addHandler(const ActionHandler& handler)
{
    m_handlers.append(handler);
}

void ActionHost::addTrigger(const ActionTrigger& trigger)
{
    const auto runsEarlier = [](const ActionTrigger& a, const ActionTrigger& b) { return a.priority < b.priority; };
    m_triggers.insert(std::upper_bound(m_triggers.cbegin(), m_triggers.cend(), trigger, runsEarlier), trigger);
}

void ActionHost::removePluginEntries()
{
    m_handlers.clear();
    m_triggers.clear();
}

ActionHost::Handler ActionHost::handlerOf(EContext::Code context, control::EActionType type) const
{
    for (const std::optional<EContext::Code>& place : {std::optional(context), std::optional<EContext::Code>()}) {
        const auto found = m_hostHandlers.find({place, type});
        if (found != m_hostHandlers.end()) {
            return found->second;
        }
    }
    for (const ActionHandler& candidate : m_handlers) {
        if (candidate.enabled && candidate.context == context && candidate.actionType == type) {
            return candidate.handler;
        }
    }
    return {};
}

ActionHost::Frame ActionHost::frameOf(control::EActionType type) const
{
    const auto found = m_frames.find(type);
    return found == m_frames.end() ? Frame() : found->second;
}

QList<ActionTrigger> ActionHost::triggersOf(ActionTrigger::Order order, EContext::Code context,
                                            control::EActionType type) const
{
    QList<ActionTrigger> matching;
    std::copy_if(m_triggers.cbegin(), m_triggers.cend(), std::back_inserter(matching),
                 [=](const ActionTrigger& trigger) {
                     return trigger.order == order && trigger.context == context && trigger.actionType == type;
                 });
    return matching;
}
