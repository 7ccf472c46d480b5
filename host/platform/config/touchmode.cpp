// SPDX-License-Identifier: MIT
#include "touchmode.h"

#include "config.h"

using namespace Qt::StringLiterals;

bool isTouchMode()
{
    return Singleton<Config>::get()->getBool(u"GUI:touchMode"_s, false);
}
