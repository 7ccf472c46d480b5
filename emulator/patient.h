// SPDX-License-Identifier: MIT
#pragma once

#include "personname.h"

#include <QDate>

namespace emulator
{
/// The holder of a card.
struct Patient {
    QString id;
    QString card;
    PersonName name;
    QDate birthDate;
};
} // namespace emulator
