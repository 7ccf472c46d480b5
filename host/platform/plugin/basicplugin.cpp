// SPDX-License-Identifier: MIT
#include "basicplugin.h"

BasicPlugin::BasicPlugin() = default;

BasicPlugin::~BasicPlugin() = default;

bool BasicPlugin::init()
{
    return true;
}

void BasicPlugin::deinit() {}

void BasicPlugin::addHandler(const ActionHandler& handler)
{
    m_handlers.append(handler);
}

void BasicPlugin::addTrigger(const ActionTrigger& trigger)
{
    m_triggers.append(trigger);
}

QList<ActionHandler> BasicPlugin::getHandlers() const
{
    return m_handlers;
}

QList<ActionTrigger> BasicPlugin::getTriggers() const
{
    return m_triggers;
}
