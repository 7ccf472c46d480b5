// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The states of a prescription (HL7 FHIR DSTU 1, MedicationPrescription.status).
namespace emulator::prescriptionstatus
{
using namespace Qt::StringLiterals;
inline const QString active = u"active"_s;
inline const QString completed = u"completed"_s; ///< dispensed in full, or declared final by the pharmacy
inline const QStringList all{active, u"on-hold"_s, completed, u"entered-in-error"_s, u"stopped"_s, u"superceded"_s};
} // namespace emulator::prescriptionstatus
