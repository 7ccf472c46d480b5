// SPDX-License-Identifier: MIT
// Many customers are served by one register process while the registry fails at random. At every moment between two
// customers registry and documents agree, and the register stays as small as it was.

#include "books.h"
#include "fault.h"
#include "footprint.h"
#include "pharmacy.h"
#include "plan.h"
#include "progress.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

using soak::Plan;
using soak::Visit;

constexpr int salesOfAnOrdinaryRun = 40;
constexpr int ordinarySeed = 352;     // a short run in which everything is lost and found
constexpr int salesOfALongRun = 2000; // so many meet each fault once at least
constexpr int mostWindows = 10;
constexpr int smallestWindow = 10; // customers

int numberFrom(const char* variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

/// The steps with a time limit that only a run that hangs reaches.
QByteArrayList patiently(const QByteArrayList& steps)
{
    QByteArrayList patient;
    for (const QJsonValue& step : QJsonDocument::fromJson('[' + steps.join(", ") + ']').array()) {
        QJsonObject object = step.toObject();
        object.insert(u"seconds"_s, 60);
        patient.append(QJsonDocument(object).toJson(QJsonDocument::Compact));
    }
    return patient;
}

QByteArrayList stepsOf(const Plan& plan)
{
    QByteArrayList steps;
    for (qsizetype number = 1; number <= plan.visits.size() + 1; ++number) {
        const QByteArray digits = QByteArray::number(number);
        steps += {R"({"say": "customer )" + digits + R"("})",
                  R"({"document": {"customer": )" + digits + R"(}, "file": "served.json"})"};
        if (number <= plan.visits.size()) {
            steps += plan.visits[number - 1].steps;
        }
    }
    return patiently(steps);
}

class Soak : public Pharmacy
{
protected:
    void SetUp() override
    {
        // AddressSanitizer keeps freed memory for a while, and for ever the calls that led to an allocation. Both look
        // like growth.
        qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":quarantine_size_mb=1:malloc_context_size=1");
        Pharmacy::SetUp();
        configure("ElectronicPrescription:timeout", "5");
        configure("RestClient:journal", "*/MedicationDispense/*");
    }

    /// Serves all customers of a plan in one process. After every 100 sales it reports its progress and looks whether
    /// all is as planned; it ends when something is not.
    ///
    /// @param plugins the folder of the plug-ins
    void serve(const Plan& plan, const QString& plugins);

    /// Documents, registry, journal and drawer are as planned.
    ///
    /// @param served how many customers of the plan were
    void expectAsPlanned(const Plan& plan, qsizetype served);

    QList<soak::Footprint> samples; ///< one before each customer, and one after the last

private:
    void prepare(const Plan& plan, qsizetype number);
    void takeSample(const Plan& plan, qsizetype number, qint64 milliseconds);
    void lookAfter(const Plan& plan, qsizetype served);
    void expectDocument(const Visit& visit, const QJsonObject& saved) const;
    void expectAgreement(const QList<QJsonObject>& documents);
    QByteArray journal() const;
};

void Soak::serve(const Plan& plan, const QString& plugins)
{
    registry.seed(plan.seed);
    startSteps(stepsOf(plan), {"--plugins", plugins});
    QElapsedTimer customer;
    for (qsizetype number = 1; number <= plan.visits.size() + 1; ++number) {
        customer.start();
        ASSERT_TRUE(waitForOutput(u"customer %1\n"_s.arg(number))) << qPrintable(waitForEnd().output);
        takeSample(plan, number, customer.elapsed());
        lookAfter(plan, number - 1);
        ASSERT_FALSE(HasFailure()) << "before customer " << number;
        ASSERT_NO_FATAL_FAILURE(prepare(plan, number));
    }
    expectPlayed(waitForEnd());
}

