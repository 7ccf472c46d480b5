// SPDX-License-Identifier: MIT
#pragma once

#include "actionhost.h"
#include "actionqueuecontroller.h"

#include <span>

/// Where a command works.
enum class Where {
    Everywhere,
    OpenDocument, ///< only while a document is open
};

/// A command of the register: the action that gives it, and the member of `Commands` that carries it out.
template <typename Commands>
struct Command {
    control::EActionType action;
    Where where;
    EContext::Result (Commands::*run)(control::Action&);
};

/// Makes the register handle the actions of a table of commands.
/// @param commands has to outlive the controller's use of it
template <typename Commands>
void offerCommands(ActionQueueController& controller, Commands& commands, std::span<const Command<Commands>> table)
{
    for (const Command<Commands>& command : table) {
        const auto run = [&commands, member = command.run](control::Action& action) {
            return (commands.*member)(action);
        };
        if (command.where == Where::OpenDocument) {
            controller.host().setHandler(EContext::OpenDocument, command.action, run);
        } else {
            controller.host().setHandler(command.action, run);
        }
    }
}
