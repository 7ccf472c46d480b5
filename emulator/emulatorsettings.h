// SPDX-License-Identifier: MIT
#pragma once

#include "clock.h"

#include <QString>

#include <chrono>
#include <optional>

namespace emulator
{
/// The settings of an emulator.
struct EmulatorSettings {
    quint16 port = 0;                              ///< of the registry; 0: a free one
    std::optional<quint16> adminPort;              ///< 0: a free one; nothing: no admin port
    QString basePath;                              ///< in front of the registry's paths, such as "/fhir"; empty: none
    QString dataFile;                              ///< SQLite file that keeps the state; empty: the state is in memory
    QString tlsCertificate;                        ///< PEM file; with it and the key the registry speaks HTTPS
    QString tlsKey;                                ///< PEM file
    std::chrono::milliseconds readTimeout{30'000}; ///< from the first byte of a request to its last
    Clock clock = [] { return QDateTime::currentDateTime(); };
};
} // namespace emulator
