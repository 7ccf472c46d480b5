// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// The dispenses that somebody believes in: the registry by its state, the pharmacy by its documents.
namespace soak
{

/// Doses are in hundredths, money in kopecks, so that sums are exact.
struct BookedDispense {
    QString prescription;
    qint64 doses = 0;
    qint64 unitPrice = 0; ///< as the claim has it; 0 without a claim
    qint64 net = 0;       ///< what the payer owes; 0 without a claim

    bool operator==(const BookedDispense&) const = default;
};

/// By the registry's id of the dispense.
using Books = QMap<QString, BookedDispense>;

/// The registry's dispenses that are not cancelled.
///
/// @param prescriptions those of the emulator's state
Books registryBooks(const QJsonArray& prescriptions);

/// The dispenses that closed sales count as registered, with the claim that follows from price and patient's share.
Books documentBooks(const QList<QJsonObject>& documents);

/// What two books do not agree on.
struct Disagreement {
    QStringList onlyInRegistry;  ///< ids
    QStringList onlyInDocuments; ///< ids
    QStringList differing;       ///< a line each, with what both say
};
Disagreement compare(const Books& registry, const Books& documents);

/// What the books add up to.
struct Totals {
    qint64 doses = 0;
    qint64 net = 0;

    bool operator==(const Totals&) const = default;
};
Totals totalsOf(const Books& books);

/// The requests in the register's journal that are not settled, a line each with number and address.
///
/// @param journal in the form of docs/data-folder.md
QStringList openRequests(const QByteArray& journal);

/// Roubles to kopecks, doses to hundredths.
qint64 hundredths(const QJsonValue& amount);

} // namespace soak
