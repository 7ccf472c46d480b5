// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "formhelp.h"

#include <QMetaType>

/// The help for a screen.
struct HelpParams {
    QString title; ///< the screen's heading
    FormHelp help;

    /// The event that shows the help; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1015);
};

Q_DECLARE_METATYPE(HelpParams)
