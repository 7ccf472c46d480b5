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

/// The plug-ins of a folder, from loading to unloading. docs/plugin-lifecycle.md tells their states.
class PluginHost
{
public:
    PluginHost();
    ~PluginHost();
    PluginHost(const PluginHost&) = delete;
    PluginHost& operator=(const PluginHost&) = delete;

    /// Loads every library of the folder, initialises it, and hands its handlers and triggers to the controller.
    ///
    /// The folder of a plug-in's name beside its library, when there is one, holds its layouts, its translations and
    /// its position marks. A library that cannot be used is logged, told in problems(), and skipped.
    void load(const QString& folder, ActionQueueController& controller, PositionMarks& marks);

    /// Drops the forms, handlers and triggers of all plug-ins, then each plug-in itself.
    void unload(ActionQueueController& controller);

    /// The names of the plug-ins that are initialised.
    QStringList active() const;
    /// What could not be used and why, for the cashier.
    const QStringList& problems() const { return m_problems; }

private:
    struct Loaded;

    void loadLibrary(const QString& file, ActionQueueController& controller, PositionMarks& marks);
    void takeResources(const QString& folder, PositionMarks& marks);
    void addProblem(const QString& name, const QString& reason);

    std::vector<std::unique_ptr<Loaded>> m_plugins;
    MessageCatalogues m_catalogues;
    QStringList m_problems;
};
