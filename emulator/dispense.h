// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

namespace emulator
{
/// What a pharmacy handed out on a prescription.
struct Dispense {
    QString id;
    QString prescriptionId;
    QString pharmacy;    ///< organization identifier of the client that registered it; empty for a seeded one
    double quantity = 0; ///< doses
    QDate handedOver;
    bool isFinal = false; ///< nothing more is to be dispensed on the prescription
    bool isCancelled = false;
    QByteArray resource; ///< the MedicationDispense as it was registered (JSON); empty for a seeded one
    QByteArray claim;    ///< the Claim that came with it (JSON); empty without one
};
} // namespace emulator
