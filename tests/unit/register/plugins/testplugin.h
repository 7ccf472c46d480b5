// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"

/// A plug-in that says in dynamic properties of the application what was done to it.
class TestPlugin : public BaseActivityListener, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    ~TestPlugin() override;

    bool init() override;
    void deinit() override;
    void handleEvent(const Event& event) override;
};
