// SPDX-License-Identifier: MIT
#pragma once

#include "prescriptionstore.h"

namespace emulator
{
/// Puts `count` more prescriptions on a card, to measure long lists. A new card gets a holder. All prescriptions are
/// active, written `today` and valid for a year; they differ in medicine, quantity and the patient's share.
void addSyntheticPrescriptions(PrescriptionStore& store, const QString& card, int count, const QDate& today);
} // namespace emulator
