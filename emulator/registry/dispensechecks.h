// SPDX-License-Identifier: MIT
#pragma once

#include "dispensedocument.h"
#include "records.h"

#include <QSet>

namespace emulator
{
/// Those of the rules below that concern the prescription's state and the days. Throws Refusal.
void checkValidity(const Prescription& prescription, const QDate& handedOver, const QDate& today);
/// Those that concern the doses. Throws Refusal.
/// @param dispensed doses handed out so far
void checkQuantity(double quantity, const Prescription& prescription, double dispensed);

/// Checks a dispense against its prescription. Throws the Refusal of the first rule that it breaks; the rules are in
/// docs/registry-protocol.md, in the order in which they are checked.
/// @param dispensed doses handed out so far
/// @param payers    ids of all payers
void checkDispense(const DispenseDocument& document, const Prescription& prescription, double dispensed,
                   const QSet<QString>& payers, const QDate& today);
} // namespace emulator
