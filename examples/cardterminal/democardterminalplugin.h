// SPDX-License-Identifier: MIT
#pragma once

#include "basicplugin.h"

#include <QObject>

/// Brings the demo card terminal, when "DemoCardTerminal:enabled" is true.
class DemoCardTerminalPlugin : public QObject, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    bool init() override;
};
