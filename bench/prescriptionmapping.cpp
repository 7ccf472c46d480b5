// SPDX-License-Identifier: MIT
// The time that the plug-in adds to parsing a card's answer, and the time that it takes to leave out served
// prescriptions.

#include "bycardanswer.h"
#include "documentdouble.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "prescriptionstore.h"
#include "syntheticprescriptions.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace
{

/// The processor time of this thread. The wall clock says little on a busy machine.
struct ThreadClock {
    using duration = std::chrono::nanoseconds;

    static duration now()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }
};

QString prescriptionId(int number)
{
    return u"prescription-%1"_s.arg(number, 8, 10, QChar(u'0'));
}

/// The registry's answer for a card with that many prescriptions, each with one earlier dispense.
QByteArray cardAnswer(int prescriptions)
{
    const QString card = u"1100000000000099"_s;
    const QDate today(2026, 3, 1);
    emulator::PrescriptionStore store;
    emulator::addSyntheticPrescriptions(store, card, prescriptions, today);
    for (const emulator::Prescription& prescription : store.prescriptionsOfCard(card)) {
        emulator::Dispense dispense;
        dispense.id = u"dispense-"_s + prescription.id;
        dispense.prescriptionId = prescription.id;
        dispense.quantity = 1;
        dispense.handedOver = today;
        store.book(dispense, prescription.status);
    }
    const QJsonObject answer = emulator::byCardAnswer(store, *store.patientOfCard(card), u"active"_s);
    return QJsonDocument(answer).toJson(QJsonDocument::Compact);
}

/// The registry client with bytes instead of a server. It keeps the parsed document, so that its destruction is not
/// measured, which is neither parsing nor mapping.
class ClientOfBytes : public ElectronicPrescriptionInterface
{
public:
    explicit ClientOfBytes(const QByteArray& answer)
        : m_answer(answer)
    {
    }

    void getAuthorizationToken(QString& token) const override { token = u"token"_s; }
    void sendGetRequest(QUrl&, const Headers&, const QueryItems&, QJsonDocument& result) const override
    {
        result = QJsonDocument::fromJson(m_answer);
        m_document = result;
    }

    void dropDocument() const { m_document = {}; }

private:
    QByteArray m_answer;
    mutable QJsonDocument m_document;
};

class ServiceOfBytes : public ElectronicPrescriptionService
{
public:
    explicit ServiceOfBytes(const QSharedPointer<ClientOfBytes>& client)
    {
        registryClient = client;
        dosageSystemId = emulator::Rules().dosageSystem;
    }
};

/// Counter "added": the time beyond parsing as a share of the parsing time, both of the same run.
void bytesToRecords(benchmark::State& state)
{
    const int count = int(state.range(0));
    const QByteArray answer = cardAnswer(count);
    const QSharedPointer<ClientOfBytes> client(new ClientOfBytes(answer));
    ServiceOfBytes service(client);
    ThreadClock::duration parsing{};
    ThreadClock::duration whole{};

    for (auto _ : state) {
        // Both begin with the same heap: the free memory of the round before is given back first.
        malloc_trim(0);
        {
            const auto begin = ThreadClock::now();
            const QJsonDocument document = QJsonDocument::fromJson(answer);
            parsing += ThreadClock::now() - begin;
            benchmark::DoNotOptimize(document.isObject());
        }

        malloc_trim(0);
        ElectronicPrescriptionService::Prescriptions prescriptions;
        const auto begin = ThreadClock::now();
        service.getElectronicPrescriptionsByCardNumber(u"77"_s, u"active"_s, prescriptions);
        const auto time = ThreadClock::now() - begin;
        whole += time;
        state.SetIterationTime(std::chrono::duration<double>(time).count());

        if (prescriptions.size() != count) {
            state.SkipWithError("a prescription is missing");
        }
        client->dropDocument();
        service.clear();
    }
    const auto seconds = [](ThreadClock::duration duration) { return std::chrono::duration<double>(duration).count(); };
    state.counters["added"] = seconds(whole) / seconds(parsing) - 1.0;
    state.counters["per_prescription"] =
        benchmark::Counter(double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(bytesToRecords)->Arg(10)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The document has as many positions as the list has prescriptions; half of the list is in the document.
void filterAgainstDocument(benchmark::State& state)
{
    const int count = int(state.range(0));
    const auto document = QSharedPointer<DocumentDouble>::create();
    ElectronicPrescriptionService::Prescriptions fetched;
    const ElectronicPrescriptionService service;
    for (int number = 0; number < count; ++number) {
        const QSharedPointer<ElectronicPrescription> prescription(new ElectronicPrescription);
        prescription->setId(prescriptionId(number));
        const QSharedPointer<ElectronicPrescription> served(new ElectronicPrescription);
        served->setId(prescriptionId(number + count / 2));
        service.fillElectronicPrescriptionDataForPosition(served, document->add(), true, 1.0);
        fetched << prescription;
    }
    DocumentWatcher::setCurrentDocument(document);

    for (auto _ : state) {
        ElectronicPrescriptionService::Prescriptions prescriptions = fetched;
        service.getUnprocessedElectronicPrescriptions(prescriptions);
        if (prescriptions.size() != count / 2) {
            state.SkipWithError("the wrong prescriptions are left");
        }
    }
    state.SetComplexityN(count);
    DocumentWatcher::setCurrentDocument({});
}
BENCHMARK(filterAgainstDocument)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
