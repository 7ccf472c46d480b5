// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <functional>

namespace emulator
{
/// Returns the present moment. With a clock of its own a test lets tokens and prescriptions expire.
using Clock = std::function<QDateTime()>;
} // namespace emulator
