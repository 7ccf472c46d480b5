// SPDX-License-Identifier: MIT
#pragma once

#include "personname.h"

namespace emulator
{
/// Who writes prescriptions.
struct Practitioner {
    QString id;
    PersonName name;
};
} // namespace emulator
