// SPDX-License-Identifier: MIT
#include "dispensefacts.h"

#include "centrounding.h"

#include <QDateTime>
#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

QJsonObject locationOf(const QJsonObject& dispense)
{
    const QJsonArray contained = dispense["contained"_L1].toArray();
    const auto found = std::find_if(contained.begin(), contained.end(), [](const QJsonValue& resource) {
        return resource["resourceType"_L1].toString() == "Location"_L1;
    });
    return found == contained.end() ? QJsonObject() : (*found).toObject();
}

/// The day here, when the registry shows a time with its zone.
QString dayOf(const QString& handedOver)
{
    constexpr qsizetype dayLength = 10;
    const QDateTime time = QDateTime::fromString(handedOver, Qt::ISODate);
    const bool hasZone = time.isValid() && time.timeSpec() != Qt::LocalTime;
    return hasZone ? time.toLocalTime().date().toString(Qt::ISODate) : handedOver.left(dayLength);
}

bool isSameText(const QString& one, const QString& other)
{
    return one.simplified().toCaseFolded() == other.simplified().toCaseFolded();
}

} // namespace

bool DispenseFacts::isOfPharmacy(const DispenseFacts& other) const
{
    return isSameText(pharmacy, other.pharmacy) && isSameText(address, other.address);
}

DispenseFacts DispenseFacts::of(const QJsonObject& dispense)
{
    const QJsonObject location = locationOf(dispense);
    return {
        dayOf(dispense["whenHandedOver"_L1].toString()),
        roundToCents(dispense["quantity"_L1]["value"_L1].toDouble()),
        location["name"_L1].toString(),
        location["address"_L1]["text"_L1].toString(),
    };
}
