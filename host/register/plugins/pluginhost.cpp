// SPDX-License-Identifier: MIT
#include "pluginhost.h"

#include "abstractplugin.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "caughtfailure.h"
#include "config.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "listenerhost.h"
#include "pluginlibraries.h"
#include "pluginscope.h"
#include "pluginversion.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

struct PluginHost::Loaded {
    QString name;
    QString file; ///< without links
    std::unique_ptr<QPluginLoader> loader;
    QPointer<QObject> root = {};      ///< owned by the loader; a plug-in may delete it
    AbstractPlugin* plugin = nullptr; ///< the root; null: it stays idle

    bool isActive() const { return root && plugin; }
};

namespace
{

/// What a plug-in registered for actions.
struct Entries {
    QList<ActionHandler> handlers;
    QList<ActionTrigger> triggers;
};

/// The file name of the library without "lib" and without everything after the first point.
QString pluginName(const QFileInfo& library)
{
    const QString name = library.baseName();
    return name.startsWith("lib"_L1) ? name.mid(3) : name;
}

/// What a step returns that runs a plug-in's code, or what it throws.
template <typename Step>
Expected<std::invoke_result_t<Step>> guarded(const QString& plugin, const Step& step)
{
    const PluginScope scope(plugin);
    try {
        return step();
    } catch (const BasicException&) {
        return caughtFailure();
    } catch (...) {
        return Failure{{u"pluginFailed"_s, u"внутренняя ошибка модуля. Обратитесь в службу поддержки"_s},
                       caughtFailure().detail};
    }
}

/// The function, run in the scope of its plug-in. What it throws is logged with the plug-in's name and goes on.
/// @param root the plug-in; when it has deleted itself nothing of it is called
/// @param ended what happens instead
ActionHandler::Function inScope(const QString& plugin, const QPointer<QObject>& root, ActionHandler::Function function,
                                EContext::Result (*ended)(const QString& plugin))
{
    return [plugin, root, ended, function = std::move(function)](const control::Action& action) {
        if (!root) {
            return ended(plugin);
        }
        const PluginScope scope(plugin);
        try {
            return function(action);
        } catch (...) {
            Log4Qt::LogManager::logger(u"action"_s)
                ->error(u"Plug-in %1, action %2: %3"_s.arg(plugin).arg(action.getType()).arg(caughtFailure().detail));
            throw;
        }
    };
}

EContext::Result endedHandler(const QString& plugin)
{
    throw BasicException(tr::Tr(u"pluginEnded"_s, u"Модуль «%1» завершил работу из-за внутренней ошибки.\n"
                                                  "Перезапустите кассу."_s)
                             .arg(plugin));
}

/// Passes the trigger over: the plug-in is not active any more, so that nothing of its positions goes on.
EContext::Result endedTrigger(const QString& plugin)
{
    Log4Qt::LogManager::logger(u"action"_s)->error(u"Plug-in has deleted itself: "_s + plugin);
    return EContext::GoOn;
}

Failure notLoaded(const QString& reason)
{
    return {{u"pluginNotLoaded"_s, u"библиотека не загружается. Переустановите модуль"_s}, reason};
}

/// Loads the library, when it is a plug-in for this version. No object of it exists afterwards.
Expected<void> loadLibrary(QPluginLoader& loader, const QString& name)
{
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty()) {
        return notLoaded(loader.errorString());
    }
    if (Expected<void> version = checkPluginVersion(metaData.value("IID"_L1).toString(), loader.fileName()); !version) {
        return version;
    }
    // A library that was built against another platform fails here, not at its first call.
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!loader.load()) {
        return notLoaded(loader.errorString());
    }
    const QFunctionPointer entry = QLibrary(loader.fileName()).resolve("qt_plugin_instance");
    pluginlibraries::add(name, reinterpret_cast<const void*>(entry));
    return {};
}

/// A plug-in's root object, and its interface.
struct Root {
    QPointer<QObject> object;
    AbstractPlugin* plugin;
};

Expected<Root> createRoot(QPluginLoader& loader, const QString& name)
{
    Expected<Root> root = guarded(name, [&loader]() -> Root {
        QObject* object = loader.instance();
        return {object, qobject_cast<AbstractPlugin*>(object)};
    });
    if (root && !root->plugin) {
        return foreignPlugin(name);
    }
    return root;
}

/// What the plug-in registered; nothing when it wants to stay idle.
Expected<std::optional<Entries>> initialise(const Root& root, const QString& name)
{
    return guarded(name, [&root]() -> std::optional<Entries> {
        if (!root.plugin->init() || !root.object) {
            return std::nullopt;
        }
        return Entries{root.plugin->getHandlers(), root.plugin->getTriggers()};
    });
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
    const decltype(ListenerHost::listeners) m_listeners = Singleton<ActivityNotifier>::get()->host().listeners;
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
        addProblem(folder, {{u"pluginFolderMissing"_s, u"нет такой папки. Проверьте параметр --plugins"_s}, {}});
        return;
    }
    for (const QFileInfo& file : plugins.entryInfoList(QDir::Files, QDir::Name)) {
        if (QLibrary::isLibrary(file.fileName()) && !isLoaded(file.canonicalFilePath())) {
            loadPlugin(file, controller, marks);
        }
    }
}

