// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QUrlQuery>

#include <utility>

/// The names and values, in their order, as a query that reaches the server unchanged: of a value every byte but the
/// unreserved characters of RFC 3986, 2.3 is percent-encoded, so that neither "+" nor "%41" is taken for something
/// else. An empty value is sent as "name=".
QUrlQuery formQuery(const QList<std::pair<QString, QString>>& items);
