// SPDX-License-Identifier: MIT
#include "testplugin.h"

#include "activitynotifier.h"
#include "basicexception.h"
#include "cardterminals.h"
#include "graphicaluserinterface.h"
#include "pluginscope.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

void note(const QString& what)
{
    const QStringList shown = qApp->property("testPlugin").toStringList();
    qApp->setProperty("testPlugin", shown + QStringList(what));
}

struct NoForms : BasicFormCreator {
    QSharedPointer<BasicForm> create(const Event&) override { return nullptr; }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }
};

struct NoTerminal : CardTerminal {
    CardAnswer pay(const CardRequest&) override { return {}; }
    CardAnswer refund(const CardRequest&) override { return {}; }
    CardAnswer find(const QString&) override { return {}; }
};

} // namespace

TestPlugin::~TestPlugin()
{
    note(u"destroyed"_s);
}

bool TestPlugin::init()
{
    note(u"init"_s);
    addHandler({EContext::OpenDocument, control::PluginCommand,
                [](const control::Action&) {
                    qApp->setProperty("handlerScope", PluginScope::current());
                    return EContext::GoOn;
                },
                true});
    addTrigger({EContext::OpenDocument, control::RemovePosition, ActionTrigger::Before,
                [](const control::Action&) {
                    qApp->setProperty("triggerScope", PluginScope::current());
                    return EContext::Stop;
                },
                ActionTrigger::Any, 1});
    Singleton<GraphicalUserInterface>::get()->addFormCreator(QSharedPointer<NoForms>::create());
    Singleton<CardTerminals>::get()->add(QSharedPointer<NoTerminal>::create());
    Singleton<ActivityNotifier>::get()->subscribe(this);
#ifdef INIT_THROWS
    throw BasicException(tr::Tr(tr::undefined, u"нет связи"_s));
#endif
    return INIT_RETURNS;
}

void TestPlugin::deinit()
{
    note(u"deinit"_s);
    std::puts("testplugin deinit"); // for a test that sees the program from outside
}

void TestPlugin::handleEvent(const Event& event)
{
    note(u"event "_s + QString::number(event.getCode()));
}
