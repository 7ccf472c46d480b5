// SPDX-License-Identifier: MIT
#include "shownkey.h"

#include "touchmode.h"

QString shownKey(const QKeySequence& key)
{
    return isTouchMode() ? QString() : key.toString(QKeySequence::NativeText);
}

QString withShownKey(const QKeySequence& key, const QString& text)
{
    const QString shown = shownKey(key);
    return shown.isEmpty() ? text : shown + u' ' + text;
}
