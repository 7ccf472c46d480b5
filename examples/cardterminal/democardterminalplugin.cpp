// SPDX-License-Identifier: MIT
#include "democardterminalplugin.h"

#include "cardterminals.h"
#include "config.h"
#include "democardterminal.h"

#include <QDir>

using namespace Qt::StringLiterals;

bool DemoCardTerminalPlugin::init()
{
    const Config& config = *Singleton<Config>::get();
    if (!config.getBool(u"DemoCardTerminal:enabled"_s)) {
        return false;
    }
    const QDir data(config.getString(u"Register:data"_s));
    Singleton<CardTerminals>::get()->add(
        QSharedPointer<DemoCardTerminal>::create(data.filePath(u"democardterminal.jsonl"_s)));
    return true;
}
