// SPDX-License-Identifier: MIT
#include "restclient.h"

#include "config.h"
#include "httptransport_p.h"
#include "inputblocker.h"
#include "redirect_p.h"
#include "requestheaders_p.h"
#include "requestjournal.h"
#include "runningrequest.h"
#include "workstep.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDeadlineTimer>
#include <QFile>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

template struct MockFactory<RestClient>;

namespace
{

using Method = HttpRequest::Method;

constexpr int defaultTimeoutSeconds = 60;
constexpr int mostRedirects = 5;
constexpr int firstStatusOfFailure = 300;
constexpr int statusSeeOther = 303;

/// The one transport of the process; it keeps the connections.
HttpTransport& sharedTransport()
{
    static HttpTransport transport;
    return transport;
}

/// An event handler that sends a request while another one waits gets a transport of its own.
HttpAnswer exchange(const HttpRequest& request, const QDeadlineTimer& deadline)
{
    if (!sharedTransport().isBusy()) {
        return sharedTransport().exchange(request, deadline);
    }
    return HttpTransport().exchange(request, deadline);
}

/// The configured certificates; nothing when their file cannot be read or is empty.
std::optional<QByteArray> configuredCertificates()
{
    const QString name = Singleton<Config>::get()->getString(u"RestClient:caFile"_s);
    if (name.isEmpty()) {
        return QByteArray();
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray certificates = file.readAll();
    return certificates.isEmpty() ? std::nullopt : std::optional(certificates);
}

HttpAnswer refusal(TransportError error)
{
    HttpAnswer answer;
    answer.error = error;
    return answer;
}

/// Makes `request` the one that follows a redirect to `target`.
void redirect(HttpRequest& request, const QUrl& target, int status)
{
    const bool leavesOrigin = !isSameOrigin(request.url, target);
    if (leavesOrigin) {
        request.headers = headersForOtherOrigin(request.headers);
    }
    if (leavesOrigin || status == statusSeeOther) {
        request.body.clear();
    }
    request.url = target;
}

/// Sends the request, and a GET on to where the server's redirects lead. `request` is then the last one that was sent.
HttpAnswer send(HttpRequest& request, const QDeadlineTimer& deadline)
{
    if (!isRequestable(request.url)) {
        return refusal(TransportError::AddressNotUsable);
    }
    if (!areHeadersUsable(request.headers)) {
        return refusal(TransportError::HeaderNotUsable);
    }
    const std::optional<QByteArray> certificates = configuredCertificates();
    if (!certificates) {
        return refusal(TransportError::CertificatesNotReadable);
    }
    request.certificates = *certificates;
    request.proxy = Singleton<Config>::get()->getString(u"RestClient:proxy"_s).toUtf8();

    for (int redirects = 0;; ++redirects) {
        HttpAnswer answer = exchange(request, deadline);
        if (answer.error != TransportError::None || request.method == Method::Post || !isRedirect(answer.status) ||
            answer.location.isEmpty()) {
            return answer;
        }
        const QUrl target = redirectTarget(request.url, answer.location);
        if (!target.isValid() || redirects == mostRedirects) {
            answer.error = target.isValid() ? TransportError::TooManyRedirects : TransportError::RedirectRefused;
            return answer;
        }
        redirect(request, target, answer.status);
    }
}

/// Without a length a truncated answer looks complete. A part of a JSON object or array is not JSON, so an answer that
/// is JSON is complete.
bool mayBeCutShort(const HttpAnswer& answer, const QJsonDocument& parsed)
{
    return answer.error == TransportError::None && answer.endsWithConnection && parsed.isNull();
}

void logFailure(const HttpRequest& request, const HttpAnswer& answer, int errorCode)
{
    constexpr auto onlyOrigin = QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    const QString method = request.method == Method::Post ? u"POST"_s : u"GET"_s;
    const QString reason = answer.detail.isEmpty() ? QString() : u' ' + answer.detail;
    Log4Qt::LogManager::logger(u"restclient"_s)
        ->warn(method + u' ' + request.url.toString(onlyOrigin) + u" failed: "_s + QString::number(errorCode) + reason);
}

} // namespace

class RestClient::Private
{
public:
    HttpAnswer run(HttpRequest request);
    void runJournalled(const HttpRequest& request);
    JournalledRequest::State stateOf(const HttpAnswer& received) const;

