// SPDX-License-Identifier: MIT
#pragma once

#include "dispenserecovery.h"

/// The root object of the library. Apart from the recovery itself, so that a test program can hold other plug-ins too.
class DispenseRecoveryPlugin : public DispenseRecovery
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID AbstractPlugin_iid)
    Q_INTERFACES(AbstractPlugin)
};
