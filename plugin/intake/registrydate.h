// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QStringView>

/// Reads a date as the registry writes it.
///
/// Takes exactly what `QDate::fromString(text, "yyyy-MM-dd")` takes, a year before Christ with its minus sign
/// included, in a fraction of its time: dates were most of what mapping an answer cost.
///
/// @return the invalid date for every other text, a date with a time of day too
QDate readRegistryDate(QStringView text);
