// SPDX-License-Identifier: MIT
#include "pluginwarnings.h"

#include "pluginscope.h"
#include "statusline.h"

#include <utility>

PluginWarnings::PluginWarnings(StatusLine& line)
    : m_line(line)
{
    Singleton<StandingWarning>::instance = this;
}

PluginWarnings::~PluginWarnings()
{
    Singleton<StandingWarning>::instance = m_former;
}

void PluginWarnings::set(const tr::Tr& text)
{
    m_warnings.insert(PluginScope::current(), text);
    show();
}

void PluginWarnings::keepThoseOf(const QStringList& plugins)
{
    m_warnings.removeIf(
        [&plugins](std::pair<const QString&, tr::Tr&> entry) { return !plugins.contains(entry.first); });
    show();
}

void PluginWarnings::show() const
{
    QStringList texts;
    for (const tr::Tr& warning : m_warnings) {
        texts.append(warning.ui().simplified());
    }
    texts.removeAll(QString());
    m_line.showStanding(texts);
}
