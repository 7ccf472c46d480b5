// SPDX-License-Identifier: MIT
#include "testplugin.h"

#include "basicexception.h"

#include <QCoreApplication>
#include <QStringList>

namespace
{

void tell(const QString& what)
{
    const QStringList told = qApp->property("testPlugin").toStringList();
    qApp->setProperty("testPlugin", told + QStringList(what));
}

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
#ifdef INIT_THROWS
    throw BasicException(tr::Tr(tr::undefined, QStringLiteral("нет связи")));
#endif
    return INIT_RETURNS;
}

void TestPlugin::deinit()
{
    tell(QStringLiteral("deinit"));
}
