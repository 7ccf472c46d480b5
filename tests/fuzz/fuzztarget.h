// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// Makes the application. Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

/// What a target does with an input. It states what has to hold with promise(), and always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Prints `words` and aborts when the promise is not kept.
void promise(bool isKept, const char* words);

/// The input as bytes.
inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
}
