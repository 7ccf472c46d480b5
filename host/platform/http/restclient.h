// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "mockfactory.h"
#include "tr.h"

#include <QByteArray>
#include <QHash>
#include <QJsonDocument>
#include <QString>
#include <QUrl>

#include <memory>

class RestClient;
extern template struct REGISTERPLATFORM_EXPORT MockFactory<RestClient>;

/// One JSON request over HTTP(S) at a time, synchronous for its caller.
///
/// While a request runs, the window is painted and animated, key presses, clicks and touches are thrown away, and no
/// action runs (see InputBlocker). Connections are kept between requests and shared by all clients. An event handler
/// that runs meanwhile, such as a timer's, may send requests with a client of its own. The first request continues
/// after them; its time-out does not stop. The WorkSteps of the first request are hidden from the handler. When an
/// event handler throws, that is logged without the exception's text, and the request goes on.
///
/// - Esc asks the register whether to stop waiting. A request that changes nothing on the server, a GET or one of a
///   WorkStep without effect, ends at once; for any other one the cashier is asked first, and its outcome is unknown.
/// - A POST reaches the wire at most once, whatever happens to the connection. It is never redirected. A GET is sent
///   again when a kept connection turns out to be dead.
/// - A GET follows at most five redirects; to another origin (RFC 6454) neither its body nor any of the caller's
///   headers goes along except "Accept". A redirect from https to http is refused.
/// - TLS 1.2 or newer, and always verified, against the system's certificates or, when "RestClient:caFile" names a PEM
///   file, against that file alone. The file is read for each request.
/// - The proxy is what "RestClient:proxy" names (a URL), or none; the environment's settings are not used.
/// - Without a length a truncated answer looks complete: a POST's answer without one that is no JSON object or array
///   counts as lost.
/// - An answer may be compressed ("gzip" or "deflate"). One larger than 64 MiB, headers included and the body unpacked,
///   is refused.
/// - A POST whose path fits "RestClient:journal" is in the RequestJournal before it goes out, and what came of it
///   before post() returns. It is not sent when it cannot be written down.
/// - Only http and https URLs with a host, and without a user name or password; any other URL, an invalid one among
///   them, is refused before anything is sent. A header name that is no token, a value with a control
///   character (RFC 9110, 5.5 and 5.6.2), and the headers that frame a request ("Host", "Connection",
///   "Content-Length", "Transfer-Encoding", "Expect") are refused before anything is sent.
///
/// A failed request is logged with its method, the server's scheme, name and port, the error code and the transport's
/// reason, and with nothing of its path, query, headers or body, or of the answer.
/// Main thread only. The caller owns the client and may use it for several requests.
class REGISTERPLATFORM_EXPORT RestClient : public MockFactory<RestClient>
{
public:
    /// What is known of a request that failed.
    enum class Outcome : int {
        Settled, ///< the server has answered, nothing went out, or the request changes nothing
        Unknown, ///< a POST that went out and has no whole answer, or one of 500, 502, 504: it may have been carried
                 ///< out
        Stopped, ///< the cashier stopped a request that changes nothing
    };

    RestClient();
    virtual ~RestClient();
    Q_DISABLE_COPY_MOVE(RestClient)

    /// The time that a whole request may take, redirects included, in seconds; 0 or less counts as 60.
    virtual void setTimeout(int seconds);

    /// Sends a GET. `body` is sent as JSON when it is not null (RFC 9110, 9.3.1 advises against); usually it is null.
    virtual void get(const QUrl& url, const QJsonDocument& body, const QHash<QString, QString>& headers);

    /// Sends a POST with `body` as it is.
    virtual void post(const QUrl& url, const QByteArray& body, const QHash<QString, QString>& headers);

    /// 0: the last request succeeded (status 200 to 299, answer complete). Greater than 0: it failed; the HTTP status
    /// when there was one (300 and more), otherwise the transport's own code, below 100.
    virtual int errorCode() const;

    /// What went wrong and what to do next, for the cashier. For a POST of unknown outcome it says that the request
    /// may have been carried out.
    virtual tr::Tr errorText() const;

    /// The body of the answer, also of an error answer; null when it is not a JSON object or array.
    virtual QJsonDocument answer() const;

    /// What is known of the last request; Settled when it succeeded.
    virtual Outcome outcome() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
