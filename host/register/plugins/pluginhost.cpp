// SPDX-License-Identifier: MIT
#include "pluginhost.h"

#include "abstractplugin.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "config.h"
#include "expected.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "listenerhost.h"
#include "pluginscope.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QPluginLoader>

#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

struct PluginHost::Loaded {
    QString name;
    std::unique_ptr<QPluginLoader> loader;
    AbstractPlugin* plugin; ///< owned by the loader; null: it stays idle
};

namespace
{

/// The file name of the library without "lib" and without everything after the first point.
QString pluginName(const QFileInfo& library)
{
    const QString name = library.baseName();
    return name.startsWith("lib"_L1) ? name.mid(3) : name;
}

/// The function, run in the scope of its plug-in.
ActionHandler::Function inScope(const QString& plugin, ActionHandler::Function function)
{
    return [plugin, function = std::move(function)](const control::Action& action) {
        const PluginScope scope(plugin);
        return function(action);
    };
}

Failure failure(const QString& reason)
{
    return {{tr::undefined, reason}, reason};
}

/// The result of init(), or the exception that it threw.
Expected<bool> initialise(AbstractPlugin& plugin)
{
    try {
        return plugin.init();
    } catch (const BasicException& exception) {
        return Failure{exception.tr(), exception.tr().ui()};
    } catch (const std::exception& exception) {
        return failure(QString::fromUtf8(exception.what()));
    } catch (...) {
        return failure(u"unknown exception"_s);
    }
}

/// The form creators, listeners and card terminal that are registered with the platform when it is constructed.
class Registrations
{
public:
    /// Removes everything that was registered later.
    void restore() const
    {
        Singleton<GraphicalUserInterface>::get()->host().creators = m_formCreators;
        Singleton<ActivityNotifier>::get()->host().listeners = m_listeners;
        Singleton<CardTerminals>::get()->host() = m_cardTerminal;
    }

private:
    const QList<QSharedPointer<BasicFormCreator>> m_formCreators =
        Singleton<GraphicalUserInterface>::get()->host().creators;
    const QList<ListenerHost::Subscription> m_listeners = Singleton<ActivityNotifier>::get()->host().listeners;
    const CardTerminalHost m_cardTerminal = Singleton<CardTerminals>::get()->host();
};

void addLayoutFolder(const QString& folder)
{
    Config* config = Singleton<Config>::get();
    const QString key = u"GUI:layouts"_s;
    const QString folders = config->getString(key);
    config->setForThisRun(key, folders.isEmpty() ? folder : folders + u':' + folder);
}

} // namespace

PluginHost::PluginHost() = default;

PluginHost::~PluginHost() = default;

void PluginHost::load(const QString& folder, ActionQueueController& controller, PositionMarks& marks)
{
    const QDir plugins(folder);
    if (!plugins.exists()) {
        addProblem(folder, tr::Tr(u"pluginFolderMissing"_s, u"нет такой папки"_s).ui());
        return;
    }
    for (const QFileInfo& file : plugins.entryInfoList(QDir::Files, QDir::Name)) {
        if (QLibrary::isLibrary(file.fileName())) {
            loadLibrary(file.absoluteFilePath(), controller, marks);
        }
    }
}

void PluginHost::loadLibrary(const QString& file, ActionQueueController& controller, PositionMarks& marks)
{
    const QFileInfo library(file);
    const QString name = pluginName(library);
    auto loader = std::make_unique<QPluginLoader>(file);
    // A library that was built against another platform fails here, not at its first call.
    loader->setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    QObject* root = loader->instance();
    if (!root) {
        addProblem(name, loader->errorString());
        return;
    }
    auto* plugin = qobject_cast<AbstractPlugin*>(root);
    if (!plugin) {
        addProblem(name, tr::Tr(u"pluginForeign"_s, u"это не модуль кассы"_s).ui());
        loader->unload();
        return;
    }
    loadResources(library.dir().filePath(name), marks);
    start(std::make_unique<Loaded>(Loaded{name, std::move(loader), plugin}), controller);
}

void PluginHost::start(std::unique_ptr<Loaded> loaded, ActionQueueController& controller)
{
    auto* log = Log4Qt::LogManager::logger(u"register"_s);
    const Registrations registrations;
    const PluginScope scope(loaded->name);
    const Expected<bool> initialised = initialise(*loaded->plugin);
    if (!initialised) {
        addProblem(loaded->name, initialised.failure().text.ui());
    } else if (!*initialised) {
        addProblem(loaded->name, tr::Tr(u"pluginInert"_s, u"выключен в настройках или не смог начать работу"_s).ui());
    }
    if (initialised && *initialised) {
        for (ActionHandler handler : loaded->plugin->getHandlers()) {
            handler.handler = inScope(loaded->name, std::move(handler.handler));
            controller.host().addHandler(handler);
        }
        for (ActionTrigger trigger : loaded->plugin->getTriggers()) {
            trigger.handler = inScope(loaded->name, std::move(trigger.handler));
            controller.host().addTrigger(trigger);
        }
        log->info(u"Plug-in initialised: "_s + loaded->name);
    } else {
        registrations.restore();
        loaded->plugin = nullptr;
        log->info(u"Plug-in stays idle: "_s + loaded->name);
    }
    m_plugins.push_back(std::move(loaded));
}

void PluginHost::loadResources(const QString& folder, PositionMarks& marks)
{
    const QDir resources(folder);
    if (!resources.exists()) {
        return;
    }
    addLayoutFolder(folder);
    marks.load(resources.filePath(u"positionmarks.json"_s));
    m_catalogues.load(resources.filePath(resources.dirName()));
}

void PluginHost::unload(ActionQueueController& controller)
{
    Singleton<GraphicalUserInterface>::get()->host().creators.clear();
    Singleton<CardTerminals>::get()->host() = {};
    controller.host().removePluginEntries();
    for (auto loaded = m_plugins.rbegin(); loaded != m_plugins.rend(); ++loaded) {
        if ((*loaded)->plugin) {
            const PluginScope scope((*loaded)->name);
            (*loaded)->plugin->deinit();
        }
        (*loaded)->loader->unload();
    }
    m_plugins.clear();
}

QStringList PluginHost::active() const
{
    QStringList names;
    for (const auto& loaded : m_plugins) {
        if (loaded->plugin) {
            names.append(loaded->name);
        }
    }
    return names;
}

void PluginHost::addProblem(const QString& name, const QString& reason)
{
    m_problems.append(name + u": "_s + reason);
    Log4Qt::LogManager::logger(u"register"_s)->error(u"Plug-in not used: "_s + m_problems.last());
}
