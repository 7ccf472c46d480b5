// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

/// True when a request may be sent to that URL at all: http or https, a host, a port above 0 if any, and no name or
/// password in it.
bool isRequestable(const QUrl& url);

/// True when both URLs have the same scheme, host and port (RFC 6454).
bool isSameOrigin(const QUrl& left, const QUrl& right);

/// True for the statuses that send a GET on to another URL (RFC 9110, 15.4): 301, 302, 303, 307 and 308.
bool isRedirect(int status);

/// Where a redirect leads: `location`, the bytes of the header, taken relative to `from`. An invalid URL when it may
/// not be followed: it cannot be requested, or leads from https to http.
QUrl redirectTarget(const QUrl& from, const QByteArray& location);
