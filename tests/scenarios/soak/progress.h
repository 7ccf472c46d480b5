// SPDX-License-Identifier: MIT
#pragma once

#include "plan.h"

#include <QString>

#include <optional>

namespace soak
{

/// What is printed while a long run goes on: a line after every 100 sales, nothing after other customers.
///
/// @param served how many customers of the plan were
/// @param finished the documents that were finished so far
/// @param memory of the register, resident, in KiB
std::optional<QString> progressAfter(const Plan& plan, qsizetype served, qsizetype finished, qint64 memory);

} // namespace soak
