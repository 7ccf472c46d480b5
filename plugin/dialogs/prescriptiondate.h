// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>

/// A date as the forms show it: "yyyy-MM-dd". An invalid one is empty.
inline QString formatted(const QDate& date)
{
    return date.toString(u"yyyy-MM-dd");
}
