// SPDX-License-Identifier: MIT
#pragma once

#include "prescriptionstore.h"

namespace emulator
{
/// Puts `count` more prescriptions on a card, for measuring with long lists; a card that is not known yet gets a
/// holder. All are active, written `today`, valid for a year, and differ in medicine, quantity and the patient's share.
void addSyntheticPrescriptions(PrescriptionStore& store, const QString& card, int count, const QDate& today);
} // namespace emulator
