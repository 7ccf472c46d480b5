// SPDX-License-Identifier: MIT
#include "pluginhost.h"

#include "abstractplugin.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "config.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "listenerhost.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QPluginLoader>

#include <exception>

using namespace Qt::StringLiterals;

struct PluginHost::Loaded {
    QString name;
    std::unique_ptr<QPluginLoader> loader;
    AbstractPlugin* plugin; ///< owned by the loader
};

namespace
{

/// The plug-in's name: that of its library without "lib" and without what follows the first point.
QString pluginName(const QFileInfo& library)
{
    const QString name = library.baseName();
    return name.startsWith("lib"_L1) ? name.mid(3) : name;
}

/// What init() said, or why it could not say anything.
struct Initialised {
    bool done = false;
    QString failure;
};

Initialised initialise(AbstractPlugin& plugin)
{
    try {
        return {plugin.init(), {}};
    } catch (const BasicException& exception) {
        return {false, exception.tr().ui()};
    } catch (const std::exception& exception) {
        return {false, QString::fromUtf8(exception.what())};
    } catch (...) {
        return {false, u"unknown exception"_s};
    }
}

/// What is registered with the platform at the time of its making.
class Registrations
{
public:
    /// Drops what was registered since.
    void restore() const
    {
        Singleton<GraphicalUserInterface>::get()->host().creators = m_formCreators;
        Singleton<ActivityNotifier>::get()->host().listeners = m_listeners;
    }

private:
    const QList<QSharedPointer<BasicFormCreator>> m_formCreators =
        Singleton<GraphicalUserInterface>::get()->host().creators;
    const QList<QPointer<BaseActivityListener>> m_listeners = Singleton<ActivityNotifier>::get()->host().listeners;
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
    // A library built against another platform is stopped here instead of ending the register at its first call.
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
    takeResources(library.dir().filePath(name), marks);
    const Registrations registrations;
    const Initialised initialised = initialise(*plugin);
    if (!initialised.failure.isEmpty()) {
        addProblem(name, initialised.failure);
    }
    if (!initialised.done) {
        registrations.restore();
        Log4Qt::LogManager::logger(u"register"_s)->info(u"Plug-in stays idle: "_s + name);
        m_plugins.push_back(std::make_unique<Loaded>(Loaded{name, std::move(loader), nullptr}));
        return;
    }
    for (const ActionHandler& handler : plugin->getHandlers()) {
        controller.host().addHandler(handler);
    }
    for (const ActionTrigger& trigger : plugin->getTriggers()) {
        controller.host().addTrigger(trigger);
    }
    Log4Qt::LogManager::logger(u"register"_s)->info(u"Plug-in initialised: "_s + name);
    m_plugins.push_back(std::make_unique<Loaded>(Loaded{name, std::move(loader), plugin}));
}

void PluginHost::takeResources(const QString& folder, PositionMarks& marks)
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
    controller.host().removePluginEntries();
    for (auto loaded = m_plugins.rbegin(); loaded != m_plugins.rend(); ++loaded) {
        if ((*loaded)->plugin) {
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
