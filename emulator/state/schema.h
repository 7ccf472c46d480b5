// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"

/// The tables of a data file. A file carries the number of its schema version; files from before the numbering have
/// the tables of version 1.
namespace emulator::schema
{
/// The version that this emulator reads and writes: that of the newest column in tables.cpp.
int version();

/// Makes the database one of version(): creates the tables in an empty one, and adds what an older one lacks. Throws
/// EmulatorError, and changes nothing, when the database is of a newer version.
/// @param file name of the data file, for the message
void prepare(Database& database, const QString& file);
} // namespace emulator::schema
