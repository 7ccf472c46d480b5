// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

namespace emulator
{
/// Names and values, decoded, in wire order.
using DecodedPairs = QList<std::pair<QString, QString>>;

/// Decodes a part of a URL (RFC 3986, section 2.1). A plus sign stays a plus sign. Nothing when a percent sign is not
/// followed by two hexadecimal digits, or when the octets are not UTF-8.
std::optional<QString> decodePercent(const QByteArray& encoded);

/// Decodes a URL's query: pairs are separated by "&", name and value by the first "=". A plus sign stays a plus sign,
/// because a query is not a form. Nothing when any part cannot be decoded.
std::optional<DecodedPairs> decodeQuery(const QByteArray& query);

/// Decodes a body of type application/x-www-form-urlencoded: as a query, but a plus sign is a space.
std::optional<DecodedPairs> decodeForm(const QByteArray& body);
} // namespace emulator
