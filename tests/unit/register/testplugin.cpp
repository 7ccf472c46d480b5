// SPDX-License-Identifier: MIT
#include "testplugin.h"

#include "activitynotifier.h"
#include "basicexception.h"
#include "graphicaluserinterface.h"

#include <QCoreApplication>
#include <QStringList>

namespace
{

void tell(const QString& what)
{
    const QStringList told = qApp->property("testPlugin").toStringList();
    qApp->setProperty("testPlugin", told + QStringList(what));
}

struct NoForms : BasicFormCreator {
    QSharedPointer<BasicForm> create(const Event&) override { return nullptr; }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }
};

} // namespace

TestPlugin::~TestPlugin()
{
    tell(QStringLiteral("destroyed"));
}

bool TestPlugin::init()
{
    tell(QStringLiteral("init"));
    addHandler(
        {EContext::OpenReceipt, control::PluginCommand, [](const control::Action&) { return EContext::GoOn; }, true});
    addTrigger({EContext::OpenReceipt, control::StornoPosition, ActionTrigger::Before,
                [](const control::Action&) { return EContext::Stop; }, ActionTrigger::Any, 1});
    Singleton<GraphicalUserInterface>::get()->addFormCreator(QSharedPointer<NoForms>::create());
    Singleton<ActivityNotifier>::get()->subscribe(this);
#ifdef INIT_THROWS
    throw BasicException(tr::Tr(tr::undefined, QStringLiteral("нет связи")));
#endif
    return INIT_RETURNS;
}

void TestPlugin::deinit()
{
    tell(QStringLiteral("deinit"));
}

void TestPlugin::handleEvent(const Event& event)
{
    tell(QStringLiteral("event ") + QString::number(event.getCode()));
}
