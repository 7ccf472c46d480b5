// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"

/// A plug-in that loses memory and a file descriptor with each document.
class Leak : public BaseActivityListener, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    bool init() override;
    void handleEvent(const Event& event) override;

private:
    QByteArrayList m_kept;
};
