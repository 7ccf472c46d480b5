// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"
#include "table.h"

/// The registry's tables. Each is described where its columns are listed, in tables.cpp.
namespace emulator::tables
{
const Table<Client>& clients();
const Table<Payer>& payers();
const Table<Practitioner>& practitioners();
const Table<Patient>& patients();
const Table<Prescription>& prescriptions();
const Table<Dispense>& dispenses();
} // namespace emulator::tables