/// Orders what goes wrong for a customer, and lets the register go on.
void Soak::prepare(const Plan& plan, qsizetype number)
{
    registry.forgetRequests();
    ASSERT_EQ(registry.waitingFaults(), QJsonArray()) << "before customer " << number;
    if (number <= plan.visits.size()) {
        for (const QJsonValue& fault : plan.visits[number - 1].faults) {
            registry.orderFault(fault.toObject());
        }
    }
    QFile served(dataFolder() + u"/served.json"_s);
    ASSERT_TRUE(served.open(QIODevice::WriteOnly));
    served.write(QJsonDocument(QJsonObject{{u"customer"_s, number}}).toJson());
}

void Soak::takeSample(const Plan& plan, qsizetype number, qint64 milliseconds)
{
    soak::Footprint sample = soak::footprintOf(registerProcess());
    if (number > 1) {
        const Visit& before = plan.visits[number - 2];
        sample.isComparable = before.isComparable;
        sample.stepTime = double(milliseconds) / double(patiently(before.steps).size());
    }
    samples.append(sample);
}

/// The line is printed at once, also into a file: a long run can be watched.
void Soak::lookAfter(const Plan& plan, qsizetype served)
{
    const qsizetype finished = files("finished").size();
    if (const auto line = soak::progressAfter(plan, served, finished, samples.constLast().memory)) {
        std::printf("%s\n", qPrintable(*line));
        expectAsPlanned(plan, served);
        std::fflush(stdout);
    }
}

void Soak::expectAsPlanned(const Plan& plan, qsizetype served)
{
    EXPECT_EQ(files("finished").size(), served);
    EXPECT_EQ(files("putaside"), QStringList());
    EXPECT_TRUE(savedDocument().isEmpty());
    QList<QJsonObject> documents;
    for (const Visit& visit : plan.visits.first(served)) {
        documents.append(finished(visit.document));
        expectDocument(visit, documents.constLast());
    }
    expectAgreement(documents);
}

/// What is saved and printed is what the customer was to pay or to get.
void Soak::expectDocument(const Visit& visit, const QJsonObject& saved) const
{
    SCOPED_TRACE("document " + std::to_string(visit.document));
    EXPECT_EQ(saved["state"].toString(), "closed");
    const qint64 sum = soak::hundredths(saved["sum"]);
    EXPECT_EQ(saved["type"].toInt() == 1 ? sum : -sum, visit.total);
    const QString onPaper = u"ИТОГО, BYN %1,%2"_s.arg(sum / 100).arg(sum % 100, 2, 10, QChar(u'0'));
    EXPECT_NE(printed(visit.document).find(onPaper.toStdString()), std::string::npos) << qPrintable(onPaper);
    for (const QJsonValue& position : saved["positions"].toArray()) {
        EXPECT_FALSE(optionsOf(position.toObject()).contains("recovery")) << "the position is undecided";
    }
}

/// The registry holds what the documents say, to the last dose and kopeck, and nothing is left to find out.
void Soak::expectAgreement(const QList<QJsonObject>& documents)
{
    const soak::Books atTheRegistry = soak::registryBooks(registry.prescriptions());
    const soak::Books inTheDocuments = soak::documentBooks(documents);
    const soak::Disagreement found = soak::compare(atTheRegistry, inTheDocuments);
    EXPECT_EQ(found.onlyInRegistry, QStringList());
    EXPECT_EQ(found.onlyInDocuments, QStringList());
    EXPECT_EQ(found.differing, QStringList());
    EXPECT_EQ(soak::openRequests(journal()), QStringList());
    const soak::Totals totals = soak::totalsOf(atTheRegistry);
    EXPECT_EQ(totals, soak::totalsOf(inTheDocuments));
    if (!HasFailure()) {
        std::printf("  in step: %lld dispenses, %s doses, %lld kopecks of payers\n", qlonglong(atTheRegistry.size()),
                    qPrintable(QString::number(double(totals.doses) / 100)), qlonglong(totals.net));
    }
}

