// SPDX-License-Identifier: MIT
#pragma once

#include "httpheaders.h"

#include <QJsonObject>

namespace emulator
{
/// An answer before it is put on the wire.
struct HttpAnswer {
    int status = 200;                                           ///< HTTP status code
    QByteArray contentType = "application/json; charset=utf-8"; ///< empty: no such header
    QByteArray body;
    HttpHeaders headers; ///< besides Content-Type, Content-Length and Connection

    static HttpAnswer json(int status, const QJsonObject& content);
    /// Adds a header.
    HttpAnswer& with(const QByteArray& name, const QByteArray& value);

    /// Status line and headers, with the blank line that ends them. Content-Length is that of the whole body.
    QByteArray head(bool keepAlive) const;
};
} // namespace emulator
