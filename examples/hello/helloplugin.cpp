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
    for (const control::EActionType wayToPay : {control::Subtotal, control::SubtotalAndPayment}) {
        addTrigger({EContext::OpenDocument, wayToPay, ActionTrigger::Before,
                    [this](const control::Action&) { return stopEmptyDocument(); }, ActionTrigger::Any, 100});
    }
    return true;
}

void HelloPlugin::handleEvent(const Event& event)
{
    if (event.getCode() == EActivityListener::DocumentClosed) {
        ++m_closedDocuments;
    }
}

EContext::Result HelloPlugin::greet()
{
    const QString greeting = Singleton<Config>::get()->getString(u"Hello:greeting"_s);
    const tr::Tr text(u"helloGreeting"_s, u"%1\nЗакрыто чеков: %2"_s);
    Dialog::create()->showMessage(text.arg(greeting).arg(QString::number(m_closedDocuments)), Dialog::Notice, 0, 0);
    return EContext::GoOn;
}

EContext::Result HelloPlugin::stopEmptyDocument()
{
    const QSharedPointer<AbstractDocument> document = getDocument();
    if (!document || !document->getPositions().isEmpty()) {
        return EContext::GoOn;
    }
    const tr::Tr text(u"helloEmptyReceipt"_s, u"В чеке нет товаров.\nДобавьте товар."_s);
    Dialog::create()->showMessage(text, Dialog::Error, 1, 0);
    return EContext::Stop;
}
