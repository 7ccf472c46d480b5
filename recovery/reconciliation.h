// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QStringList>

class ElectronicPrescriptionInterface;

/// What a comparison of the till's documents with the registry found.
struct Reconciliation {
    QStringList lines;   ///< for the cashier, a sentence each
    bool isWhole = true; ///< false: something stayed undecided, or the registry could not be asked

    /// Decides what is open of the open document, of the suspended ones, and of those closed that day, and looks for
    /// dispenses that no document has.
    ///
    /// @param statuses of prescriptions to ask the registry for, in this order
    static Reconciliation of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                             const QStringList& statuses);
};
