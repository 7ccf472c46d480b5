// SPDX-License-Identifier: MIT
#pragma once

#include "clock.h"
#include "httpanswer.h"
#include "prescriptionstore.h"
#include "records.h"

namespace emulator
{
/// Books dispenses and takes them back, and moves their prescriptions on and back accordingly.
class DispenseRegister
{
public:
    /// `store` must outlive the register.
    DispenseRegister(PrescriptionStore& store, Clock clock);

    /// Books the dispense that the body describes; throws Refusal.
    HttpAnswer book(const QByteArray& body, const Access& access);
    /// Declares a dispense erroneous; throws Refusal.
    HttpAnswer cancel(const QString& dispenseId, const Access& access);

private:
    PrescriptionStore& m_store;
    Clock m_clock;
};
} // namespace emulator
