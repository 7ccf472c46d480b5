// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace emulator
{
/// What a pharmacy asks a payer for, as it stands in a dispense document.
struct Claim {
    QString prescriptionId;
    QString patientReference; ///< "Patient/…"
    QString payerId;
    double unitPrice = 0; ///< the full price of what was dispensed, in BYN
    double factor = 0;    ///< the payer's share of it, as a fraction
    double net = 0;       ///< what the payer is to pay, in BYN
    QString unitPriceCurrency;
    QString netCurrency;
};
} // namespace emulator
