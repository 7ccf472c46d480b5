// SPDX-License-Identifier: MIT
#include "keycommands.h"

#include "actionfactory.h"
#include "commandtable.h"
#include "obstaclenotice.h"
#include "registeraction.h"
#include "tr.h"

using namespace Qt::StringLiterals;

namespace
{

bool isHandledIn(EContext::Code context, control::EActionType type)
{
    return bool(Singleton<ActionQueueController>::get()->host().handlerOf(context, type));
}

/// Why nobody handles the action in the present context.
Obstacle reasonOf(control::EActionType type, const Till& till)
{
    if (isHandledIn(EContext::OpenDocument, type) && !till.document()) {
        return {{u"keyNeedsReceipt"_s, u"«%1» работает при открытом чеке.\nОткройте чек и повторите."_s},
                {u"menuNoReceipt"_s, u"чек не открыт"_s}};
    }
    if (isHandledIn(EContext::Idle, type)) {
        const tr::Tr finish{u"keyNeedsNoDocument"_s,
                            u"«%1» работает, когда чек не открыт.\nЗавершите открытый документ и повторите."_s};
        const tr::Tr finishOrSuspend{u"keyNeedsNoReceipt"_s,
                                     u"«%1» работает, когда чек не открыт.\nЗавершите или отложите чек и повторите."_s};
        return {till.obstacleToSuspending() ? finish : finishOrSuspend, {u"menuNeedsNoReceipt"_s, u"открыт чек"_s}};
    }
    if (isHandledIn(EContext::StoredDocuments, type)) {
        return {{u"keyNeedsDocuments"_s, u"«%1» работает в списке документов.\nОткройте его через меню и повторите."_s},
                {u"menuNeedsDocuments"_s, u"только в списке документов"_s}};
    }
    return {{u"keyNeedsPlugin"_s, u"«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                                  "Обратитесь к администратору."_s},
            {u"menuNoPlugin"_s, u"нет модуля"_s}};
}

/// What a plug-in's command has to do with returns: nothing.
Obstacle onlyInSales()
{
    return {{u"pluginCommandInReturn"_s, u"Открыт возврат, а эта команда действует только в продаже.\nЗавершите "
                                         "возврат, откройте чек и повторите."_s},
            {u"menuOnlyInSales"_s, u"только в продаже"_s}};
}

/// Each plug-in's command adds goods in the end. It is stopped before the cashier goes the whole way for nothing.
std::optional<Obstacle> obstacleToPluginCommand(const Till& till)
{
    const bool isReturn = till.document() && till.document()->isReturn();
    return isReturn ? onlyInSales() : till.obstacleToAddingGoods();
}

/// A command that the cashier left leaves no receipt, as a selection of goods that the cashier left opens none.
void cancelIfEmpty(const Document& opened)
{
    if (opened.positions().isEmpty()) {
        control::Action cancellation = Singleton<control::ActionFactory>::get()->create(control::CancelDocument);
        Singleton<ActionQueueController>::get()->execute(cancellation);
    }
}

} // namespace

std::optional<Obstacle> obstacleToKey(const FunctionKey& key, const Till& till)
{
    if (doesSomething(key)) {
        return std::nullopt;
    }
    Obstacle reason = reasonOf(key.actionType, till);
    reason.text = reason.text.arg(key.text);
    return reason;
}

KeyCommands::KeyCommands(Till& till)
    : m_till(till)
{
}

void KeyCommands::offer(ActionQueueController& controller)
{
    using Commands = KeyCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::explainKey, Where::Everywhere, &Commands::explainKey},
        {registeraction::openSaleFor, Where::Everywhere, &Commands::openSaleFor},
    };
    offerCommands<Commands>(controller, *this, table);
    controller.host().setFrame(control::PluginCommand, [this](control::Action&, const auto& course) {
        return showIfObstacle(obstacleToPluginCommand(m_till)) ? EContext::Stop : course();
    });
}

EContext::Result KeyCommands::explainKey(control::Action& action)
{
    const FunctionKey key{.name = {},
                          .text = action.value(u"text"_s).toString(),
                          .shortcut = {},
                          .actionType = control::EActionType(action.value(u"action"_s).toInt()),
                          .arguments = {}};
    showIfObstacle(obstacleToKey(key, m_till));
    return EContext::GoOn;
}

EContext::Result KeyCommands::openSaleFor(control::Action& action)
{
    if (showIfObstacle(m_till.obstacleToOpening())) {
        return EContext::Stop;
    }
    m_till.open();
    const auto type = control::EActionType(action.value(u"action"_s).toInt());
    control::Action command = Singleton<control::ActionFactory>::get()->create(type);
    const QVariantMap arguments = action.value(u"arguments"_s).toMap();
    for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument) {
        command.insert(argument.key(), argument.value());
    }
    const QSharedPointer<Document> opened = m_till.document();
    const EContext::Result result = Singleton<ActionQueueController>::get()->execute(command);
    if (result == EContext::Stop && m_till.document() == opened) {
        cancelIfEmpty(*opened);
    }
    return result;
}
