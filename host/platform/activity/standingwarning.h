// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"
#include "tr.h"

/// What a plug-in wants the cashier to keep in mind: a warning in the register's status line that stays.
///
/// Each plug-in has one, for as long as it is initialised. The register knows the plug-in by its PluginScope. The host
/// puts an object of its own into the Singleton; this one shows nothing. Main thread.
class REGISTERPLATFORM_EXPORT StandingWarning
{
public:
    StandingWarning() = default;
    virtual ~StandingWarning();
    Q_DISABLE_COPY_MOVE(StandingWarning)

    /// Shows the plug-in's warning in place of its former one; a text that is empty shows none. May be called in
    /// init(), too.
    ///
    /// @param text what is not as it should be, and what the cashier can do; a sentence or two
    virtual void set(const tr::Tr& text);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<StandingWarning>;
