// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"

#include <functional>
#include <utility>

/// A plug-in's own command: what runs for an action in a context.
struct ActionHandler {
    using Function = std::function<EContext::Result(const control::Action&)>;

    /// @param inEnabled false: the command is known but not offered, and running it does nothing
    ActionHandler(EContext::Code inContext, control::EActionType inType, Function inHandler, bool inEnabled)
        : context(inContext)
        , actionType(inType)
        , handler(std::move(inHandler))
        , enabled(inEnabled)
    {
    }

    EContext::Code context;
    control::EActionType actionType;
    Function handler;
    bool enabled;
};
