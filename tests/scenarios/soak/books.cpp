// SPDX-License-Identifier: MIT
#include "books.h"

#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

constexpr int saleType = 1;

/// A quotient of numbers that are not negative, rounded half up.
qint64 divide(qint64 dividend, qint64 divisor)
{
    return (2 * dividend + divisor) / (2 * divisor);
}

/// The claim as docs/registry-protocol.md wants it. The price is what the patient paid for its share.
void claimOf(const QJsonObject& position, const QJsonObject& options, BookedDispense& dispense)
{
    const qint64 share = hundredths(options.value("sumFactor"_L1)); // of the price, in percent
    constexpr qint64 whole = 100;
    if (share == whole) {
        return;
    }
    if (share == 0) {
        const qint64 packs = position.value("quantity"_L1).toInteger();
        dispense.unitPrice = hundredths(position.value("tmcPrice"_L1)) * packs;
        dispense.net = dispense.unitPrice;
        return;
    }
    const qint64 sum = hundredths(position.value("sum"_L1));
    dispense.unitPrice = divide(sum * whole, share);
    dispense.net = divide(sum * (whole - share), share);
}

QString lineOf(const BookedDispense& dispense)
{
    return u"%1: %2 doses, unit price %3, net %4"_s.arg(dispense.prescription)
        .arg(dispense.doses)
        .arg(dispense.unitPrice)
        .arg(dispense.net);
}

} // namespace

qint64 hundredths(const QJsonValue& amount)
{
    return std::llround(amount.toDouble() * 100);
}

Books registryBooks(const QJsonArray& prescriptions)
{
    Books books;
    for (const QJsonValue& prescription : prescriptions) {
        for (const QJsonValue& dispense : prescription["dispenses"_L1].toArray()) {
            if (dispense["cancelled"_L1].toBool()) {
                continue;
            }
            const QJsonValue item = dispense["claim"_L1]["item"_L1][0];
            books.insert(dispense["id"_L1].toString(), {.prescription = prescription["id"_L1].toString(),
                                                        .doses = hundredths(dispense["quantity"_L1]),
                                                        .unitPrice = hundredths(item["unitPrice"_L1]["value"_L1]),
                                                        .net = hundredths(item["net"_L1]["value"_L1])});
        }
    }
    return books;
}

Books documentBooks(const QList<QJsonObject>& documents)
{
    Books books;
    for (const QJsonObject& document : documents) {
        if (document.value("type"_L1).toInt() != saleType || document.value("state"_L1) != "closed"_L1) {
            continue;
        }
        for (const QJsonValue& position : document.value("positions"_L1).toArray()) {
            const QJsonObject options =
                QJsonDocument::fromJson(position["extendedOptions"_L1].toString().toUtf8()).object();
            if (options.value("status"_L1) != "dispensed"_L1) {
                continue;
            }
            BookedDispense dispense{.prescription = options.value("id"_L1).toString(),
                                    .doses = hundredths(options.value("doseQuantity"_L1))};
            claimOf(position.toObject(), options, dispense);
            books.insert(options.value("medicationDispenseId"_L1).toString(), dispense);
        }
    }
    return books;
}

Disagreement compare(const Books& registry, const Books& documents)
{
    Disagreement found;
    for (auto it = registry.cbegin(); it != registry.cend(); ++it) {
        const auto other = documents.constFind(it.key());
        if (other == documents.cend()) {
            found.onlyInRegistry.append(it.key());
        } else if (*other != *it) {
            found.differing.append(u"registry %1; document %2"_s.arg(lineOf(*it), lineOf(*other)));
        }
    }
    for (auto it = documents.cbegin(); it != documents.cend(); ++it) {
        if (!registry.contains(it.key())) {
            found.onlyInDocuments.append(it.key());
        }
    }
    return found;
}

Totals totalsOf(const Books& books)
{
    Totals totals;
    for (const BookedDispense& dispense : books) {
        totals.doses += dispense.doses;
        totals.net += dispense.net;
    }
    return totals;
}

QStringList openRequests(const QByteArray& journal)
{
    QMap<qint64, QString> open;
    for (const QByteArray& text : journal.split('\n')) {
        const QJsonObject line = QJsonDocument::fromJson(text).object();
        const qint64 id = line.value("id"_L1).toInteger();
        if (line.contains("method"_L1)) {
            open.insert(id, u"%1: %2"_s.arg(id).arg(line.value("url"_L1).toString()));
        } else if (line.value("settled"_L1).toBool()) {
            open.remove(id);
        }
    }
    return open.values();
}

} // namespace soak
