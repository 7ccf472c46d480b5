// SPDX-License-Identifier: MIT
#include "pluginscope.h"

namespace
{

QString& running()
{
    static QString name;
    return name;
}

} // namespace

PluginScope::PluginScope(const QString& plugin)
    : m_outer(running())
{
    running() = plugin;
}

PluginScope::~PluginScope()
{
    running() = m_outer;
}

QString PluginScope::current()
{
    return running();
}
