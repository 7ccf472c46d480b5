// SPDX-License-Identifier: MIT
// One registry operation, a token POST and a resource GET over HTTPS on loopback: through RestClient, beside the same
// two requests by libcurl alone on a kept connection. Both take turns against one server, so that "ratio" (of the
// medians) does not depend on what else the machine does.

#include "config.h"
#include "restclient.h"
#include "scriptedserver.h"

#include <QApplication>
#include <QJsonObject>

#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

const QString tokenPath = QStringLiteral("/connect/token");
const QString resourcePath = QStringLiteral("/MedicationPrescription/$by-card?patientIdentifier=1100000000000001");
const QByteArray tokenBody = "grant_type=client_credentials&client_id=pharmacy&client_secret=secret&scope=registry";
const QByteArray token(1'000, 't');

QByteArray resourceBody()
{
    constexpr qsizetype textLength = 4'000;
    return R"({"resourceType": "Bundle", "text": ")" + QByteArray(textLength, 'x') + "\"}";
}

Reaction answerTo(const ReceivedRequest& request)
{
    static const Reaction tokenAnswer = Reaction::json(200, R"({"access_token": ")" + token + "\"}");
    static const Reaction resourceAnswer = Reaction::json(200, resourceBody());
    return request.method == "POST" ? tokenAnswer : resourceAnswer;
}

void check(bool succeeded)
{
    if (!succeeded)
        throw std::runtime_error("A request failed");
}

/// The operation as a plug-in performs it: a fresh client for each request.
class ThroughRestClient
{
public:
    explicit ThroughRestClient(const ScriptedServer& server)
        : m_token(server.url(tokenPath))
        , m_resource(server.url().resolved(QUrl(resourcePath)))
    {
    }

    void operator()() const
    {
        const auto tokenClient = RestClient::create();
        tokenClient->post(m_token, tokenBody,
                          {{QStringLiteral("Content-Type"), QStringLiteral("application/x-www-form-urlencoded")},
                           {QStringLiteral("Accept"), QStringLiteral("application/json")}});
        check(tokenClient->errorCode() == 0);
        const QString bearer = tokenClient->answer().object().value(QStringLiteral("access_token")).toString();

        const auto resourceClient = RestClient::create();
        resourceClient->get(m_resource, QJsonDocument(),
                            {{QStringLiteral("Authorization"), QStringLiteral("Bearer ") + bearer},
                             {QStringLiteral("Accept"), QStringLiteral("application/json")}});
        check(resourceClient->errorCode() == 0 && resourceClient->answer().isObject());
    }

private:
    QUrl m_token;
    QUrl m_resource;
};

/// The same bytes by libcurl, with nothing around them; the answers are not even parsed.
class ByBareCurl
{
public:
    ByBareCurl(const ScriptedServer& server, const QString& certificates)
        : m_token(server.url(tokenPath).toEncoded())
        , m_resource(server.url().resolved(QUrl(resourcePath)).toEncoded())
        , m_easy(curl_easy_init())
    {
        curl_easy_setopt(m_easy, CURLOPT_CAINFO, certificates.toUtf8().constData());
        curl_easy_setopt(m_easy, CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(m_easy, CURLOPT_WRITEDATA, this);
        m_resourceHeaders = curl_slist_append(nullptr, ("Authorization: Bearer " + token).constData());
        m_resourceHeaders = curl_slist_append(m_resourceHeaders, "Accept: application/json");
        m_tokenHeaders = curl_slist_append(nullptr, "Accept: application/json");
    }
    ~ByBareCurl()
    {
        curl_easy_cleanup(m_easy);
        curl_slist_free_all(m_tokenHeaders);
        curl_slist_free_all(m_resourceHeaders);
    }
    ByBareCurl(const ByBareCurl&) = delete;
    ByBareCurl& operator=(const ByBareCurl&) = delete;

    void operator()()
    {
        curl_easy_setopt(m_easy, CURLOPT_URL, m_token.constData());
        curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, m_tokenHeaders);
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDSIZE, long(tokenBody.size()));
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDS, tokenBody.constData());
        perform();
        curl_easy_setopt(m_easy, CURLOPT_URL, m_resource.constData());
        curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, m_resourceHeaders);
        curl_easy_setopt(m_easy, CURLOPT_HTTPGET, 1L);
        perform();
    }

private:
    void perform()
    {
        m_answer.clear();
        check(curl_easy_perform(m_easy) == CURLE_OK && !m_answer.isEmpty());
    }

    static size_t append(char* data, size_t size, size_t count, void* context)
    {
        static_cast<ByBareCurl*>(context)->m_answer.append(data, qsizetype(size * count));
        return size * count;
    }

    QByteArray m_token;
    QByteArray m_resource;
    QByteArray m_answer;
    CURL* m_easy;
    curl_slist* m_tokenHeaders = nullptr;
    curl_slist* m_resourceHeaders = nullptr;
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
    Config configuration;
    configuration.setForThisRun(QStringLiteral("RestClient:caFile"), authority.certificateFile());
    Singleton<Config>::instance = &configuration;

    ThroughRestClient throughRestClient(server);
    ByBareCurl byBareCurl(server, authority.certificateFile());
    throughRestClient();
    byBareCurl();

    std::vector<double> client;
    std::vector<double> bare;
    for (auto _ : state) {
        client.push_back(microsecondsOf(throughRestClient));
        bare.push_back(microsecondsOf(byBareCurl));
    }
    check(server.connectionCount() == 2);
    state.counters["restclient_us"] = medianOf(client);
    state.counters["libcurl_us"] = medianOf(bare);
    state.counters["ratio"] = medianOf(client) / medianOf(bare);
    Singleton<Config>::instance = nullptr;
}
BENCHMARK(registryOperation)->Unit(benchmark::kMicrosecond)->UseRealTime()->MinTime(2);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
