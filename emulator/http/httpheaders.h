// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

namespace emulator
{
/// Names and values of header fields, in wire order.
using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// The value of the first field of that name, in any case; empty when there is none.
QByteArray headerValue(const HttpHeaders& headers, const QByteArray& name);

/// The token of an "Authorization: Bearer" value (RFC 6750, section 2.1); empty when the value is of another form.
QByteArray bearerToken(const QByteArray& value);
} // namespace emulator
