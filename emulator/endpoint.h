// SPDX-License-Identifier: MIT
#pragma once

namespace emulator
{
/// The operations of the registry, each with a path of its own.
enum class Endpoint : int {
    Unknown,              ///< a path that the registry does not have
    Token,                ///< POST /connect/token
    PrescriptionsByCard,  ///< GET /MedicationPrescription/$by-card
    DispenseRegistration, ///< POST /MedicationDispense/$register
    DispenseCancellation, ///< POST /MedicationDispense/{id}/$set-as-error
    Any,                  ///< for faults: whatever is asked next
};
} // namespace emulator
