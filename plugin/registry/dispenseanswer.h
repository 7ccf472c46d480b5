// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QLatin1StringView>
#include <QString>
#include <QStringList>

/// The two requests about a dispense, and what their answers say: a "Bundle" with a "transactionResponse" in its
/// entries (HL7 FHIR). docs/registry-protocol.md describes both.
namespace dispenseanswer
{

// Paths under the registry's base URL.

inline constexpr QLatin1StringView registrationPath{"/MedicationDispense/$register"};
/// @param dispense the registry's id of it
QString cancellationPath(const QString& dispense);
/// The id in such a path, whatever its base is; null when the path is another one.
QString dispenseOfCancellation(const QString& path);

// What the registry's transaction reports. A cancellation is sent as a POST and reported as a PUT.

inline constexpr QLatin1StringView registered{"POST:201"};
inline constexpr QLatin1StringView cancelled{"PUT:200"};

/// True when the answer is a Bundle one of whose entries has that status.
bool reports(const QJsonObject& answer, const QString& status);
/// True when the answer reports any status. Without one nobody knows what became of the request.
bool reportsAnything(const QJsonObject& answer);
/// The ids of the dispenses in the answer, in order; an empty text for one without an id.
QStringList dispenseIds(const QJsonObject& answer);

} // namespace dispenseanswer
