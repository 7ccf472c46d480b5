// SPDX-License-Identifier: MIT
#include "helloplugin.h"

#include "activitynotifier.h"
#include "config.h"
#include "dialog.h"

using namespace Qt::StringLiterals;

bool HelloPlugin::init()
{
    if (!Singleton<Config>::get()->getBool(u"Hello:enabled"_s)) {
        return false;
    }

    Singleton<ActivityNotifier>::get()->subscribe(this);
    addHandler({EContext::Idle, greetCommand, [this](const control::Action&) { return greet(); }, true});
    addTrigger({EContext::OpenDocument, control::Subtotal, ActionTrigger::Before,
                [this](const control::Action&) { return refuseEmptyReceipt(); }, ActionTrigger::Any, 100});
    return true;
}

void HelloPlugin::handleEvent(const Event& event)
{
    if (event.getCode() == EActivityListener::DocumentClosed) {
        ++m_closedReceipts;
    }
}

EContext::Result HelloPlugin::greet()
{
    const QString greeting = Singleton<Config>::get()->getString(u"Hello:greeting"_s);
    const tr::Tr text(u"helloGreeting"_s, u"%1\nЗакрыто чеков: %2"_s);
    Dialog::create()->showMessage(text.arg(greeting).arg(QString::number(m_closedReceipts)), Dialog::Notice, 0, 0);
    return EContext::GoOn;
}

EContext::Result HelloPlugin::refuseEmptyReceipt()
{
    const QSharedPointer<AbstractDocument> receipt = getDocument();
    if (!receipt || !receipt->getPositions().isEmpty()) {
        return EContext::GoOn;
    }
    const tr::Tr text(u"helloEmptyReceipt"_s, u"В чеке нет товаров.\nДобавьте товар."_s);
    Dialog::create()->showMessage(text, Dialog::Error, 1, 0);
    return EContext::Stop;
}
