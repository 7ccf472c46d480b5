// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "messagecatalogues.h"
#include "positionmarks.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class AbstractPlugin;
class ActionQueueController;
class QFileInfo;

/// The plug-ins of a folder, from loading to unloading. docs/plugin-lifecycle.md describes their states.
class PluginHost
{
public:
    PluginHost();
    ~PluginHost();
    PluginHost(const PluginHost&) = delete;
    PluginHost& operator=(const PluginHost&) = delete;

    /// Loads and initialises every library of the folder, and adds its handlers and triggers to the controller.
    ///
    /// A folder with the plug-in's name beside its library holds its layouts, its translations and its position marks;
    /// it may be missing. A library that cannot be used, also because something of it throws, is logged, added to
    /// problems(), and skipped, and nothing that it registered stays. Links to one library count once.
    void load(const QString& folder, ActionQueueController& controller, PositionMarks& marks);

    /// Has a function called when an initialised plug-in has ended by itself: it has deleted its root object. The
    /// plug-in is no longer active() and is one of problems() then. Called from the event loop, until unload().
    void onEnded(std::function<void()> ended) { m_ended = std::move(ended); }

    /// Removes the forms, handlers and triggers of all plug-ins, calls each deinit(), and then destroys the plug-ins;
    /// the last one is the first. An exception of a deinit() is logged, and the others go on.
    void unload(ActionQueueController& controller);
    /// Calls each deinit() that was not called yet, as unload() does. For an end that leaves a plug-in on the stack.
    void deinitialise();

    /// The names of the initialised plug-ins.
    QStringList active() const;
    /// The plug-ins that cannot be used, each with the reason for the cashier.
    const QStringList& problems() const { return m_problems; }

private:
    struct Loaded;

    template <typename Entry>
    static QList<Entry> callable(const QList<Entry>& entries, const Loaded& loaded);
    bool isLoaded(const QString& file) const;
    void loadPlugin(const QFileInfo& library, ActionQueueController& controller, PositionMarks& marks);
    /// @return false when the plug-in wants to stay idle
    Expected<bool> start(Loaded& loaded, const QString& resources, ActionQueueController& controller,
                         PositionMarks& marks);
    void loadResources(const QString& folder, PositionMarks& marks);
    void addProblem(const QString& name, const Failure& reason);
    void watch(const Loaded& loaded);
    void noteEnd(const QString& name);

    std::vector<std::unique_ptr<Loaded>> m_plugins;
    MessageCatalogues m_catalogues;
    QStringList m_problems;
    std::function<void()> m_ended;
    std::unique_ptr<QObject> m_watch; ///< the receiver of what is watched; null: nothing is
};
