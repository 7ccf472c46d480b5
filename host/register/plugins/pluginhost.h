// SPDX-License-Identifier: MIT
#pragma once

#include "messagecatalogues.h"
#include "positionmarks.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class AbstractPlugin;
class ActionQueueController;
class QPluginLoader;

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
    /// it may be missing. A library that cannot be used is logged, added to problems(), and skipped.
    void load(const QString& folder, ActionQueueController& controller, PositionMarks& marks);

    /// Removes the forms, handlers and triggers of all plug-ins, then unloads the plug-ins, the last one first.
    void unload(ActionQueueController& controller);

    /// The names of the initialised plug-ins.
    QStringList active() const;
    /// The plug-ins that cannot be used, each with the reason for the cashier.
    const QStringList& problems() const { return m_problems; }

private:
    struct Loaded;

    void loadLibrary(const QString& file, ActionQueueController& controller, PositionMarks& marks);
    void loadResources(const QString& folder, PositionMarks& marks);
    void start(std::unique_ptr<Loaded> loaded, ActionQueueController& controller);
    void addProblem(const QString& name, const QString& reason);

    std::vector<std::unique_ptr<Loaded>> m_plugins;
    MessageCatalogues m_catalogues;
    QStringList m_problems;
};
