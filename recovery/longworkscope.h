// SPDX-License-Identifier: MIT
#pragma once

#include "activitynotifier.h"
#include "event.h"
#include "tr.h"

/// The register shows its busy screen with this text for as long as it lives.
class LongWorkScope
{
public:
    explicit LongWorkScope(const tr::Tr& message)
    {
        using namespace Qt::StringLiterals;
        Event event(EActivityListener::LongWorkBegins);
        event.addArgument(u"message"_s, QVariant::fromValue(message));
        Singleton<ActivityNotifier>::get()->notify(event);
    }
    ~LongWorkScope() { Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::LongWorkEnds)); }
    Q_DISABLE_COPY_MOVE(LongWorkScope)
};
