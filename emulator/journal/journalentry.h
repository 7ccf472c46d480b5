// SPDX-License-Identifier: MIT
#pragma once

#include "endpoint.h"
#include "httpheaders.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>

namespace emulator
{
/// One request to the registry, and what became of it.
struct JournalEntry {
    qint64 number = 0;
    quint64 connection = 0; ///< requests of one connection have the same number
    QDateTime received;
    Endpoint endpoint = Endpoint::Unknown;
    QByteArray method; ///< empty for what could not be read as a request
    QByteArray target; ///< path and query as they stood on the wire
    HttpHeaders headers;
    QByteArray body;
    int status = 0;             ///< of the answer; 0 when none was to be sent
    bool answeredWhole = false; ///< the whole answer was handed to the network
    QString fault;              ///< name of the fault that met it; empty without one

    /// The target without its query.
    QByteArray path() const { return target.split('?').constFirst(); }
    QByteArray header(const QByteArray& name) const { return headerValue(headers, name); }
    QJsonObject json() const;
};
} // namespace emulator
