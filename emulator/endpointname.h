// SPDX-License-Identifier: MIT
#pragma once

#include "endpoint.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace emulator
{
/// The endpoint's name on the admin port: "token", "by-card", "register", "cancel", "any" or "unknown".
QString endpointName(Endpoint endpoint);
std::optional<Endpoint> endpointOf(const QString& name);
QStringList endpointNames();
} // namespace emulator
