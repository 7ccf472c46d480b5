// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace emulator
{
/// A prescription as the registry holds it.
struct Prescription {
    QString id;
    QString card; ///< whose it is
    QString patientId;
    QString serialNumber; ///< of the prescription form
    QString status;       ///< see prescriptionstatus.h
    QString inn;          ///< non-proprietary name
    QString innCode;
    QString tradeName; ///< empty: prescribed by its non-proprietary name alone
    QString tradeNameCode;
    QString dosageCode; ///< numeric, of the dosage dictionary; may be empty
    bool prescribedByInn = false;
    double quantity = 0; ///< doses
    QDate written;
    QDate validUntil; ///< the last day on which it may be dispensed
    QStringList instructions;
    std::optional<double> patientShare; ///< of the price, as a fraction; nothing: the patient pays all
    QString payerId;                    ///< who pays the rest; empty: nobody
    QString practitionerId;
    bool isSigned = true;
};
} // namespace emulator
