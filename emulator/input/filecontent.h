// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace emulator
{
/// The bytes of a file. Throws EmulatorError when it cannot be read.
QByteArray contentOfFile(const QString& path);
} // namespace emulator
