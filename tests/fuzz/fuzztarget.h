// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// Called once, before the first input: makes the application.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

/// The one thing that a target does with an input. What it promises is told by promise(); always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the program with `words` when the promise is not kept.
void promise(bool isKept, const char* words);

/// The input as it came.
inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
}
