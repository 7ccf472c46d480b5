// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The states of a prescription (HL7 FHIR DSTU 1, MedicationPrescription.status).
namespace emulator::prescriptionstatus
{
inline const QString active = QStringLiteral("active");
inline const QString completed = QStringLiteral("completed"); ///< dispensed in full, or declared so by the pharmacy
inline const QStringList all{active,
                             QStringLiteral("on-hold"),
                             completed,
                             QStringLiteral("entered-in-error"),
                             QStringLiteral("stopped"),
                             QStringLiteral("superceded")};
} // namespace emulator::prescriptionstatus
