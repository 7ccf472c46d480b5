// SPDX-License-Identifier: MIT
#include "operationoutcome.h"

#include <QJsonArray>

namespace emulator
{
QJsonObject operationOutcome(const QString& details)
{
    const QJsonObject issue{{QStringLiteral("severity"), QStringLiteral("error")},
                            {QStringLiteral("details"), details}};
    return {{QStringLiteral("resourceType"), QStringLiteral("OperationOutcome")},
            {QStringLiteral("issue"), QJsonArray{issue}}};
}
} // namespace emulator
