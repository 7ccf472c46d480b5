// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QString>

/// Why something could not be read or written.
struct Failure {
    tr::Tr text;    ///< for the cashier: what happened, and what to do next where that is known
    QString detail; ///< for the log, in English: file, place, the system's words; nothing of a patient
};
