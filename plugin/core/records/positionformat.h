// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>

/// The names of what the plug-in writes onto a receipt position: a tag, the prescription's id as the soft check id, and
/// one JSON object in the extended options, which PositionOptions reads and writes. Saved receipts hold these names,
/// and positionmarks.json refers to them; docs/position-marks.md says how the register shows them.
namespace positionformat
{

/// The tag of every position that comes from a prescription.
inline constexpr QLatin1StringView tag{"prescription"};

// Members of the options, written when the position is filled.

inline constexpr QLatin1StringView id{"id"};                             ///< the prescription's id
inline constexpr QLatin1StringView tradeNameCode{"tradeNameCode"};       ///< code of the trade name
inline constexpr QLatin1StringView organizationId{"organizationId"};     ///< who pays the benefit; empty: nobody
inline constexpr QLatin1StringView organization{"organization"};         ///< its name
inline constexpr QLatin1StringView sumFactor{"sumFactor"};               ///< the patient's share, a fraction
inline constexpr QLatin1StringView doseQuantity{"doseQuantity"};         ///< doses handed out with this position
inline constexpr QLatin1StringView finalDispense{"finalDispense"};       ///< bool: the prescription is served in full
inline constexpr QLatin1StringView patientReference{"patientReference"}; ///< the registry's reference to the patient
inline constexpr QLatin1StringView patient{"patient"};                   ///< the patient's name
inline constexpr QLatin1StringView serialNumber{"serialNumber"};         ///< of the prescription form

// Members of the options that come with the registration.

inline constexpr QLatin1StringView medicationDispenseId{"medicationDispenseId"}; ///< the registered dispense's id
inline constexpr QLatin1StringView status{"status"}; ///< a state below; absent: not registered

// Values of status.

inline constexpr QLatin1StringView dispensed{"dispensed"}; ///< the registry holds the dispense
inline constexpr QLatin1StringView canceled{"canceled"};   ///< the registry held the dispense, and it was cancelled

} // namespace positionformat
