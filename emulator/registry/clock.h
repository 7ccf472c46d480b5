// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <functional>

namespace emulator
{
/// Gives the present moment. A test sets one of its own to let tokens and prescriptions grow old.
using Clock = std::function<QDateTime()>;
} // namespace emulator
