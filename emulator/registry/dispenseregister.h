// SPDX-License-Identifier: MIT
#pragma once

#include "clock.h"
#include "httpanswer.h"
#include "prescriptionstore.h"
#include "records.h"

namespace emulator
{
/// Books and cancels dispenses, and sets their prescriptions' states accordingly.
class DispenseRegister
{
public:
    /// @param store outlives the register
    DispenseRegister(PrescriptionStore& store, Clock clock);

    /// Books the dispense that the body describes. Throws Refusal.
    HttpAnswer book(const QByteArray& body, const Access& access);
    /// Books a dispense of a pharmacy or till that sends its documents elsewhere, and returns its new id. Throws
    /// Refusal when the prescription is unknown, not valid, or has not so many doses left.
    /// @param dispense its id and documents are not used
    QString bookElsewhere(Dispense dispense);
    /// Marks a dispense as entered in error. Throws Refusal.
    HttpAnswer cancel(const QString& dispenseId, const Access& access);

private:
    /// Throws Refusal.
    Prescription knownPrescription(const QString& id) const;

    PrescriptionStore& m_store;
    Clock m_clock;
};
} // namespace emulator
