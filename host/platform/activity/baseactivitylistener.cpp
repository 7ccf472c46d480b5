// SPDX-License-Identifier: MIT
#include "baseactivitylistener.h"

BaseActivityListener::BaseActivityListener(QObject* parent)
    : QObject(parent)
{
}
