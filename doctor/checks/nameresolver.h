// SPDX-License-Identifier: MIT
#pragma once

#include "mockfactory.h"

#include <QHostAddress>
#include <QList>
#include <QString>

namespace doctor
{

/// What the system knows of a host's name.
struct ResolvedName {
    QList<QHostAddress> addresses; ///< in the order in which they are to be tried
    bool isInTime = true;          ///< false: no name server answered
};

/// Looks names up as the system does: its hosts file, then its name servers.
class NameResolver : public MockFactory<NameResolver>
{
public:
    NameResolver() = default;
    virtual ~NameResolver() = default;
    Q_DISABLE_COPY_MOVE(NameResolver)

    /// @param milliseconds that it may take
    virtual ResolvedName resolve(const QString& host, int milliseconds) const;
};

} // namespace doctor
