// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "tr.h"

#include <QMetaType>

/// What a question to the cashier shows.
struct Question {
    tr::Tr title;
    tr::Tr text;
    tr::Tr yes; ///< on the button that does it, such as "Отменить чек"
    tr::Tr no;  ///< on the button that leaves everything as it is, which is the default one

    /// Asks, and returns true when the cashier wants it done; whatever closes the question otherwise counts as no.
    bool ask() const;

    /// The code of the event that shows the question; it carries the question as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1011);
};

Q_DECLARE_METATYPE(Question)