QByteArray Soak::journal() const
{
    QFile file(dataFolder() + "/requests.journal");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QList<soak::Window> reported(const QList<soak::Footprint>& samples)
{
    const int size = std::max(smallestWindow, int(samples.size()) / mostWindows);
    const QList<soak::Window> windows = soak::windowsOf(samples, size);
    std::printf("windows of %d customers\nmemory KiB | descriptors | ms a step | processor ms a customer\n", size);
    for (const soak::Window& window : windows) {
        QStringList descriptors;
        for (const qint64 count : window.descriptors) {
            descriptors.append(QString::number(count));
        }
        std::printf("%10lld | %11s | %9.1f | %.0f\n", qlonglong(window.memory), qPrintable(descriptors.join(u'/')),
                    window.stepTime, window.processorTime);
    }
    return windows;
}

QByteArray bytesOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Each endpoint meets each of its faults.
void expectEveryFault(const Plan& plan)
{
    QSet<QByteArray> met;
    for (const Visit& visit : plan.visits) {
        for (const QJsonValue& fault : visit.faults) {
            QJsonObject order = fault.toObject();
            order.insert("nth", 1);
            met.insert(bytesOf(order));
        }
    }
    using soak::Endpoint;
    for (const soak::Fault& fault :
         soak::faultsOf({Endpoint::Token, Endpoint::ByCard, Endpoint::Registration, Endpoint::Cancellation})) {
        EXPECT_TRUE(met.contains(bytesOf(fault.order(1)))) << bytesOf(fault.order(1)).constData();
    }
}

/// Everything that the register can find out of a lost answer, and that it cannot ask.
void expectEveryFinding(const Plan& plan)
{
    for (const char* finding : {"Отпуск записан в реестре", "Отпуск в реестре отменён", "Отпуск в реестре не отменён",
                                "Касса не знает, что записано в реестре"}) {
        EXPECT_TRUE(std::any_of(plan.visits.cbegin(), plan.visits.cend(), [finding](const Visit& visit) {
            return visit.steps.join().contains(finding);
        })) << finding;
    }
}

TEST(SoakPlan, ordinaryRun_meetsEveryFinding)
{
    expectEveryFinding(soak::planFor(salesOfAnOrdinaryRun, ordinarySeed));
}

TEST(SoakPlan, longRun_meetsEveryFaultAndFindingWhateverTheSeed)
{
    for (const uint32_t seed : {1U, 2U, 7U, 99U}) {
        SCOPED_TRACE(seed);
        const Plan plan = soak::planFor(salesOfALongRun, seed);
        expectEveryFault(plan);
        expectEveryFinding(plan);
    }
}

TEST_F(Soak, manyCustomersAndAFailingRegistry_registryAndDocumentsAgreeAndTheRegisterDoesNotGrow)
{
    const int sales = numberFrom("SOAK_SALES", salesOfAnOrdinaryRun);
    const int seed = numberFrom("SOAK_SEED", ordinarySeed);
    const Plan plan = soak::planFor(sales, uint32_t(seed));
    EXPECT_EQ(plan.prescriptionSales, sales / 2);
    std::printf("seed %d: %d sales, %d with prescriptions, %d returns\n", seed, sales, plan.prescriptionSales,
                plan.returns);
    QElapsedTimer clock;
    clock.start();

    if (sales >= salesOfALongRun) {
        expectEveryFault(plan);
    }
    ASSERT_NO_FATAL_FAILURE(serve(plan, QString::fromUtf8(RECOVERY_PLUGIN_FOLDER)));
    expectAsPlanned(plan, plan.visits.size());
    EXPECT_EQ(soak::growthIn(reported(samples)) + soak::slowdownIn(samples), QStringList());
    std::printf("%lld s\n", qlonglong(clock.elapsed() / 1000));
}

TEST_F(Soak, leakingPlugin_growsInMemoryAndDescriptors)
{
    const Plan plan = soak::planWithoutRegistry(11, 1);
    ASSERT_NO_FATAL_FAILURE(serve(plan, QString::fromUtf8(LEAKING_PLUGIN).section('/', 0, -2)));
    const QStringList grown = soak::growthIn(soak::windowsOf(samples, 4));
    ASSERT_EQ(grown.size(), 2);
    EXPECT_TRUE(grown[0].startsWith("memory"));
    EXPECT_TRUE(grown[1].contains("descriptors"));
}

} // namespace
