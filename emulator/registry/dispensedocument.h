// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QDate>
#include <QJsonObject>

#include <optional>

namespace emulator
{
/// A dispense as a pharmacy sends it: a Parameters resource with a MedicationDispense and, where a payer has a share,
/// a Claim.
struct DispenseDocument {
    QString prescriptionId;
    QString patientReference; ///< "Patient/…"
    QString medicationCode;   ///< code of what was handed out; may be empty
    QString pharmacyName;     ///< of the place of dispense
    QString pharmacyAddress;  ///< of the place of dispense, in one line
    double quantity = 0;      ///< doses
    bool isFinal = false;
    QDate handedOver;
    std::optional<Claim> claim;

    QJsonObject dispenseResource; ///< the MedicationDispense as it was sent
    QJsonObject claimResource;    ///< the Claim as it was sent; empty without one

    /// Reads a request's body. Throws the Refusal of the first part that is missing or malformed.
    static DispenseDocument read(const QByteArray& body);
};
} // namespace emulator
