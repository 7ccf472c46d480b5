// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

using namespace Qt::StringLiterals;

/// The value of a header in a request of the registry's journal; empty when it is not there.
inline QString header(const QJsonObject& request, const QString& name)
{
    for (const QJsonValue& field : request.value("headers"_L1).toArray()) {
        if (field["name"_L1].toString().compare(name, Qt::CaseInsensitive) == 0) {
            return field["value"_L1].toString();
        }
    }
    return {};
}
