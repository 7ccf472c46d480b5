// SPDX-License-Identifier: MIT
#pragma once

#include "checkresult.h"
#include "timelimit.h"

#include <QList>
#include <QString>

#include <functional>

namespace doctor
{

struct ExaminationRequest {
    QString configFile;
    QString card = {}; ///< a test card; empty: none is looked up
    Limits limits = {};
};

/// Makes every check, in order, from the configuration up to a card's prescriptions. What cannot be made after a
/// failure is in the list as not checked. The registry sees two or three requests as a till sends them, and a GET
/// without credentials to each server; nothing is changed there, and nothing is written on this machine.
///
/// Blocks for as long as the limits say. Puts the configuration in the place of the process's own meanwhile.
/// @param found called with each result as soon as it is there; may be empty
QList<CheckResult> examine(const ExaminationRequest& request,
                           const std::function<void(const CheckResult&)>& found = {});

} // namespace doctor
