// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"

/// A plug-in that ends the register as a power cut does: with SIGKILL, so that nothing can be saved.
///
/// `PowerCut:at` is `longWork` (event 72), `beforeSave` or `afterSave` (of a document). `PowerCut:nth` counts them
/// since the start; 1 is the first.
class PowerCut : public BaseActivityListener, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    bool init() override;
    void deinit() override;
    void handleEvent(const Event& event) override;
};
