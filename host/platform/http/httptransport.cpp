// SPDX-License-Identifier: MIT
#include "httptransport_p.h"

#include "curloptions_p.h"
#include "finally.h"
#include "workstep.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <csignal>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr size_t largestAnswer = size_t(64) * 1024 * 1024;
constexpr int longestSliceMs = 4;
constexpr long mostConnections = 8;
/// Firewalls drop idle connections silently; a request on a dropped one would only time out.
constexpr long longestIdleSeconds = 30;

using HeaderList = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

struct CodeMapping {
    CURLcode code;
    TransportError error;
};

constexpr std::array codes = {
    CodeMapping{CURLE_OK, TransportError::None},

    CodeMapping{CURLE_URL_MALFORMAT, TransportError::AddressNotUsable},
    CodeMapping{CURLE_COULDNT_RESOLVE_HOST, TransportError::NameNotFound},
    CodeMapping{CURLE_COULDNT_RESOLVE_PROXY, TransportError::NameNotFound},
    CodeMapping{CURLE_COULDNT_CONNECT, TransportError::NotReachable},

    CodeMapping{CURLE_SSL_CONNECT_ERROR, TransportError::NotSecured},
    CodeMapping{CURLE_SSL_CACERT_BADFILE, TransportError::CertificatesNotReadable},
    CodeMapping{CURLE_PEER_FAILED_VERIFICATION, TransportError::CertificateNotVerified},
    CodeMapping{CURLE_SSL_ISSUER_ERROR, TransportError::CertificateNotVerified},

    CodeMapping{CURLE_OPERATION_TIMEDOUT, TransportError::TimedOut},
    CodeMapping{CURLE_GOT_NOTHING, TransportError::ConnectionLost},
    CodeMapping{CURLE_PARTIAL_FILE, TransportError::ConnectionLost},
    CodeMapping{CURLE_RECV_ERROR, TransportError::ConnectionLost},
    CodeMapping{CURLE_SEND_ERROR, TransportError::ConnectionLost},

    CodeMapping{CURLE_FILESIZE_EXCEEDED, TransportError::AnswerTooLarge},
    CodeMapping{CURLE_WEIRD_SERVER_REPLY, TransportError::AnswerNotUnderstood},
    CodeMapping{CURLE_UNSUPPORTED_PROTOCOL, TransportError::AnswerNotUnderstood},
    CodeMapping{CURLE_BAD_CONTENT_ENCODING, TransportError::AnswerNotUnderstood},
};

TransportError errorOf(CURLcode code)
{
    const auto row =
        std::find_if(codes.begin(), codes.end(), [code](const CodeMapping& mapping) { return mapping.code == code; });
    return row == codes.end() ? TransportError::Failed : row->error;
}

/// Once in the process. A connection that breaks while it is written to must not end the register.
void initialise()
{
    static const CURLcode result = [] {
        struct sigaction current = {};
        if (sigaction(SIGPIPE, nullptr, &current) == 0 && current.sa_handler == SIG_DFL) {
            std::signal(SIGPIPE, SIG_IGN);
        }
        return curl_global_init(CURL_GLOBAL_DEFAULT);
    }();
    Q_UNUSED(result)
}

void append(HeaderList& list, const QByteArray& line)
{
    list.reset(curl_slist_append(list.release(), line.constData()));
}

/// Runs the application's events. An exception from one of them has nothing to do with the request: its outcome is
/// worth more, and what the exception says may be about a patient.
void runEvents()
{
    const WorkStep::Hidden otherWork;
    try {
        QCoreApplication::processEvents();
    } catch (...) {
        Log4Qt::LogManager::logger(u"restclient"_s)->error(u"An event handler threw while a request was under way"_s);
    }
}

/// libcurl's notation: "Name;" sends an empty value, "Name:" keeps one of its own headers back.
HeaderList headerLines(const HttpRequest& request)
{
    HeaderList list(nullptr, curl_slist_free_all);
    bool hasContentType = false;
    for (auto header = request.headers.begin(); header != request.headers.end(); ++header) {
        const QByteArray name = header.key().toLatin1();
        const QByteArray value = header.value().toUtf8().trimmed();
        append(list, value.isEmpty() ? name + ';' : name + ": " + value);
        hasContentType = hasContentType || name.compare("Content-Type", Qt::CaseInsensitive) == 0;
    }
    append(list, QByteArrayLiteral("Expect:"));
    if (!hasContentType) {
        append(list, request.method == HttpRequest::Method::Get && !request.body.isEmpty()
                         ? QByteArrayLiteral("Content-Type: application/json")
                         : QByteArrayLiteral("Content-Type:"));
    }
    return list;
}

} // namespace

struct HttpTransport::Exchange {
    explicit Exchange(const HttpRequest& request_)
        : request(request_)
        , headers(headerLines(request_))
        , url(request_.url.toEncoded(QUrl::RemoveFragment))
    {
    }

