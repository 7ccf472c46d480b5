// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

/// While one exists, key presses, clicks, touches and the wheel are thrown away, not delivered later. A window that is
/// closed stays open until then. Timers, painting and network events go on.
///
/// Esc is looked at and thrown away too: it asks the register whether to stop waiting for the request that runs. So
/// does a tap on a widget whose property "stopsWaiting" is true.
///
/// Blockers nest. The destructor of the last one also throws away the input that the window system still holds. A Pause
/// lifts the blocking while it exists: a message shown during long work takes input.
/// Main thread. Without a QCoreApplication it does nothing.
class REGISTERPLATFORM_EXPORT InputBlocker
{
public:
    InputBlocker();
    ~InputBlocker();
    Q_DISABLE_COPY_MOVE(InputBlocker)

    static bool isActive();

    class REGISTERPLATFORM_EXPORT Pause
    {
    public:
        Pause();
        ~Pause();
        Q_DISABLE_COPY_MOVE(Pause)
    };
};
