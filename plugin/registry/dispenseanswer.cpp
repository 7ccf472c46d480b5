// SPDX-License-Identifier: MIT
#include "dispenseanswer.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView dispenses{"/MedicationDispense/"};
constexpr QLatin1StringView setAsError{"/$set-as-error"};

} // namespace

namespace dispenseanswer
{

QString cancellationPath(const QString& dispense)
{
    return dispenses + dispense + setAsError;
}

QString dispenseOfCancellation(const QString& path)
{
    const qsizetype start = path.indexOf(dispenses) + dispenses.size();
    if (start < dispenses.size() || !path.endsWith(setAsError) || path.size() < start + setAsError.size()) {
        return {};
    }
    return path.sliced(start, path.size() - setAsError.size() - start);
}

bool reports(const QJsonObject& answer, const QString& status)
{
    if (answer["resourceType"_L1].toString() != "Bundle"_L1) {
        return false;
    }
    const QJsonArray entries = answer["entry"_L1].toArray();
    return std::any_of(entries.begin(), entries.end(), [&](const QJsonValue& entry) {
        return entry["transactionResponse"_L1]["status"_L1] == QJsonValue(status);
    });
}

bool reportsAnything(const QJsonObject& answer)
{
    const QJsonArray entries = answer["entry"_L1].toArray();
    return std::any_of(entries.begin(), entries.end(),
                       [](const QJsonValue& entry) { return entry["transactionResponse"_L1]["status"_L1].isString(); });
}

QStringList dispenseIds(const QJsonObject& answer)
{
    QStringList ids;
    const QJsonArray entries = answer["entry"_L1].toArray();
    for (const auto& entry : entries) {
        const QJsonObject resource = entry.toObject()["resource"_L1].toObject();
        if (resource["resourceType"_L1] == QJsonValue("MedicationDispense"_L1)) {
            ids.append(resource["id"_L1].toString());
        }
    }
    return ids;
}

} // namespace dispenseanswer
