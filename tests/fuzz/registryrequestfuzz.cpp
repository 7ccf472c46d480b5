// SPDX-License-Identifier: MIT
// A connection's bytes through the emulator's parser, router and registry. "$TOKEN" in them stands for a token that the
// registry has issued.

#include "fuzztarget.h"
#include "registrystate.h"

#include "registryapi.h"
#include "requestparser.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace emulator;

namespace
{

/// The requests in a connection's bytes.
struct Conversation {
    QList<HttpRequest> requests;
    int status = 0; ///< of bytes that are no request; 0: there are none

    /// @param portion how many bytes come at once
    Conversation(const QByteArray& bytes, qsizetype portion)
    {
        RequestParser parser;
        QByteArray received;
        for (qsizetype at = 0; at < bytes.size() && status == 0; at += portion) {
            received += bytes.mid(at, portion);
            readRequests(parser, received);
        }
    }

private:
    void readRequests(RequestParser& parser, QByteArray& received)
    {
        while (!received.isEmpty()) {
            const qsizetype before = received.size();
            const RequestParser::State state = parser.read(received);
            if (state == RequestParser::State::Complete) {
                requests.append(parser.take());
            } else if (state == RequestParser::State::Unreadable) {
                status = parser.status();
            }
            if (state != RequestParser::State::Complete) {
                return;
            }
            promise(received.size() < before, "a request takes up bytes");
        }
    }
};

bool isSame(const HttpRequest& one, const HttpRequest& other)
{
    return one.method == other.method && one.target == other.target && one.headers == other.headers &&
           one.body == other.body && one.keepAlive == other.keepAlive;
}

/// Bytes that are no request may be recognized at once, or only when their end does not come.
bool hasSameRequests(const Conversation& one, const Conversation& other)
{
    return std::equal(one.requests.begin(), one.requests.end(), other.requests.begin(), other.requests.end(), isSame);
}

class Registry
{
public:
    Registry()
        : m_api(
              m_state.store(), [] { return QDateTime(RegistryState::today, QTime(12, 0)); }, u"/fhir"_s)
        , m_token(issueToken())
    {
    }

    const QByteArray& token() const { return m_token; }

    void ask(const HttpRequest& request)
    {
        const qsizetype booked = m_state.store().dispenses().size();
        const HttpAnswer answer = m_api.answer(request, m_api.routeOf(request));
        lookAt(answer);
        m_state.check();
        promise(answer.status == 200 || m_state.store().dispenses().size() == booked, "a refusal books nothing");
    }

    static void lookAt(const HttpAnswer& answer)
    {
        promise(answer.status == 200 || (answer.status >= 400 && answer.status != 500),
                "the registry knows its answer");
        const QJsonDocument body = QJsonDocument::fromJson(answer.body);
        promise(body.isObject(), "every answer is a JSON object");
        promise(answer.status == 200 || !body[u"issue"_s][0][u"details"_s].toString().isEmpty(),
                "a refusal has a text for the cashier");
        promise(answer.head(true).count("\r\n\r\n") == 1, "the answer's head ends once");
    }

    void beginAgain() { m_state.beginAgain(); }

private:
    QByteArray issueToken()
    {
        HttpRequest request;
        request.method = "POST";
        request.target = "/fhir/connect/token";
        request.headers = {{"Content-Type", "application/x-www-form-urlencoded"}};
        request.body =
            "grant_type=client_credentials&client_id=pharmacy&client_secret=secret&organization_identifier=17";
        const HttpAnswer answer = m_api.answer(request, m_api.routeOf(request));
        return QJsonDocument::fromJson(answer.body)[u"access_token"_s].toString().toLatin1();
    }

    RegistryState m_state;
    RegistryApi m_api;
    QByteArray m_token;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Registry registry;
    promise(!registry.token().isEmpty(), "the registry issues a token");
    const QByteArray bytes = bytesOf(data, size).replace("$TOKEN", registry.token());
    const Conversation whole(bytes, std::max<qsizetype>(1, bytes.size()));
    promise(hasSameRequests(whole, Conversation(bytes, 1)), "it does not matter in which portions the bytes come");

    for (const HttpRequest& request : whole.requests) {
        registry.ask(request);
    }
    if (!whole.requests.isEmpty()) {
        registry.beginAgain();
    }
    if (whole.status != 0) {
        Registry::lookAt(RegistryApi::unreadable(whole.status));
    }
    return 0;
}
