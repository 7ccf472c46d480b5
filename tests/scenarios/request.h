// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// The value of a header in a request of the registry's journal; empty when it is not there.
inline QString header(const QJsonObject& request, const QString& name)
{
    for (const QJsonValue& field : request.value(QLatin1String("headers")).toArray())
        if (field[QLatin1String("name")].toString().compare(name, Qt::CaseInsensitive) == 0)
            return field[QLatin1String("value")].toString();
    return {};
}
