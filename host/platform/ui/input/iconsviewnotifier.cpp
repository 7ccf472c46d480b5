// SPDX-License-Identifier: MIT
#include "iconsviewnotifier.h"

template struct Singleton<IconsViewNotifier>;

IconsViewNotifier::IconsViewNotifier(QObject* parent)
    : QObject(parent)
{
}

void IconsViewNotifier::notifyIcons(QEvent* event)
{
    if (event) {
        emit iconsChanged(event->type(), sender());
    }
}
