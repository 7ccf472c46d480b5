// SPDX-License-Identifier: MIT
#include "menucommands.h"

#include "actionfactory.h"
#include "askform.h"
#include "commandtable.h"
#include "menuparams.h"
#include "notice.h"
#include "registeraction.h"
#include "tr.h"

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
        {registeraction::explainKey, Where::Everywhere, &Commands::explainKey},
    };
    offerCommands<Commands>(controller, *this, table);
}

EContext::Result MenuCommands::showMenu(control::Action& action)
{
    MenuParams params;
    for (const FunctionKey& entry : m_entries) {
        params.entries.append({entry, obstacle(entry)});
    }
    bool isChosen = false;
    const int chosen = askForm(MenuParams::eventCode, params).value(u"entry"_s).toInt(&isChosen);
    if (!isChosen || chosen < 0 || chosen >= m_entries.size()) {
        return EContext::Stop;
    }

    const FunctionKey& entry = m_entries.at(chosen);
    control::Action command = Singleton<control::ActionFactory>::get()->create(entry.actionType);
    for (auto argument = entry.arguments.cbegin(); argument != entry.arguments.cend(); ++argument) {
        command.insert(argument.key(), argument.value());
    }
    const QString position = u"positionNumber"_s;
    if (action.value(position).isValid()) {
        command.insert(position, action.value(position));
    }
    // Queued: the command begins after the menu and its action have ended.
    Singleton<ActionQueueController>::get()->enqueue(command, true);
    return EContext::GoOn;
}

std::optional<Obstacle> MenuCommands::obstacle(const FunctionKey& entry) const
{
    std::optional<Obstacle> rule;
    if (entry.actionType == registeraction::returnSale) {
        rule = m_till.obstacleToAnotherDocument();
    } else if (entry.actionType == registeraction::suspend) {
        rule = m_till.obstacleToSuspending();
    }
    if (rule || Singleton<ActionQueueController>::get()->isHandled(entry.actionType)) {
        return rule;
    }
    return Obstacle{m_till.document() ? tr::Tr(u"menuNoPlugin"_s, u"нет модуля"_s)
                                      : tr::Tr(u"menuNoReceipt"_s, u"чек не открыт"_s)};
}

EContext::Result MenuCommands::explainKey(control::Action& action)
{
    const tr::Tr withoutDocument(u"keyNeedsReceipt"_s,
                                 u"«%1» работает при открытом чеке.\nОткройте чек и повторите."_s);
    const tr::Tr withoutPlugin(u"keyNeedsPlugin"_s,
                               u"«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                               "Обратитесь к администратору."_s);
    showNotice((m_till.document() ? withoutPlugin : withoutDocument).arg(action.value(u"text"_s).toString()));
    return EContext::GoOn;
}
