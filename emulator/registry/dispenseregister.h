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
    /// Marks a dispense as entered in error. Throws Refusal.
    HttpAnswer cancel(const QString& dispenseId, const Access& access);

private:
    PrescriptionStore& m_store;
    Clock m_clock;
};
} // namespace emulator