bool PluginHost::isLoaded(const QString& file) const
{
    return std::any_of(m_plugins.cbegin(), m_plugins.cend(), [&file](const auto& one) { return one->file == file; });
}

void PluginHost::loadPlugin(const QFileInfo& library, ActionQueueController& controller, PositionMarks& marks)
{
    const QString name = pluginName(library);
    if (active().contains(name)) {
        addProblem(name, {{u"pluginTwice"_s, u"модуль с таким именем уже подключён. Оставьте в папке модулей один"_s},
                          library.fileName()});
        return;
    }
    Loaded& loaded = *m_plugins.emplace_back(std::make_unique<Loaded>(
        Loaded{name, library.canonicalFilePath(), std::make_unique<QPluginLoader>(library.absoluteFilePath())}));
    const Registrations registrations;
    const Expected<bool> started = start(loaded, library.dir().filePath(name), controller, marks);
    auto* log = Log4Qt::LogManager::logger(u"register"_s);
    if (started && *started && loaded.isActive()) {
        log->info(u"Plug-in initialised: "_s + name);
        watch(loaded);
        return;
    }
    registrations.restore();
    loaded.plugin = nullptr;
    if (started) {
        addProblem(name,
                   {{u"pluginInert"_s, u"выключен в настройках или не смог начать работу"_s}, u"init() is false"_s});
    } else {
        addProblem(name, started.failure());
    }
}

/// The plug-in's code is on the stack when it deletes its root: what is to be done about it waits for the event loop.
void PluginHost::watch(const Loaded& loaded)
{
    if (!m_watch) {
        m_watch = std::make_unique<QObject>();
    }
    QObject::connect(
        loaded.root, &QObject::destroyed, m_watch.get(), [this, name = loaded.name] { noteEnd(name); },
        Qt::QueuedConnection);
}

void PluginHost::noteEnd(const QString& name)
{
    addProblem(name, {{u"pluginEndedByItself"_s, u"завершил работу из-за внутренней ошибки. Перезапустите кассу"_s},
                      u"it has deleted its root object"_s});
    if (m_ended) {
        m_ended();
    }
}

/// The handlers or triggers that have a function, which runs in the scope of their plug-in.
template <typename Entry>
QList<Entry> PluginHost::callable(const QList<Entry>& entries, const Loaded& loaded)
{
    QList<Entry> all;
    for (Entry entry : entries) {
        if (entry.handler) {
            entry.handler = inScope(loaded.name, loaded.root, std::move(entry.handler),
                                    std::is_same_v<Entry, ActionTrigger> ? endedTrigger : endedHandler);
            all.append(entry);
        } else {
            Log4Qt::LogManager::logger(u"register"_s)
                ->error(u"Plug-in %1 has no function for action %2"_s.arg(loaded.name).arg(entry.actionType));
        }
    }
    return all;
}

Expected<bool> PluginHost::start(Loaded& loaded, const QString& resources, ActionQueueController& controller,
                                 PositionMarks& marks)
{
    if (const Expected<void> library = loadLibrary(*loaded.loader, loaded.name); !library) {
        return library.failure();
    }
    const Expected<Root> root = createRoot(*loaded.loader, loaded.name);
    if (!root) {
        return root.failure();
    }
    loaded.root = root->object;
    loaded.plugin = root->plugin;
    loadResources(resources, marks);
    const Expected<std::optional<Entries>> entries = initialise(*root, loaded.name);
    if (!entries) {
        return entries.failure();
    }
    if (!*entries) {
        return false;
    }
    for (const ActionHandler& handler : callable((*entries)->handlers, loaded)) {
        controller.host().addHandler(handler);
    }
    for (const ActionTrigger& trigger : callable((*entries)->triggers, loaded)) {
        controller.host().addTrigger(trigger);
    }
    return true;
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
    m_watch.reset();
    Singleton<GraphicalUserInterface>::get()->host().creators.clear();
    Singleton<CardTerminals>::get()->host() = {};
    controller.host().removePluginEntries();
    deinitialise();
    for (auto loaded = m_plugins.rbegin(); loaded != m_plugins.rend(); ++loaded) {
        const PluginScope scope((*loaded)->name);
        (*loaded)->loader->unload();
    }
    m_plugins.clear();
}

/// All of them, before the first one is destroyed: an exception of a destructor ends the process.
void PluginHost::deinitialise()
{
    for (auto loaded = m_plugins.rbegin(); loaded != m_plugins.rend(); ++loaded) {
        if (!(*loaded)->isActive()) {
            continue;
        }
        const Expected<bool> done = guarded((*loaded)->name, [&loaded] {
            std::exchange((*loaded)->plugin, nullptr)->deinit();
            return true;
        });
        if (!done) {
            Log4Qt::LogManager::logger(u"register"_s)
                ->error(u"Plug-in failed in deinit(): %1: %2"_s.arg((*loaded)->name, done.failure().detail));
        }
    }
}

QStringList PluginHost::active() const
{
    QStringList names;
    for (const auto& loaded : m_plugins) {
        if (loaded->isActive()) {
            names.append(loaded->name);
        }
    }
    return names;
}

void PluginHost::addProblem(const QString& name, const Failure& reason)
{
    m_problems.append(name + u": "_s + reason.text.ui());
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"Plug-in not used: %1: %2 %3"_s.arg(name, reason.text.key(), reason.detail));
}
