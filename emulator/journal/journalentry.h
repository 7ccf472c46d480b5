// SPDX-License-Identifier: MIT
#pragma once

#include "endpoint.h"
#include "httpheaders.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>

namespace emulator
{
/// A request to the registry, and its outcome.
struct JournalEntry {
    qint64 number = 0;
    quint64 connection = 0; ///< requests of one connection have the same number
    QDateTime received;
    Endpoint endpoint = Endpoint::Unknown;
    QByteArray method; ///< empty for bytes that are no request
    QByteArray target; ///< path and query as they were on the wire
    HttpHeaders headers;
    QByteArray body;
    int status = 0;             ///< of the answer; 0 when a fault sends none
    bool answeredWhole = false; ///< the whole answer was given to the system
    QString fault;              ///< name of the fault that hit it; empty without one

    /// The target without its query.
    QByteArray path() const { return target.split('?').constFirst(); }
    QByteArray header(const QByteArray& name) const { return headerValue(headers, name); }
    QJsonObject json() const;
};
} // namespace emulator
