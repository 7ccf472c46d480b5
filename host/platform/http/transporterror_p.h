// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QString>

/// Why an exchange with a server gave no complete answer, or one that is not accepted.
///
/// The numbers are RestClient::errorCode() where there is no HTTP status; they stay below 100.
enum class TransportError : int {
    None = 0,
    AddressNotUsable = 1,
    HeaderNotUsable = 2,
    CertificatesNotReadable = 3,
    NameNotFound = 4,
    NotReachable = 5,
    NotSecured = 6,
    CertificateNotVerified = 7,
    TimedOut = 8,
    ConnectionLost = 9,
    AnswerTooLarge = 10,
    AnswerNotUnderstood = 11,
    RedirectRefused = 12,
    TooManyRedirects = 13,
    OptionRefused = 14,
    Stopped = 15,
    NotWrittenDown = 16, ///< in the journal of requests; the text is the journal's
    Failed = 99
};

/// What the cashier reads about a transport error: what happened, and what to do next.
///
/// @param host the server's name
/// @param mayBeCarriedOut true for a request that changes something, was sent and has no complete answer; the text then
///        asks to check before the request is repeated
tr::Tr transportErrorText(TransportError error, const QString& host, bool mayBeCarriedOut);

/// What the cashier reads about an answer with that HTTP status (300 or more).
///
/// @param changesSomething true for a POST with an effect: see leavesOutcomeOpen()
tr::Tr httpStatusText(int status, const QString& host, bool changesSomething);

/// True for 500, 502 and 504 (RFC 9110, 15.6): the server may have failed after it carried the request out, and a
/// gateway does not know what became of it. 501, 503 and 505 refuse the request before anything is done.
bool leavesOutcomeOpen(int status);
