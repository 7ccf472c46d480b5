// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "tr.h"

#include <QMetaType>

/// A question to the cashier.
struct Question {
    tr::Tr title;
    tr::Tr text;
    tr::Tr yes; ///< on the button that does it, for example "Отменить чек"
    tr::Tr no;  ///< on the default button, which changes nothing

    /// Asks the question and waits. @return true for yes; false for no and for every other way to close the question
    bool ask() const;

    /// The event that shows the question; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1011);
};

Q_DECLARE_METATYPE(Question)
