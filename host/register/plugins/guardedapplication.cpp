// SPDX-License-Identifier: MIT
#include "guardedapplication.h"

#include "caughtfailure.h"
#include "graphicaluserinterface.h"
#include "pluginlibraries.h"
#include "pluginscope.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QEvent>
#include <QPointer>
#include <QThread>

#include <exception>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

void logFailure(const QString& plugin, const char* receiver, QEvent::Type event, const QString& detail)
{
    const QString name = plugin.isEmpty() ? u"no known plug-in"_s : u"plug-in "_s + plugin;
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"%1: %2 left event %3 of %4"_s.arg(name, detail, QString::number(event), QLatin1StringView(receiver)));
}

} // namespace

GuardedApplication::GuardedApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
}

GuardedApplication::~GuardedApplication() = default;

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    if (QThread::currentThread() != thread()) {
        return QApplication::notify(receiver, event);
    }
    return guard(*receiver, *event, pluginOf(*receiver));
}

bool GuardedApplication::guard(QObject& receiver, QEvent& event, const QString& plugin)
{
    const QPointer<QObject> alive(&receiver);
    const char* className = receiver.metaObject()->className();
    const QEvent::Type type = event.type();
    const QString caller = PluginScope::current();
    try {
        const PluginScope scope(plugin.isEmpty() ? caller : plugin);
        return QApplication::notify(&receiver, &event);
    } catch (...) {
        QString owner = plugin;
        for (const QObject* object = alive; object && owner.isEmpty(); object = object->parent()) {
            owner = pluginOf(*object);
        }
        if (owner.isEmpty()) {
            owner = caller;
        }
        const Failure caught = caughtFailure();
        logFailure(owner, className, type, caught.detail);
        if (!alive || !Singleton<GraphicalUserInterface>::get()->fail(*alive, std::current_exception())) {
            QMetaObject::invokeMethod(
                this, [this, owner, text = caught.text] { emit failed(owner, text); }, Qt::QueuedConnection);
        }
        return true;
    }
}

/// Asked for each event: a class is looked up once.
QString GuardedApplication::pluginOf(const QObject& object)
{
    const QMetaObject* meta = object.metaObject();
    const auto known = m_plugins.constFind(meta);
    if (known != m_plugins.cend()) {
        return *known;
    }
    return *m_plugins.insert(meta, pluginlibraries::ownerOf(meta));
}
