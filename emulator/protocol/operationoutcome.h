// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

namespace emulator
{
/// An OperationOutcome with one issue of severity "error".
/// @param details text for the cashier
QJsonObject operationOutcome(const QString& details);
} // namespace emulator
