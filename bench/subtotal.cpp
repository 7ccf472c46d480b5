// SPDX-License-Identifier: MIT
// The subtotal of a document with prescription positions, over HTTPS on loopback: the plug-in's whole way from the hook
// to the saved document, and as a floor the same requests by libcurl alone on a kept connection. Both take turns at one
// registry emulator, which answers at once or after 20 ms, so that "ratio" (of the medians) hardly depends on the load
// of the machine. "saving" is the share of the subtotal in which the document is written and synced. "journal" is the
// time of a subtotal whose requests are written down first, as a multiple of one whose requests are not; the two take
// turns.

#include "configured.h"
#include "documentdouble.h"
#include "electronicprescriptionservice.h"
#include "inplace.h"
#include "positionformat.h"
#include "registrythread.h"
#include "requestjournal.h"
#include "savingdouble.h"
#include "serveridentity.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

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
using Milliseconds = std::chrono::duration<double, std::milli>;

void check(bool succeeded, const char* what)
{
    if (!succeeded) {
        throw std::runtime_error(what);
    }
}

QString prescriptionOf(int position)
{
    return u"rx-%1"_s.arg(position);
}

/// A seed of one patient with that many prescriptions. A payer pays half of each price.
QByteArray seedOf(int prescriptions)
{
    QJsonArray all;
    for (int number = 1; number <= prescriptions; ++number) {
        all.append(QJsonObject{{"id", prescriptionOf(number)},
                               {"inn", "Метформин"},
                               {"innCode", "A10BA02"},
                               {"dosageCode", "1003"},
                               {"quantity", 60},
                               {"writtenDaysAgo", 5},
                               {"validDays", 30},
                               {"patientShare", 0.5},
                               {"payer", "payer-1"},
                               {"practitioner", "doctor"}});
    }
    const QJsonObject client = {{"id", "pharmacy"}, {"secret", "secret"}, {"organizationIdentifier", "17"}};
    const QJsonObject doctor = {{"id", "doctor"}, {"family", "Вымышленная"}, {"given", QJsonArray{"Вера"}}};
    const QJsonObject patient = {{"id", "p-1"},
                                 {"card", "1100"},
                                 {"family", "Пробный"},
                                 {"given", QJsonArray{"Пётр"}},
                                 {"birthDate", "1960-01-31"},
                                 {"prescriptions", all}};
    return QJsonDocument(QJsonObject{{"clients", QJsonArray{client}},
                                     {"payers", QJsonArray{QJsonObject{{"id", "payer-1"}, {"name", "Поликлиника"}}}},
                                     {"practitioners", QJsonArray{doctor}},
                                     {"patients", QJsonArray{patient}}})
        .toJson();
}

/// A document of that many prescription positions.
QSharedPointer<DocumentDouble> documentOf(int positions)
{
    const auto document = QSharedPointer<DocumentDouble>::create();
    for (int number = 1; number <= positions; ++number) {
        document->add({number, u"Метфолин 500 мг"_s, Kopecks(500), Kopecks(0), Kopecks(1000), 2.0})
            ->setTag(positionformat::tag);
    }
    return document;
}

/// Gives every position the options of one that is not registered.
void makeDue(const DocumentDouble& document)
{
    for (const auto& position : document.positions) {
        const QJsonObject options = {{positionformat::id, prescriptionOf(position->getNumber())},
                                     {positionformat::tradeNameCode, "1003"},
                                     {positionformat::organizationId, "payer-1"},
                                     {positionformat::sumFactor, 0.5},
                                     {positionformat::doseQuantity, 10},
                                     {positionformat::finalDispense, false},
                                     {positionformat::patientReference, "Patient/p-1"},
                                     {positionformat::patient, "Пробный П. П."}};
        position->setExtendedOptions(QString::fromUtf8(QJsonDocument(options).toJson(QJsonDocument::Compact)));
    }
}

/// A registry that answers after a delay, and its certification authority.
class SlowRegistry
{
public:
    SlowRegistry(int prescriptions, std::chrono::milliseconds delay)
        : m_identity(m_authority)
        , m_delay(delay)
        , m_registry(settings(), seedFile(prescriptions))
    {
        beginAgain();
    }

