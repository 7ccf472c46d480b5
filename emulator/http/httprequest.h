// SPDX-License-Identifier: MIT
#pragma once

#include "httpheaders.h"

namespace emulator
{
/// One request as it was read from the wire, with nothing decoded.
struct HttpRequest {
    QByteArray method;      ///< "GET", "POST", …
    QByteArray target;      ///< the path with its query, percent-encoded
    HttpHeaders headers;    ///< in wire order
    QByteArray body;        ///< without its transfer coding
    bool keepAlive = true;  ///< whether the client lets the connection be used again
    quint64 connection = 0; ///< number of the connection that it came on, counted from 1

    /// The target up to the query, percent-encoded; an absolute target ("http://host/path") loses its origin.
    QByteArray path() const;
    /// What follows the question mark, percent-encoded; empty without one.
    QByteArray query() const;
    /// The first header of that name, whatever its case; empty when there is none.
    QByteArray header(const QByteArray& name) const { return headerValue(headers, name); }
};
} // namespace emulator
