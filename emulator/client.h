// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace emulator
{
/// A pharmacy's access to the registry.
struct Client {
    QString id;
    QString secret;
    QStringList scopes;   ///< what it may ask for
    QString organization; ///< the organization identifier that it has to name
};
} // namespace emulator
