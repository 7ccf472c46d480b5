// SPDX-License-Identifier: MIT
// The choice list with many prescriptions: opened, and filtered by one key press. Each is measured in one loop with a
// floor, the least work that does the same; "ratio" is the one divided by the other.
#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "configured.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionchoicemodel.h"
#include "registerstyle.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTest>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{

using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

/// One in a thousand has the name "Инсулин гларгин"; the others have ten names in turn.
Prescriptions prescriptions(int count)
{
    const QStringList names{"Метформин", "Амлодипин",    "Бисопролол",   "Эналаприл", "Омепразол",
                            "Лозартан",  "Аторвастатин", "Левотироксин", "Индапамид", "Клопидогрел"};
    Prescriptions made;
    made.reserve(count);
    for (int row = 0; row < count; ++row) {
        const auto each = QSharedPointer<ElectronicPrescription>::create();
        each->setInn(row % 1000 == 0 ? QString("Инсулин гларгин") : names.at(row % names.size()));
        each->setInnCode(QString::number(row));
        each->setPrescriptionDate(QDate(2024, 1, 1).addDays(row % 365));
        each->setDoseQuantity(row % 90);
        made.append(each);
    }
    return made;
}

QSharedPointer<Patient> patient()
{
    return QSharedPointer<Patient>::create("Рябинина Ольга Петровна", QDate(1961, 5, 4));
}

/// The time that `work` takes, in seconds.
template <typename Work>
double timed(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) * 1e-9;
}

void setRatio(benchmark::State& state, double measured, double floor)
{
    state.counters["floor_ms"] = benchmark::Counter(floor * 1e3, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = measured / floor;
}

void show(BasicForm& form)
{
    form.rootWidget()->resize(1280, 800);
    form.rootWidget()->show();
    form.show();
    QApplication::processEvents();
}

/// Opens the form, from its layout to the first painted screen. The floor is the same form with one prescription.
void openList(benchmark::State& state)
{
    const auto many = prescriptions(int(state.range(0)));
    const auto one = many.mid(0, 1);
    const auto open = [](const Prescriptions& list) {
        ElectronicPrescriptionChoiceForm form({list, "active", patient(), false}, nullptr);
        show(form);
    };
    open(one);
    double measured = 0;
    double floor = 0;
    for (auto _ : state) {
        floor += timed([&] { open(one); });
        const double seconds = timed([&] { open(many); });
        measured += seconds;
        state.SetIterationTime(seconds);
    }
    setRatio(state, measured, floor);
}

/// Types one letter into the filter field, to the painted screen. The floor is a plain view on a QSortFilterProxyModel
/// with its own fixed-string filter.
void filterByOneKey(benchmark::State& state, Qt::Key key, const QString& letter)
{
    const auto many = prescriptions(int(state.range(0)));
    ElectronicPrescriptionChoiceForm form({many, "active", patient(), false}, nullptr);
    show(form);
    auto* field = form.rootWidget()->findChild<QLineEdit*>("medicineNameLineEdit");

    ElectronicPrescriptionChoiceModel model(many, patient(), nullptr);
    QSortFilterProxyModel proxy;
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy.setSourceModel(&model);
    QTableView view;
    view.setModel(&proxy);
    view.resize(800, 600);
    view.show();
    QApplication::processEvents();

    double measured = 0;
    double floor = 0;
    for (auto _ : state) {
        floor += timed([&] {
            proxy.setFilterFixedString(letter);
            QApplication::processEvents();
        });
        const double seconds = timed([&] {
            QTest::sendKeyEvent(QTest::Click, field, key, letter, Qt::NoModifier);
            QApplication::processEvents();
        });
        measured += seconds;
        state.SetIterationTime(seconds);
        proxy.setFilterFixedString(QString());
        field->clear();
        QApplication::processEvents();
    }
    setRatio(state, measured, floor);
    state.counters["shown"] = [&] {
        field->setText(letter);
        return double(form.rootWidget()->findChild<QTableView*>()->model()->rowCount());
    }();
}

/// Looks for the same letter in the bare texts, which every filter has to do.
void scanTexts(benchmark::State& state, const QString& letter)
{
    QStringList texts;
    for (const auto& each : prescriptions(int(state.range(0)))) {
        texts.append(each->getInn());
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(texts.filter(letter, Qt::CaseInsensitive));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    applyRegisterStyle(application, {1280, 800}); // as on the till
    const Configured config({{u"GUI:layouts"_s, QString::fromUtf8(PLUGIN_LAYOUTS)}});

    const auto sizes = [](benchmark::internal::Benchmark* each) {
        each->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
    };
    sizes(benchmark::RegisterBenchmark("open", openList)->UseManualTime());
    sizes(benchmark::RegisterBenchmark("filter/few_left", filterByOneKey, Qt::Key_unknown, "г")->UseManualTime());
    sizes(benchmark::RegisterBenchmark("filter/half_left", filterByOneKey, Qt::Key_unknown, "о")->UseManualTime());
    sizes(benchmark::RegisterBenchmark("scan/few_left", scanTexts, "г"));
    sizes(benchmark::RegisterBenchmark("scan/half_left", scanTexts, "о"));

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
