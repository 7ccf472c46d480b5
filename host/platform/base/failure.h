// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QString>

/// Why something could not be read or written.
struct Failure {
    tr::Tr text;         ///< for the cashier: what happened and what to do next
    QString detail = {}; ///< for the log, in English: the place and the cause; nothing of a patient; may be empty
};

/// A failure whose reason has no translation: the words of the system or of a library, for the cashier and for the log.
inline Failure untranslatedFailure(const QString& reason)
{
    return {{tr::undefined, reason}, reason};
}
