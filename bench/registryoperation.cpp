// SPDX-License-Identifier: MIT
// One registry operation, a token POST and a resource GET over HTTPS on loopback: by the plug-in's registry client, and
// as a floor by libcurl alone on a kept connection. Both take turns at one server, so that "ratio" (of the medians)
// hardly depends on the load of the machine.

#include "configured.h"
#include "electronicprescriptioninterface.h"
#include "scriptedserver.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr qsizetype textLength = 4'000;

QByteArray tokenBody()
{
    return R"({"access_token": ")" + QByteArray(1'000, 't') + "\"}";
}

QByteArray prescriptionsBody()
{
    return R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle", "text": ")" +
           QByteArray(textLength, 'x') + "\"}}]}";
}

Reaction answerTo(const ReceivedRequest& request)
{
    static const Reaction token = Reaction::json(200, tokenBody());
    static const Reaction prescriptions = Reaction::json(200, prescriptionsBody());
    return request.method == "POST" ? token : prescriptions;
}

void check(bool succeeded)
{
    if (!succeeded) {
        throw std::runtime_error("A request failed");
    }
}

/// The plug-in's registry client asks for a card's prescriptions.
class ByRegistryClient
{
public:
    void operator()() const
    {
        QJsonArray prescriptions;
        QJsonObject patient;
        m_client.getElectronicPrescriptionsByCardNumber(u"1100000000000001"_s, u"active"_s, prescriptions, patient);
        check(prescriptions.size() == 1);
    }

private:
    ElectronicPrescriptionInterface m_client;
};

/// The same requests by libcurl alone. The answers are not parsed.
class ByBareCurl
{
public:
    ByBareCurl(const ScriptedServer& server, const QString& certificates)
        : m_easy(curl_easy_init())
    {
        curl_easy_setopt(m_easy, CURLOPT_CAINFO, certificates.toUtf8().constData());
        curl_easy_setopt(m_easy, CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(m_easy, CURLOPT_WRITEDATA, this);
        const QList<ReceivedRequest> requests = server.requests();
        for (const ReceivedRequest& request : requests) {
            m_requests.push_back({server.url().resolved(QUrl::fromEncoded(request.target)).toEncoded(),
                                  headersOf(request), request.method == "POST", request.body});
        }
    }
    ~ByBareCurl()
    {
        curl_easy_cleanup(m_easy);
        for (const Request& request : m_requests) {
            curl_slist_free_all(request.headers);
        }
    }
    ByBareCurl(const ByBareCurl&) = delete;
    ByBareCurl& operator=(const ByBareCurl&) = delete;

    void operator()()
    {
        for (const Request& request : m_requests) {
            send(request);
        }
    }

private:
    struct Request {
        QByteArray url;
        curl_slist* headers = nullptr;
        bool isPost = false;
        QByteArray body;
    };

    static curl_slist* headersOf(const ReceivedRequest& request)
    {
        curl_slist* headers = nullptr;
        for (const QByteArray& line : request.headers) {
            if (!line.startsWith("Host:") && !line.startsWith("Content-Length:")) {
                headers = curl_slist_append(headers, line.constData());
            }
        }
        return headers;
    }

    void send(const Request& request)
    {
        curl_easy_setopt(m_easy, CURLOPT_URL, request.url.constData());
        curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, request.headers);
        if (request.isPost) {
            curl_easy_setopt(m_easy, CURLOPT_POSTFIELDSIZE, long(request.body.size()));
            curl_easy_setopt(m_easy, CURLOPT_POSTFIELDS, request.body.constData());
        } else {
            curl_easy_setopt(m_easy, CURLOPT_HTTPGET, 1L);
        }
        m_answer.clear();
        check(curl_easy_perform(m_easy) == CURLE_OK && !m_answer.isEmpty());
    }

    static size_t append(char* data, size_t size, size_t count, void* context)
    {
        static_cast<ByBareCurl*>(context)->m_answer.append(data, qsizetype(size * count));
        return size * count;
    }

    CURL* m_easy;
    std::vector<Request> m_requests;
    QByteArray m_answer;
};

template <typename Operation>
double microsecondsOf(Operation& operation)
{
    const Clock::time_point start = Clock::now();
    operation();
    return Microseconds(Clock::now() - start).count();
}

double medianOf(std::vector<double>& values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void registryOperation(benchmark::State& state)
{
    const TestAuthority authority;
    const ServerIdentity identity(authority);
    ScriptedServer server(&identity);
    server.reactBy(answerTo);
    Configured configuration;
    configuration.setForThisRun(u"RestClient:caFile"_s, authority.certificateFile());
    for (const char* key : {"requestsUrl", "authorizationUrl"}) {
        configuration.setForThisRun(u"ElectronicPrescription:"_s + key, server.url({}).toString());
    }

    const ByRegistryClient byRegistryClient;
    byRegistryClient();
    ByBareCurl byBareCurl(server, authority.certificateFile());
    byBareCurl();

    std::vector<double> client;
    std::vector<double> bare;
    for (auto _ : state) {
        client.push_back(microsecondsOf(byRegistryClient));
        bare.push_back(microsecondsOf(byBareCurl));
    }
    check(server.connectionCount() == 2);
    state.counters["registryclient_us"] = medianOf(client);
    state.counters["libcurl_us"] = medianOf(bare);
    state.counters["ratio"] = medianOf(client) / medianOf(bare);
}
BENCHMARK(registryOperation)->Unit(benchmark::kMicrosecond)->UseRealTime()->MinTime(2);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