    const HttpRequest& request;
    HeaderList headers;
    QByteArray url;
    HttpAnswer answer;
    size_t received = 0;
    bool isTooLarge = false;
    /// The request was given a connection, so that something of it may have gone out.
    bool isAdmitted = false;
    std::array<char, CURL_ERROR_SIZE> detail{};

    /// False when the answer is too large.
    bool count(size_t bytes)
    {
        received += bytes;
        isTooLarge = received > largestAnswer;
        return !isTooLarge;
    }
};

HttpTransport::Connections HttpTransport::newConnections()
{
    Connections connections(curl_multi_init());
    // Without this limit libcurl's own holds, so that nothing depends on it.
    curl_multi_setopt(connections.get(), CURLMOPT_MAXCONNECTS, mostConnections);
    return connections;
}

HttpTransport::HttpTransport()
{
    initialise();
    m_easy.reset(curl_easy_init());
    m_multi = newConnections();
}

HttpTransport::~HttpTransport() = default;

HttpAnswer HttpTransport::exchange(const HttpRequest& request, const QDeadlineTimer& deadline)
{
    Exchange exchange(request);
    m_isBusy = true;
    const Finally ending([this] {
        curl_easy_reset(m_easy.get()); // it points to the exchange
        m_isBusy = false;
    });
    dropStaleConnections();
    HttpAnswer& answer = exchange.answer;
    if (const Expected<void> configured = configure(exchange); !configured) {
        answer.error = TransportError::OptionRefused;
        answer.detail = configured.failure().detail;
        return answer;
    }
    const std::optional<CURLcode> outcome = perform(request, deadline);
    const CURLcode code = outcome.value_or(CURLE_OK);

    answer.error = !outcome              ? TransportError::Stopped
                   : exchange.isTooLarge ? TransportError::AnswerTooLarge
                                         : errorOf(code);
    // The repeated POST that was held back: its first connection broke before an answer came.
    if (code == CURLE_ABORTED_BY_CALLBACK) {
        answer.error = TransportError::ConnectionLost;
    }
    long status = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
    answer.status = int(status);
    answer.wasSent = exchange.isAdmitted;
    answer.location = header("Location");
    answer.endsWithConnection = answer.status != statusNoContent && header("Content-Length").isEmpty() &&
                                !header("Transfer-Encoding").toLower().contains("chunked");
    answer.detail = QString::fromUtf8(exchange.detail.data());
    if (!outcome) {
        answer.detail = u"stopped by the cashier"_s;
    } else if (answer.detail.isEmpty() && code != CURLE_OK) {
        answer.detail = QString::fromUtf8(curl_easy_strerror(code));
    }
    return answer;
}

/// Between requests a server sends nothing: if there is something to read, it has closed the connection or is about to.
/// libcurl does not see that over TLS, where the closing message looks like data.
void HttpTransport::dropStaleConnections()
{
    const bool anyStale = std::any_of(m_sockets.begin(), m_sockets.end(), [](curl_socket_t socket) {
        pollfd state = {socket, POLLIN | POLLRDHUP, 0};
        return poll(&state, 1, 0) != 0;
    });
    if (anyStale) {
        m_multi.reset();
        m_multi = newConnections();
    }
}

Expected<void> HttpTransport::configure(Exchange& exchange)
{
    CurlOptions options(m_easy.get());
    const HttpRequest& request = exchange.request;

    options.set(CURLOPT_URL, exchange.url.constData());
    options.set(CURLOPT_PATH_AS_IS, 1L);
    options.set(CURLOPT_PROTOCOLS_STR, "http,https");
    options.set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    options.set(CURLOPT_HTTPHEADER, exchange.headers.get());

    const bool isPost = request.method == HttpRequest::Method::Post;
    if (isPost || !request.body.isEmpty()) {
        options.set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(request.body.size()));
        options.set(CURLOPT_POSTFIELDS, request.body.constData());
        if (!isPost) {
            options.set(CURLOPT_CUSTOMREQUEST, "GET");
        }
    }
    options.set(CURLOPT_PREREQFUNCTION, admitRequest);
    options.set(CURLOPT_PREREQDATA, &exchange);

    options.set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    options.set(CURLOPT_SSL_VERIFYPEER, 1L);
    options.set(CURLOPT_SSL_VERIFYHOST, 2L);
    if (!request.certificates.isEmpty()) {
        // A blob, because libcurl compares blobs when it reuses connections and TLS sessions.
        curl_blob certificates = {const_cast<char*>(request.certificates.constData()),
                                  size_t(request.certificates.size()), CURL_BLOB_NOCOPY};
        options.set(CURLOPT_CAINFO_BLOB, &certificates);
        options.set(CURLOPT_CAPATH, static_cast<char*>(nullptr));
    }

    options.set(CURLOPT_PROXY, request.proxy.isEmpty() ? "" : request.proxy.constData());
    options.set(CURLOPT_NOPROXY, "");

    options.set(CURLOPT_NOSIGNAL, 1L);
    // A name server that does not answer must not hold the window after the time is up.
    options.set(CURLOPT_QUICK_EXIT, 1L);
    options.set(CURLOPT_TCP_KEEPALIVE, 1L);
    options.set(CURLOPT_MAXAGE_CONN, longestIdleSeconds);
    options.set(CURLOPT_OPENSOCKETFUNCTION, openSocket);
    options.set(CURLOPT_OPENSOCKETDATA, this);
    options.set(CURLOPT_CLOSESOCKETFUNCTION, closeSocket);
    options.set(CURLOPT_CLOSESOCKETDATA, this);

    options.set(CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
    options.set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(largestAnswer));
    options.set(CURLOPT_HEADERFUNCTION, takeHeader);
    options.set(CURLOPT_HEADERDATA, &exchange);
    options.set(CURLOPT_WRITEFUNCTION, takeBody);
    options.set(CURLOPT_WRITEDATA, &exchange);
    options.set(CURLOPT_ERRORBUFFER, exchange.detail.data());
    return options.outcome();
}

