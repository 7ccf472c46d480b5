// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

namespace emulator
{
/// The registry's own explanation of a refusal: an OperationOutcome with one issue of severity "error", whose details
/// are a text for the cashier.
QJsonObject operationOutcome(const QString& details);
} // namespace emulator
