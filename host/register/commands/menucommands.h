// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "functionkey.h"
#include "till.h"

#include <QList>
#include <QString>

/// The menu, with the commands that have no key of their own.
class MenuCommands
{
public:
    /// @param till not owned
    MenuCommands(const Till& till, const QList<FunctionKey>& entries);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result showMenu(control::Action& action);
    std::optional<Obstacle> obstacle(const FunctionKey& entry, const control::Action& menu) const;
    std::optional<Obstacle> ruleOf(const FunctionKey& entry, const control::Action& menu) const;

    const Till& m_till;
    QList<FunctionKey> m_entries;
};
