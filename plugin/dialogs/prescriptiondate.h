// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>

/// A date as the forms show it: "yyyy-MM-dd"; empty for an invalid one.
inline QString formatted(const QDate& date)
{
    return date.toString("yyyy-MM-dd");
}
