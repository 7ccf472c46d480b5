// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QString>

/// Why something could not be read or written.
struct Failure {
    tr::Tr text;         ///< for the cashier: what happened and what to do next
    QString detail = {}; ///< for the log, in English: the place and the cause; nothing of a patient; may be empty
};
