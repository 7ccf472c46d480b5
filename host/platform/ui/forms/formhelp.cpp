// SPDX-License-Identifier: MIT
#include "formhelp.h"

using namespace Qt::StringLiterals;

QString FormHelp::enterKey()
{
    return tr::Tr(u"helpEnterKey"_s, u"Ввод"_s).ui();
}

QString FormHelp::arrowKeys()
{
    return u"↑ ↓"_s;
}
