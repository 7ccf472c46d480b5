// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace emulator
{
/// What may differ between one registry and another.
struct Rules {
    int tokenLifetime = 3600;  ///< seconds
    QString oaisToken;         ///< the second bearer token that every request must bring; empty: none is asked for
    QString prescriptionScope; ///< scope that a look-up by card needs; empty: any token will do
    QString dispenseScope;     ///< scope that registering and cancelling a dispense needs; empty: any token will do
    /// Coding system of the medicines' dosages. Its codes are the numeric ones that a pharmacy's dictionary holds.
    QString dosageSystem = QString::fromUtf8("http://" DOSAGE_DICTIONARY_HOST "/Справочник.Дозировка");
};
} // namespace emulator
