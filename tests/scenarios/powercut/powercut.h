// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"

/// A plug-in that ends the register as a power cut does, without a chance to save anything (SIGKILL).
///
/// `PowerCut:at` says when: `longWork` (event 72), `beforeSave` or `afterSave` (of a document); `PowerCut:nth` at which
/// one since the start, counted from 1.
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
