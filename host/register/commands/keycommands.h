// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "functionkey.h"
#include "till.h"

/// What a key does whose action cannot run where the register is: it opens a sale for a plug-in's command, or says why
/// nothing happens.
class KeyCommands
{
public:
    /// @param till not owned
    explicit KeyCommands(Till& till);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result explainKey(control::Action& action);
    EContext::Result openSaleFor(control::Action& action);

    Till& m_till;
};

/// Why a key's action cannot run now; nothing: it can, or a sale is opened for it.
std::optional<Obstacle> obstacleToKey(const FunctionKey& key, const Till& till);
