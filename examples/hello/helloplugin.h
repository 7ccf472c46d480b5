// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicplugin.h"
#include "documentwatcher.h"

/// Greets the cashier, counts the closed documents, and stops the subtotal of an empty one.
class HelloPlugin : public BaseActivityListener, public BasicPlugin, private DocumentWatcher
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)

public:
    /// The command that greets; a function key of the register is configured with this number.
    static constexpr auto greetCommand = control::EActionType(1000);

    bool init() override;
    void handleEvent(const Event& event) override;

private:
    EContext::Result greet();
    EContext::Result stopEmptyDocument();

    int m_closedDocuments = 0;
};
