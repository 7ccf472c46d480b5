// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace emulator
{
/// An organization that pays patients' benefits.
struct Payer {
    QString id;
    QString name;
};
} // namespace emulator