    int timeoutSeconds = defaultTimeoutSeconds;
    int errorCode = 0;
    tr::Tr errorText;
    QJsonDocument answer;
    Outcome outcome = Outcome::Settled;
};

/// @return what came of it; an answer that may be cut short counts as lost
HttpAnswer RestClient::Private::run(HttpRequest request)
{
    const std::chrono::seconds limit(timeoutSeconds > 0 ? timeoutSeconds : defaultTimeoutSeconds);
    const QDeadlineTimer deadline(limit);
    const bool isPost = request.method == Method::Post;
    const bool changesSomething = isPost && !WorkStep::isWithoutEffect();
    HttpAnswer received;
    {
        RunningRequest running(limit, changesSomething, WorkStep::currentText());
        request.isStopped = [&running] { return running.isStopped(); };
        const InputBlocker blocker;
        received = send(request, deadline);
    }

    const bool hasFailedStatus = received.status >= firstStatusOfFailure;
    answer = received.error == TransportError::None ? QJsonDocument::fromJson(received.body) : QJsonDocument();
    if (isPost && !hasFailedStatus && mayBeCutShort(received, answer)) {
        received.error = TransportError::ConnectionLost;
        received.detail = u"the connection ended before the answer was JSON"_s;
    }
    const bool isWhole = received.error == TransportError::None;
    const bool mayBeCarriedOut = changesSomething && (isWhole ? leavesOutcomeOpen(received.status) : received.wasSent);
    errorCode = hasFailedStatus ? received.status : int(received.error);
    if (!isWhole) {
        errorText = transportErrorText(received.error, request.url.host(), mayBeCarriedOut);
    } else if (hasFailedStatus) {
        errorText = httpStatusText(received.status, request.url.host(), changesSomething);
    } else {
        errorText = {};
    }
    outcome = mayBeCarriedOut                             ? Outcome::Unknown
              : received.error == TransportError::Stopped ? Outcome::Stopped
                                                          : Outcome::Settled;
    if (errorCode != 0) {
        logFailure(request, received, errorCode);
    }
    return received;
}

/// What the journal says of the request that was run last. An answer without the server's own word says nothing.
JournalledRequest::State RestClient::Private::stateOf(const HttpAnswer& received) const
{
    using State = JournalledRequest::State;
    const bool isEmpty = received.error == TransportError::None && received.status < firstStatusOfFailure &&
                         received.status != statusNoContent && answer.isNull();
    if (outcome == Outcome::Unknown || isEmpty) {
        return State::Unanswered;
    }
    if (received.error == TransportError::None) {
        return State::Answered;
    }
    return received.wasSent ? State::Unanswered : State::NotSent;
}

void RestClient::Private::runJournalled(const HttpRequest& request)
{
    RequestJournal& journal = *Singleton<RequestJournal>::get();
    const Expected<qint64> id = journal.begin(u"POST"_s, request.url, request.body);
    if (!id) {
        errorCode = int(TransportError::NotWrittenDown);
        errorText = id.failure().text;
        answer = {};
        outcome = Outcome::Settled;
        Log4Qt::LogManager::logger(u"restclient"_s)->warn(u"POST not sent: "_s + id.failure().detail);
        return;
    }
    const HttpAnswer received = run(request);
    journal.end(*id, stateOf(received), received.status, received.body);
}

RestClient::RestClient()
    : d(std::make_unique<Private>())
{
}

RestClient::~RestClient() = default;

void RestClient::setTimeout(int seconds)
{
    d->timeoutSeconds = seconds;
}

void RestClient::get(const QUrl& url, const QJsonDocument& body, const QHash<QString, QString>& headers)
{
    HttpRequest request;
    request.url = url;
    request.headers = headers;
    if (!body.isNull()) {
        request.body = body.toJson(QJsonDocument::Compact);
    }
    d->run(std::move(request));
}

void RestClient::post(const QUrl& url, const QByteArray& body, const QHash<QString, QString>& headers)
{
    HttpRequest request;
    request.method = Method::Post;
    request.url = url;
    request.headers = headers;
    request.body = body;
    if (Singleton<RequestJournal>::get()->covers(url)) {
        d->runJournalled(request);
    } else {
        d->run(std::move(request));
    }
}

int RestClient::errorCode() const
{
    return d->errorCode;
}

tr::Tr RestClient::errorText() const
{
    return d->errorText;
}

QJsonDocument RestClient::answer() const
{
    return d->answer;
}

RestClient::Outcome RestClient::outcome() const
{
    return d->outcome;
}