    QUrl url() const { return m_registry.url(); }
    QString certificates() const { return m_authority.certificateFile(); }

    /// Forgets the dispenses and the requests.
    void beginAgain()
    {
        m_registry.ask([this](emulator::RegistryEmulator& registry) {
            registry.reset();
            if (m_delay.count() > 0) {
                registry.faults().delay(emulator::Endpoint::Any, m_delay, emulator::Occasion::always());
            }
        });
    }
    QList<emulator::JournalEntry> requests() const
    {
        return m_registry.ask([](emulator::RegistryEmulator& registry) { return registry.journal().entries(); });
    }
    quint64 connectionCount() const
    {
        return m_registry.ask([](emulator::RegistryEmulator& registry) { return registry.connectionCount(); });
    }

private:
    emulator::EmulatorSettings settings() const
    {
        emulator::EmulatorSettings settings;
        settings.tlsCertificate = m_identity.certificateFile();
        settings.tlsKey = m_identity.keyFile();
        return settings;
    }
    QString seedFile(int prescriptions) const
    {
        QFile file(m_folder.filePath(u"seed.json"_s));
        check(file.open(QIODevice::WriteOnly), "The seed could not be written");
        file.write(seedOf(prescriptions));
        return file.fileName();
    }

    QTemporaryDir m_folder;
    TestAuthority m_authority;
    ServerIdentity m_identity;
    std::chrono::milliseconds m_delay;
    RegistryThread m_registry;
};

/// Repeats the requests of a subtotal by libcurl alone.
class Replay
{
public:
    Replay(const QList<emulator::JournalEntry>& requests, const SlowRegistry& registry)
        : m_requests(requests)
        , m_base(registry.url().toEncoded())
        , m_easy(curl_easy_init())
    {
        curl_easy_setopt(m_easy, CURLOPT_CAINFO, registry.certificates().toUtf8().constData());
        curl_easy_setopt(m_easy, CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(m_easy, CURLOPT_WRITEDATA, this);
    }
    ~Replay()
    {
        curl_easy_cleanup(m_easy);
        freeHeaders();
    }
    Q_DISABLE_COPY_MOVE(Replay)

    /// Gets a new token for the requests.
    void authorize()
    {
        freeHeaders();
        m_headers.push_back(headersOf(m_requests.first(), {}));
        send(m_requests.first(), m_headers.front());
        const QByteArray token =
            QJsonDocument::fromJson(m_answer).object().value(u"access_token"_s).toString().toLatin1();
        check(!token.isEmpty(), "No token");
        freeHeaders();
        for (const emulator::JournalEntry& request : m_requests) {
            m_headers.push_back(headersOf(request, token));
        }
    }

    void operator()()
    {
        for (qsizetype index = 0; index < m_requests.size(); ++index) {
            send(m_requests[index], m_headers[size_t(index)]);
        }
    }

private:
    static curl_slist* headersOf(const emulator::JournalEntry& request, const QByteArray& token)
    {
        curl_slist* headers = curl_slist_append(nullptr, "Expect:");
        for (const auto& [name, value] : request.headers) {
            if (name == "Host" || name == "Content-Length") {
                continue;
            }
            const bool isToken = name == "Authorization";
            headers = curl_slist_append(headers, (name + ": " + (isToken ? "Bearer " + token : value)).constData());
        }
        return headers;
    }
    void freeHeaders()
    {
        for (curl_slist* headers : m_headers) {
            curl_slist_free_all(headers);
        }
        m_headers.clear();
    }

    void send(const emulator::JournalEntry& request, curl_slist* headers)
    {
        m_answer.clear();
        const QByteArray url = m_base + request.target;
        curl_easy_setopt(m_easy, CURLOPT_URL, url.constData());
        curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, headers);
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDSIZE, long(request.body.size()));
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDS, request.body.constData());
        check(curl_easy_perform(m_easy) == CURLE_OK, "A request failed");
        long status = 0;
        curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
        check(status == 200, "A request was refused");
    }

    static size_t append(char* data, size_t size, size_t count, void* context)
    {
        static_cast<Replay*>(context)->m_answer.append(data, qsizetype(size * count));
        return size * count;
    }

    QList<emulator::JournalEntry> m_requests;
    QByteArray m_base;
    CURL* m_easy;
    std::vector<curl_slist*> m_headers;
    QByteArray m_answer;
};

