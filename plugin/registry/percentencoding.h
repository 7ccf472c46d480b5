// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

/// A value of a query or a form such that it reaches the server as it is: every character but the unreserved ones of
/// RFC 3986, 2.3 becomes its UTF-8 octets. QUrlQuery alone would leave "+" and "%41" as they stand.
inline QString percentEncoded(const QString& value)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(value));
}
