// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace emulator
{
/// The operations of the registry, each with a path of its own.
enum class Endpoint : int {
    Unknown,              ///< a path that the registry does not have
    Token,                ///< POST /connect/token
    PrescriptionsByCard,  ///< GET /MedicationPrescription/$by-card
    DispenseRegistration, ///< POST /MedicationDispense/$register
    DispenseCancellation, ///< POST /MedicationDispense/{id}/$set-as-error
    Any,                  ///< for faults and counts: whatever the request is for
};

/// The endpoint's name on the admin port: "token", "by-card", "register", "cancel", "any" or "unknown".
QString endpointName(Endpoint endpoint);
/// The endpoint of that name; nothing for any other text.
std::optional<Endpoint> endpointOf(const QString& name);
QStringList endpointNames();
} // namespace emulator