/// Events run whenever a slice of time has passed, not before: a server that answers at once is not kept waiting.
std::optional<CURLcode> HttpTransport::perform(const HttpRequest& request, const QDeadlineTimer& deadline)
{
    CURLM* multi = m_multi.get();
    CURLcode code = CURLE_FAILED_INIT;
    if (curl_multi_add_handle(multi, m_easy.get()) != CURLM_OK) {
        return code;
    }
    const Finally removing([this] { curl_multi_remove_handle(m_multi.get(), m_easy.get()); });
    QElapsedTimer sinceEvents;
    sinceEvents.start();
    for (;;) {
        int running = 0;
        if (curl_multi_perform(multi, &running) != CURLM_OK) {
            break;
        }
        if (running == 0) {
            int left = 0;
            if (const CURLMsg* message = curl_multi_info_read(multi, &left)) {
                code = message->data.result;
            }
            break;
        }
        if (deadline.hasExpired()) {
            code = CURLE_OPERATION_TIMEDOUT;
            break;
        }
        if (request.isStopped && request.isStopped()) {
            return std::nullopt;
        }
        curl_multi_poll(multi, nullptr, 0, longestSliceMs, nullptr);
        if (QCoreApplication::instance() && sinceEvents.elapsed() >= longestSliceMs) {
            runEvents();
            sinceEvents.restart();
        }
    }
    return code;
}

QByteArray HttpTransport::header(const char* name) const
{
    curl_header* found = nullptr;
    return curl_easy_header(m_easy.get(), name, 0, CURLH_HEADER, -1, &found) == CURLHE_OK ? found->value : nullptr;
}

size_t HttpTransport::takeBody(char* data, size_t size, size_t count, void* context)
{
    auto* exchange = static_cast<Exchange*>(context);
    const size_t bytes = size * count;
    if (!exchange->count(bytes)) {
        return CURL_WRITEFUNC_ERROR;
    }
    exchange->answer.body.append(data, qsizetype(bytes));
    return bytes;
}

size_t HttpTransport::takeHeader(char* /*data*/, size_t size, size_t count, void* context)
{
    const size_t bytes = size * count;
    return static_cast<Exchange*>(context)->count(bytes) ? bytes : CURL_WRITEFUNC_ERROR;
}

/// libcurl calls this when the request has its connection and before it is sent there. A second call means that the
/// first connection was dead and that libcurl would send the request again, which a POST must never be.
int HttpTransport::admitRequest(void* context, char* /*serverAddress*/, char* /*ownAddress*/, int /*serverPort*/,
                                int /*ownPort*/)
{
    auto* exchange = static_cast<Exchange*>(context);
    if (exchange->isAdmitted && exchange->request.method == HttpRequest::Method::Post) {
        return CURL_PREREQFUNC_ABORT;
    }
    exchange->isAdmitted = true;
    return CURL_PREREQFUNC_OK;
}

curl_socket_t HttpTransport::openSocket(void* context, curlsocktype /*purpose*/, curl_sockaddr* address)
{
    const curl_socket_t socket = ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (socket >= 0) {
        static_cast<HttpTransport*>(context)->m_sockets.push_back(socket);
    }
    return socket >= 0 ? socket : CURL_SOCKET_BAD;
}

int HttpTransport::closeSocket(void* context, curl_socket_t socket)
{
    auto& sockets = static_cast<HttpTransport*>(context)->m_sockets;
    sockets.erase(std::remove(sockets.begin(), sockets.end(), socket), sockets.end());
    return ::close(socket);
}
