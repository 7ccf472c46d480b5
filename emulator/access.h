// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace emulator
{
/// What a bearer token stands for.
struct Access {
    QString client;
    QString organization; ///< organization identifier of the pharmacy
    QStringList scopes;
    QDateTime expiry;
};
} // namespace emulator
