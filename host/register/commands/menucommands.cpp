// SPDX-License-Identifier: MIT
#include "menucommands.h"

#include "askform.h"
#include "commandtable.h"
#include "keycommands.h"
#include "menuparams.h"
#include "registeraction.h"

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

MenuCommands::MenuCommands(const Till& till, const QList<FunctionKey>& entries)
    : m_till(till)
    , m_entries(entries)
{
}

void MenuCommands::offer(ActionQueueController& controller)
{
    using Commands = MenuCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::showMenu, Where::Everywhere, &Commands::showMenu},
    };
    offerCommands<Commands>(controller, *this, table);
}

EContext::Result MenuCommands::showMenu(control::Action& action)
{
    MenuParams params;
    for (const FunctionKey& entry : m_entries) {
        params.entries.append({entry, obstacle(entry, action)});
    }
    bool isChosen = false;
    const int chosen = askForm(MenuParams::eventCode, params).value(u"entry"_s).toInt(&isChosen);
    if (!isChosen || chosen < 0 || chosen >= m_entries.size()) {
        return EContext::Stop;
    }

    const control::Action command = actionOf(m_entries.at(chosen), action.value(u"positionNumber"_s).toInt());
    // Queued: the command begins after the menu and its action have ended.
    Singleton<ActionQueueController>::get()->enqueue(command, true);
    return EContext::GoOn;
}

std::optional<Obstacle> MenuCommands::obstacle(const FunctionKey& entry, const control::Action& menu) const
{
    const std::optional<Obstacle> rule = ruleOf(entry, menu);
    return rule ? rule : obstacleToKey(entry, m_till);
}

/// What the till has against the entry's command.
std::optional<Obstacle> MenuCommands::ruleOf(const FunctionKey& entry, const control::Action& menu) const
{
    const auto isOneOf = [&entry](std::initializer_list<control::EActionType> types) {
        return std::find(types.begin(), types.end(), entry.actionType) != types.end();
    };
    if (isOneOf({registeraction::returnSale})) {
        return m_till.obstacleToAnotherDocument();
    }
    const QSharedPointer<Document> document = m_till.document();
    if (!document) {
        return std::nullopt;
    }
    if (isOneOf({registeraction::suspend})) {
        return m_till.obstacleToSuspending();
    }
    if (isOneOf({control::Subtotal, control::SubtotalAndPayment})) {
        return m_till.obstacleToPayment();
    }
    if (isOneOf({control::CancelDocument, control::CancelDocumentFromMenu, registeraction::askToCancelDocument})) {
        return m_till.obstacleToCancelling();
    }
    if (isOneOf({control::RemovePosition, registeraction::askToRemovePosition})) {
        const auto position = document->position(menu.value(u"positionNumber"_s).toInt());
        return position ? m_till.obstacleOfPlugin(*position) : std::nullopt;
    }
    return std::nullopt;
}
