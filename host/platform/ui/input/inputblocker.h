// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

/// While one exists, key presses, clicks, touches and the wheel are thrown away, not delivered later, and closing a
/// window waits. Timers, painting and network events go on.
///
/// Blockers nest. The last one's destructor first takes in what the window system still holds, and throws it away.
/// A Pause lifts the blocking for its lifetime: for a message that is shown in the middle of long work.
/// Main thread. Without a QCoreApplication it does nothing.
class REGISTERPLATFORM_EXPORT InputBlocker
{
public:
    InputBlocker();
    ~InputBlocker();
    InputBlocker(const InputBlocker&) = delete;
    InputBlocker& operator=(const InputBlocker&) = delete;

    static bool isActive();

    class REGISTERPLATFORM_EXPORT Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };
};
