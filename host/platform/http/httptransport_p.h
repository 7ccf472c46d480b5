// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "transporterror_p.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QUrl>

#include <curl/curl.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QDeadlineTimer;

struct HttpRequest {
    enum class Method : int { Get, Post };

    Method method = Method::Get;
    QUrl url;
    QHash<QString, QString> headers;
    QByteArray body;
    /// PEM; empty: the system's certificates.
    QByteArray certificates;
    /// URL of a proxy; empty: none. The environment's proxy is never taken.
    QByteArray proxy;
    /// Asked every few milliseconds: true ends the exchange with TransportError::Stopped. Empty: nobody stops it.
    std::function<bool()> isStopped;
};

/// A success without a body (RFC 9110, 15.3.5).
constexpr int statusNoContent = 204;

struct HttpAnswer {
    TransportError error = TransportError::None;
    /// 0 when no status line came.
    int status = 0;
    QByteArray body;
    /// Value of the "Location" header, or empty.
    QByteArray location;
    /// Only the end of the connection ended the body, so that a broken connection looks the same.
    bool endsWithConnection = false;
    /// False when certainly nothing of the request went out: there was no connection.
    bool wasSent = false;
    /// What went wrong, in the transport's words, in English, for the log; empty when nothing did. Holds nothing of the
    /// request or of the answer's body.
    QString detail;
};

/// Sends single requests over HTTP/1.1 and keeps the connections for the next ones.
///
/// While it waits for the server it lets the application's events run; it does not keep input away (see InputBlocker).
/// An exception from such an event is logged, and the request goes on. A request is never redirected, and a POST goes
/// out at most once. A compressed body (RFC 9110, 8.4.1) is unpacked. Not re-entrant: see isBusy(). Main thread.
class HttpTransport
{
public:
    HttpTransport();
    ~HttpTransport();
    Q_DISABLE_COPY_MOVE(HttpTransport)

    /// Returns when the answer is there, or the exchange failed, or the deadline has passed.
    HttpAnswer exchange(const HttpRequest& request, const QDeadlineTimer& deadline);

    /// True while exchange() runs, as an event handler may find it.
    bool isBusy() const { return m_isBusy; }

private:
    struct Exchange;
    struct EasyDeleter {
        void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
    };
    struct MultiDeleter {
        void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
    };

    using Connections = std::unique_ptr<CURLM, MultiDeleter>;

    static Connections newConnections();
    void dropStaleConnections();
    /// @return a failure when libcurl did not take an option; the request must not go out then
    Expected<void> configure(Exchange& exchange);
    /// @return nothing when the request was stopped
    std::optional<CURLcode> perform(const HttpRequest& request, const QDeadlineTimer& deadline);
    /// A header's value in the last answer; empty when it has none of that name.
    QByteArray header(const char* name) const;

    static size_t takeBody(char* data, size_t size, size_t count, void* context);
    static size_t takeHeader(char* data, size_t size, size_t count, void* context);
    static int admitRequest(void* context, char* serverAddress, char* ownAddress, int serverPort, int ownPort);
    static curl_socket_t openSocket(void* context, curlsocktype purpose, curl_sockaddr* address);
    static int closeSocket(void* context, curl_socket_t socket);

    bool m_isBusy = false;
    /// The open sockets of m_multi's connections, which go before this list does.
    std::vector<curl_socket_t> m_sockets;
    /// Kept from request to request for its TLS sessions.
    std::unique_ptr<CURL, EasyDeleter> m_easy;
    Connections m_multi;
};
