// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QList>
#include <QStringList>

class ElectronicPrescriptionInterface;

/// What a comparison of the till's documents with the registry found.
struct Reconciliation {
    QStringList lines;   ///< for the cashier, a sentence each
    bool isWhole = true; ///< false: something stayed undecided, or the registry could not be asked
    /// Requests of documents that the till does not have, whose outcome is among the lines. The caller settles them in
    /// the journal once the cashier has the lines.
    QList<qint64> told = {};

    /// Decides what is open of the open document, of the suspended ones, and of those closed that day, and looks for
    /// dispenses that no document has. Then it decides all other requests of the journal: those of documents of other
    /// days, of cancelled and voided ones, and of documents that the till does not have.
    ///
    /// @param statuses of prescriptions to ask the registry for, in this order
    static Reconciliation of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                             const QStringList& statuses);
};
