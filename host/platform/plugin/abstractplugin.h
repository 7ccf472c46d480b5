// SPDX-License-Identifier: MIT
#pragma once

#include "actionhandler.h"
#include "actiontrigger.h"

#include <QList>
#include <QtPlugin>

/// The interface of a plug-in's root object, which is also a QObject.
///
/// Loaded: the object exists and has registered nothing. Initialised: init() returned true. Inert: init() returned
/// false or threw; the register uses no handler, trigger or form creator of it. See docs/plugin-lifecycle.md.
class AbstractPlugin
{
public:
    virtual ~AbstractPlugin() = default;

    /// Called once after loading, on the main thread; configuration and singletons exist, no document is open.
    virtual bool init() = 0;
    /// Called once before unloading, when init() returned true. No form of the plug-in is open any more.
    virtual void deinit() = 0;

    /// What the plug-in registered. The register reads it after init().
    virtual QList<ActionHandler> getHandlers() const = 0;
    virtual QList<ActionTrigger> getTriggers() const = 0;
};

#define AbstractPlugin_iid "example.register.AbstractPlugin"
Q_DECLARE_INTERFACE(AbstractPlugin, AbstractPlugin_iid)
