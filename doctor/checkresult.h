// SPDX-License-Identifier: MIT
#pragma once

#include "findings.h"

#include <QList>
#include <QString>

namespace doctor
{

/// What one check found.
struct CheckResult {
    QString check;  ///< its name in the table of checks, such as "connection"
    QString server; ///< "host:port"; empty for a check of no server
    Finding finding;
    qint64 milliseconds = 0; ///< how long it took
};

/// 0 when nothing is wrong, otherwise the kind of the first result that is.
int exitStatus(const QList<CheckResult>& results);

} // namespace doctor
