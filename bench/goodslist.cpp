// SPDX-License-Identifier: MIT
// The goods selection with a hundred thousand goods: opened, filtered by one key press, and the goods of one
// non-proprietary name. Each is measured in one loop with a floor, a plain scan; "ratio" is the one divided by the
// other.
#include "actionqueuecontroller.h"
#include "config.h"
#include "configured.h"
#include "goodscatalogue.h"
#include "goodsselectionform.h"
#include "registerstyle.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int goodsCount = 100'000;
const QString rareName = u"Инсулин гларгин"_s;

/// One in a thousand has the rare non-proprietary name; the others have ten names in turn.
QString nonProprietaryName(int row)
{
    static const QStringList names{u"Метформин"_s, u"Амлодипин"_s,  u"Бисопролол"_s,   u"Эналаприл"_s,
                                   u"Омепразол"_s, u"Лозартан"_s,   u"Аторвастатин"_s, u"Левотироксин"_s,
                                   u"Индапамид"_s, u"Клопидогрел"_s};
    return row % 1000 == 0 ? rareName : names.at(row % names.size());
}

void createGoods(const QString& file)
{
    const QString connection = u"writer"_s;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setDatabaseName(file);
        database.open();
        database.transaction();
        QSqlQuery query(database);
        query.exec(u"CREATE TABLE goods (code TEXT PRIMARY KEY, barcode TEXT, inn TEXT, name TEXT, price NUMERIC, "
                   "catalogueprice NUMERIC, minretailprice NUMERIC, stock INTEGER)"_s);
        query.prepare(u"INSERT INTO goods VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s);
        for (int row = 0; row < goodsCount; ++row) {
            const QString name = nonProprietaryName(row);
            const QVariantList values{QString::number(row),
                                      QString::number(4'600'000'000'000 + row),
                                      name,
                                      u"%1-%2, таблетки, покрытые оболочкой, %3 мг №30"_s.arg(name.left(6))
                                          .arg(row * 7919 % 99991)
                                          .arg(row % 90),
                                      12.4,
                                      12.9,
                                      0,
                                      row % 7};
            for (const QVariant& value : values) {
                query.addBindValue(value);
            }
            query.exec();
        }
        database.commit();
    }
    QSqlDatabase::removeDatabase(connection);
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

/// What a filter has to look at in any case.
const QStringList& plainTexts(const GoodsList& goods)
{
    static QStringList texts;
    if (texts.isEmpty()) {
        for (const CatalogueGoods& one : goods) {
            texts.append(one.name + u'\n' + one.nonProprietaryName + u'\n' + one.barcode);
        }
    }
    return texts;
}

void show(BasicForm& form)
{
    form.rootWidget()->resize(1280, 800);
    form.rootWidget()->show();
    form.show();
    QApplication::processEvents();
}

/// Asks for the list and shows it, to the first painted screen. The floor is a scan of the texts.
void openList(benchmark::State& state, const GoodsCatalogue& catalogue)
{
    const QStringList& texts = plainTexts(catalogue.goodsOf({}));
    double measured = 0;
    double floor = 0;
    for (auto _ : state) {
        floor += timed([&] { benchmark::DoNotOptimize(texts.filter(u"ъ"_s, Qt::CaseInsensitive)); });
        std::unique_ptr<GoodsSelectionForm> form;
        const double seconds = timed([&] {
            form = std::make_unique<GoodsSelectionForm>(GoodsSelectionParams{catalogue.goodsOf({}), {}, {}});
            show(*form);
        });
        measured += seconds;
        state.SetIterationTime(seconds);
    }
    setRatio(state, measured, floor);
}

/// Types one more letter into the filter field, to the painted screen. The floor is a scan of the texts.
void filterByOneKey(benchmark::State& state, const GoodsCatalogue& catalogue, const QString& typed)
{
    const GoodsList goods = catalogue.goodsOf({});
    const QStringList& texts = plainTexts(goods);
    GoodsSelectionForm form(GoodsSelectionParams{goods, {}, {}});
    show(form);
    auto* field = form.rootWidget()->findChild<QLineEdit*>(u"filterLineEdit"_s);
    double measured = 0;
    double floor = 0;
    for (auto _ : state) {
        field->setText(typed.chopped(1));
        QApplication::processEvents();
        floor += timed([&] { benchmark::DoNotOptimize(texts.filter(typed, Qt::CaseInsensitive)); });
        const double seconds = timed([&] {
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, typed.right(1), Qt::NoModifier);
            QApplication::processEvents();
        });
        measured += seconds;
        state.SetIterationTime(seconds);
    }
    setRatio(state, measured, floor);
    state.counters["shown"] = double(form.rootWidget()->findChild<QTableView*>()->model()->rowCount());
}

/// Finds the goods of a prescription. The floor is a scan of the list that is in memory.
void goodsOfOneName(benchmark::State& state, const GoodsCatalogue& catalogue)
{
    const GoodsList goods = catalogue.goodsOf({});
    double measured = 0;
    double floor = 0;
    for (auto _ : state) {
        floor += timed([&] {
            int count = 0;
            for (const CatalogueGoods& one : goods) {
                count += one.nonProprietaryName.compare(rareName, Qt::CaseInsensitive) == 0 ? 1 : 0;
            }
            benchmark::DoNotOptimize(count);
        });
        const double seconds = timed([&] { benchmark::DoNotOptimize(catalogue.goodsOf(rareName)); });
        measured += seconds;
        state.SetIterationTime(seconds);
    }
    setRatio(state, measured, floor);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    applyRegisterStyle(application, {1280, 800}); // as on the till
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"goods.sqlite"_s);
    createGoods(file);
    const Configured config({{u"Database:name"_s, file}});
    const GoodsCatalogue catalogue;

    const auto add = [](const char* name, const auto& work) {
        benchmark::RegisterBenchmark(name, work)->UseManualTime()->Unit(benchmark::kMillisecond);
    };
    add("open", [&](benchmark::State& state) { openList(state, catalogue); });
    for (const auto& [name, typed] : {std::pair{"key/most_left", u"т"_s}, std::pair{"key/tenth_left", u"бисо"_s},
                                      std::pair{"key/few_left", u"гларгин 4600000012"_s},
                                      std::pair{"key/none_left", u"ъ"_s}, std::pair{"key/wrong_layout", u"fnjhdf"_s}}) {
        add(name, [&catalogue, typed_ = typed](benchmark::State& state) { filterByOneKey(state, catalogue, typed_); });
    }
    add("goods_of_one_name", [&](benchmark::State& state) { goodsOfOneName(state, catalogue); });

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
