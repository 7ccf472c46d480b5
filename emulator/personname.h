// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace emulator
{
/// A person's name: the family name, and the given names with the patronymic last.
struct PersonName {
    QString family;
    QStringList given;
};
} // namespace emulator
