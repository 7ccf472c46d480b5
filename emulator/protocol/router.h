// SPDX-License-Identifier: MIT
#pragma once

#include "endpoint.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator
{
/// The operation of a path.
struct Route {
    Endpoint endpoint = Endpoint::Unknown;
    QByteArray method; ///< the only method of the operation
    QString id;        ///< the {id} of the path, decoded; empty when the path has none
};

/// The registry's paths under a common prefix.
class Router
{
public:
    /// @param prefix such as "/fhir", with or without a trailing slash; empty: none
    explicit Router(const QString& prefix = {});

    /// @param path percent-encoded; each segment is decoded by itself, so an encoded slash separates nothing
    Route find(const QByteArray& path) const;

private:
    QStringList m_prefix;
};
} // namespace emulator
