// SPDX-License-Identifier: MIT
#include "cardterminals.h"

#include "cardterminalhost.h"
#include "pluginscope.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

template struct Singleton<CardTerminals>;

CardTerminals::CardTerminals()
    : m_host(std::make_unique<CardTerminalHost>())
{
}

CardTerminals::~CardTerminals() = default;

void CardTerminals::add(const QSharedPointer<CardTerminal>& terminal)
{
    if (!terminal) {
        return;
    }
    if (m_host->terminal) {
        Log4Qt::LogManager::logger(u"payment"_s)
            ->warn(u"A further card terminal is not used: "_s + PluginScope::current());
        return;
    }
    *m_host = {PluginScope::current(), terminal};
}