template <typename Operation>
double millisecondsOf(Operation&& operation)
{
    const Clock::time_point start = Clock::now();
    operation();
    return Milliseconds(Clock::now() - start).count();
}

double medianOf(std::vector<double>& values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void configure(Config& configuration, const SlowRegistry& registry, const QString& dataFolder)
{
    const QString section = u"ElectronicPrescription:"_s;
    configuration.setForThisRun(section + "requestsUrl", registry.url().toString());
    configuration.setForThisRun(section + "authorizationUrl", registry.url().toString());
    configuration.setForThisRun(section + "clientId", u"pharmacy"_s);
    configuration.setForThisRun(section + "clientSecret", u"secret"_s);
    configuration.setForThisRun(section + "organizationIdentifier", u"17"_s);
    configuration.setForThisRun(section + "organizationName", u"Аптека № 17"_s);
    configuration.setForThisRun(section + "organizationAddress", u"ул. Лесная, 1"_s);
    configuration.setForThisRun(u"RestClient:caFile"_s, registry.certificates());
    configuration.setForThisRun(u"Register:data"_s, dataFolder);
}

void subtotal(benchmark::State& state)
{
    const int positions = int(state.range(0));
    SlowRegistry registry(positions, std::chrono::milliseconds(state.range(1)));
    const QTemporaryDir dataFolder;
    Configured configuration;
    configure(configuration, registry, dataFolder.path());

    double saving = 0;
    SavingDouble timedSaving;
    timedSaving.onSave = [&saving](const auto&, const QString&, const SavingDouble::Write& write) {
        saving += millisecondsOf([&write] { check(write(), "The document was not saved"); });
        return true;
    };
    const auto document = documentOf(positions);
    makeDue(*document);
    DocumentWatcher::setCurrentDocument(document);
    RequestJournal withoutPatterns;
    configuration.set(u"RestClient:journal"_s, u"*/MedicationDispense/*"_s);
    RequestJournal journal;
    InPlace<RequestJournal> place(&withoutPatterns);
    ElectronicPrescriptionService service;
    const auto throughTheService = [&] {
        check(service.beforeSubtotal(control::Action(control::Subtotal)) == EContext::GoOn, "The subtotal stopped");
    };

    throughTheService();
    Replay replay(registry.requests(), registry);

    std::vector<double> plugin;
    std::vector<double> journalled;
    std::vector<double> savings;
    std::vector<double> bare;
    for (auto _ : state) {
        registry.beginAgain();
        makeDue(*document);
        saving = 0;
        plugin.push_back(millisecondsOf(throughTheService));
        savings.push_back(saving);

        registry.beginAgain();
        makeDue(*document);
        {
            const InPlace<RequestJournal> here(&journal);
            journalled.push_back(millisecondsOf(throughTheService));
            journal.finishDocument(document->identifier());
        }

        registry.beginAgain();
        replay.authorize();
        bare.push_back(millisecondsOf(replay));
    }
    check(registry.connectionCount() == 2, "A connection was not kept");
    const double whole = medianOf(plugin);
    const double floor = medianOf(bare);
    state.counters["per_position_ms"] = whole / positions;
    state.counters["floor_ms"] = floor / positions;
    state.counters["saving"] = medianOf(savings) / whole;
    state.counters["ratio"] = whole / floor;
    state.counters["journal"] = medianOf(journalled) / whole;

    DocumentWatcher::setCurrentDocument(nullptr);
}

/// The cases: number of positions, and the delay of each answer in milliseconds.
void registerCases()
{
    const auto add = [](int positions, int delay, int rounds) {
        benchmark::RegisterBenchmark("subtotal", subtotal)
            ->Args({positions, delay})
            ->ArgNames({"positions", "delay_ms"})
            ->Iterations(rounds)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add(1, 0, 200);
    add(10, 0, 50);
    add(100, 0, 10);
    add(1, 20, 50);
    add(10, 20, 10);
    add(100, 20, 3);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    registerCases();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
