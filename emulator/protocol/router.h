// SPDX-License-Identifier: MIT
#pragma once

#include "endpoint.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator
{
/// Which operation a path belongs to.
struct Route {
    Endpoint endpoint = Endpoint::Unknown;
    QByteArray method; ///< the one method that the operation takes
    QString id;        ///< the {id} of the path, decoded; empty where the path has none
};

/// The registry's paths under a common prefix.
class Router
{
public:
    /// `prefix` such as "/fhir"; empty for none. A trailing slash does not count.
    explicit Router(const QString& prefix = {});

    /// `path` as it stood on the wire, percent-encoded. Each of its segments is decoded by itself, so an encoded slash
    /// parts nothing.
    Route find(const QByteArray& path) const;

private:
    QStringList m_prefix;
};
} // namespace emulator
