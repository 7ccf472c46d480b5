// SPDX-License-Identifier: MIT
#include "operationoutcome.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace emulator
{
QJsonObject operationOutcome(const QString& details)
{
    const QJsonObject issue{{u"severity"_s, u"error"_s}, {u"details"_s, details}};
    return {{u"resourceType"_s, u"OperationOutcome"_s}, {u"issue"_s, QJsonArray{issue}}};
}
} // namespace emulator
