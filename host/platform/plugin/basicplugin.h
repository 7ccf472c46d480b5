// SPDX-License-Identifier: MIT
#pragma once

#include "abstractplugin.h"
#include "export.h"

/// The usual base of a plug-in's root object: it keeps what the plug-in registers.
class REGISTERPLATFORM_EXPORT BasicPlugin : public AbstractPlugin
{
public:
    BasicPlugin();
    ~BasicPlugin() override;
    Q_DISABLE_COPY_MOVE(BasicPlugin)

    /// Registers nothing and returns true.
    bool init() override;
    void deinit() override;

    /// To be called from init().
    virtual void addHandler(const ActionHandler& handler);
    virtual void addTrigger(const ActionTrigger& trigger);

    QList<ActionHandler> getHandlers() const override;
    QList<ActionTrigger> getTriggers() const override;

private:
    QList<ActionHandler> m_handlers;
    QList<ActionTrigger> m_triggers;
};
