// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QUrlQuery>

#include <utility>

/// The names and values, in their order, as a query that reaches the server unchanged.
///
/// Every byte of a value is percent-encoded, except the unreserved characters of RFC 3986, 2.3. A "+" stays a "+" and a
/// "%41" stays a "%41". An empty value is sent as "name=".
QUrlQuery formQuery(const QList<std::pair<QString, QString>>& items);
