// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"

#include <functional>
#include <utility>

/// A plug-in's hook around an action of the register.
struct ActionTrigger {
    using Function = std::function<EContext::Result(const control::Action&)>;

    enum Order : int {
        Before = 1, ///< before the action, which goes on only when every such hook returns GoOn
        After = 2,  ///< after it; what the hook returns changes nothing
    };

    /// For a hook after the action: the outcome it waits for. A hook before the action has none.
    enum Result : int {
        Any = 0,
        Done = 1,   ///< only when the action returned GoOn
        Failed = 2, ///< only when it did not
    };

    /// @param inPriority the smaller one runs first; equal ones run in the order in which they were added
    ActionTrigger(EContext::Code inContext, control::EActionType inType, Order inOrder, Function inHandler,
                  Result inResult, int inPriority)
        : context(inContext)
        , actionType(inType)
        , order(inOrder)
        , handler(std::move(inHandler))
        , result(inResult)
        , priority(inPriority)
    {
    }

    EContext::Code context;
    control::EActionType actionType;
    Order order;
    Function handler;
    Result result;
    int priority;
};
