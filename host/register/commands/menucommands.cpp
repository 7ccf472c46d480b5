// SPDX-License-Identifier: MIT
#include "menucommands.h"

#include "actionfactory.h"
#include "basicdialog.h"
#include "menuparams.h"
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
    controller.setHostHandler(registeraction::showMenu, [this](control::Action& action) { return showMenu(action); });
}

EContext::Result MenuCommands::showMenu(const control::Action& action)
{
    MenuParams params;
    for (const FunctionKey& entry : m_entries) {
        params.entries.append({entry, obstacle(entry)});
    }
    Event event(MenuParams::eventCode);
    event.addArgument(u"params"_s, QVariant::fromValue(params));
    const QVariantMap answer = core::BasicDialog().show(true, true, {EInput::Keyboard}, event).getData().toMap();
    bool isChosen = false;
    const int chosen = answer.value(u"entry"_s).toInt(&isChosen);
    if (!isChosen) {
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
    // Queued: the command begins where the register stands without the menu and its action.
    Singleton<ActionQueueController>::get()->enqueue(command, true);
    return EContext::GoOn;
}

QString MenuCommands::obstacle(const FunctionKey& entry) const
{
    const QSharedPointer<Document> open = m_till.document();
    if (open && entry.actionType == registeraction::returnSale) {
        return tr::Tr(u"menuReceiptOpen"_s, u"сначала завершите чек № %1"_s)
            .arg(QString::number(open->getNumber()))
            .ui();
    }
    if (open && open->isReturn() && entry.actionType == registeraction::suspend) {
        return tr::Tr(u"menuTakeBackOpen"_s, u"возврат не откладывают"_s).ui();
    }
    if (Singleton<ActionQueueController>::get()->isHandled(entry.actionType)) {
        return {};
    }
    return (open ? tr::Tr(u"menuNoPlugin"_s, u"нет модуля"_s) : tr::Tr(u"menuNoReceipt"_s, u"чек не открыт"_s)).ui();
}
