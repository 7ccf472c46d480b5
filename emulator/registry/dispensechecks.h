// SPDX-License-Identifier: MIT
#pragma once

#include "dispensedocument.h"
#include "records.h"

#include <QSet>

namespace emulator
{
/// Holds a dispense against its prescription. Throws Refusal (422) for the first rule that it breaks; the rules and
/// their texts are listed in docs/registry-protocol.md.
///
/// `dispensed`: doses handed out so far; `payers`: ids of every known payer.
void checkDispense(const DispenseDocument& document, const Prescription& prescription, double dispensed,
                   const QSet<QString>& payers, const QDate& today);
} // namespace emulator
