// SPDX-License-Identifier: MIT
#pragma once

#include "httpheaders.h"

namespace emulator
{
/// A request as it was on the wire, with nothing decoded.
struct HttpRequest {
    QByteArray method;      ///< "GET", "POST", …
    QByteArray target;      ///< the path with its query, percent-encoded
    HttpHeaders headers;    ///< in wire order
    QByteArray body;        ///< without its transfer coding
    bool keepAlive = true;  ///< the connection may serve further requests
    quint64 connection = 0; ///< number of the connection, counted from 1

    /// The target up to the query, percent-encoded; an absolute target ("http://host/path") loses its origin.
    QByteArray path() const;
    /// What follows the question mark, percent-encoded; empty without one.
    QByteArray query() const;
    /// See headerValue().
    QByteArray header(const QByteArray& name) const { return headerValue(headers, name); }
    /// The media type of the body in lower case, without parameters; empty when none is named.
    QByteArray mediaType() const;
};
} // namespace emulator
