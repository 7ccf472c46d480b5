// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

/// True when every header may be sent: the names are tokens (RFC 9110, 5.6.2), the values hold no control characters
/// but tabs (5.5), so that neither can begin another header or the body, and none of them frames the request or
/// steers the connection, which is the client's own affair.
bool areHeadersUsable(const QHash<QString, QString>& headers);

/// Those of the headers that may go to a server that the caller did not name: "Accept" alone.
QHash<QString, QString> headersForOtherOrigin(const QHash<QString, QString>& headers);
