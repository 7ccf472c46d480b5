// SPDX-License-Identifier: MIT
#pragma once

#include "actionhandler.h"
#include "actiontrigger.h"
#include "sdkversion.h"

#include <QList>
#include <QtPlugin>

/// The interface of a plug-in's root object, which is also a QObject.
///
/// Loaded: the object exists and has registered nothing. Initialised: init() returned true. Inert: init() returned
/// false, or something threw before the plug-in was initialised; the register uses no handler, trigger or form creator
/// of it. See docs/plugin-lifecycle.md.
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

/// The id of this interface in this version of the platform. A plug-in names it in its metadata, or an id of its own
/// that does not end in ".AbstractPlugin": then the library that it is linked with tells the version.
#define AbstractPlugin_iid "example.register." REGISTER_SDK_VERSION ".AbstractPlugin"
Q_DECLARE_INTERFACE(AbstractPlugin, AbstractPlugin_iid)
