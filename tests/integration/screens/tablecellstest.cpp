// SPDX-License-Identifier: MIT
// Every cell of every table against its column: in the window's own layout, in the sizes that the register is made
// for, with and without touch mode, in both languages.
#include "askform.h"
#include "dispensechoicedialog.h"
#include "documentlistparams.h"
#include "electronicprescription.h"
#include "electronicprescriptionchoiceparams.h"
#include "goodsselectionparams.h"
#include "patient.h"
#include "pharmacywindow.h"
#include "registerstyle.h"
#include "returnparams.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <iterator>

using namespace Qt::StringLiterals;

namespace
{

/// What the text of a cell takes on one line.
int wantedWidth(const QTableView& table, const QModelIndex& index)
{
    QStyleOptionViewItem option;
    option.initFrom(&table);
    option.font = index.data(Qt::FontRole).value<QFont>().resolve(table.font());
    option.fontMetrics = QFontMetrics(option.font);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = index.data().toString();
    return table.style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, &table).width();
}

/// True for words in a column that gives way to others: what does not fit is in the tool tip. Numbers, amounts and
/// dates are never cut.
bool mayBeElided(const QTableView& table, const QModelIndex& index)
{
    const int widestFit = scaledPixels(280); // of a column that fits its contents
    const QString text = index.data().toString();
    const auto mode = table.horizontalHeader()->sectionResizeMode(index.column());
    return std::any_of(text.cbegin(), text.cend(), [](QChar character) { return character.isLetter(); }) &&
           (mode != QHeaderView::ResizeToContents || table.columnWidth(index.column()) == widestFit);
}

int expectCellsFit(const QTableView& table, int column)
{
    int measured = 0;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        const QModelIndex index = table.model()->index(row, column);
        if (table.columnSpan(row, column) > 1) {
            continue; // it has the width of several columns
        }
        const QString cell = index.data().toString();
        if (mayBeElided(table, index)) {
            EXPECT_GE(table.columnWidth(column), 100) << qPrintable(cell);
        } else {
            EXPECT_LE(wantedWidth(table, index), table.columnWidth(column)) << qPrintable(cell);
        }
        measured += cell.isEmpty() ? 0 : 1;
    }
    return measured;
}

/// Nothing of the columns lies beyond the edge of the table either.
void expectAllFits(const QTableView& table)
{
    SCOPED_TRACE(qPrintable(table.objectName()));
    ASSERT_TRUE(table.isVisible());
    int measured = 0;
    int width = 0;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
        if (!table.isColumnHidden(column)) {
            SCOPED_TRACE(column);
            measured += expectCellsFit(table, column);
            EXPECT_LE(table.horizontalHeader()->sectionSizeHint(column), table.columnWidth(column)) << "its caption";
            width += table.columnWidth(column);
        }
    }
    EXPECT_GT(measured, 0);
    EXPECT_LE(width, table.viewport()->width());
}

/// A prescription's position in each of its states.
constexpr const char* states[] = {"{}", R"({"status": "dispensed"})", R"({"status": "canceled"})",
                                  R"({"recovery": "unknown"})"};

} // namespace

class TableCells : public PharmacyWindow, public ::testing::WithParamInterface<std::tuple<QSize, bool, const char*>>
{
protected:
    TableCells()
        : PharmacyWindow(std::get<QSize>(GetParam()), std::get<bool>(GetParam()), std::get<const char*>(GetParam()))
    {
    }

    /// Goods of the widest price that the tables have to hold.
    static CatalogueGoods dearGoods(int number)
    {
        CatalogueGoods goods;
        goods.code = QString::number(number);
        goods.name = u"Амоксидар, капсулы 500 мг №16, в упаковке с инструкцией, серия %1"_s.arg(number);
        goods.nonProprietaryName = u"Амоксициллин"_s;
        goods.price = Kopecks{999'999'999};
        goods.stock = 99'999;
        return goods;
    }
    /// Fills a document with marked positions whose price was lowered by a kopeck.
    static void fill(Document& document, int count)
    {
        for (int number = 1; number <= count; ++number) {
            GoodsItem::Goods goods;
            goods.name = dearGoods(number).name;
            goods.price = Kopecks{number == count ? 999'999'999 : 888'888'888};
            const auto position = document.add(goods, {});
            position->setTag(u"prescription"_s);
            position->setSoftCheckId(u"4500-1"_s);
            position->setExtendedOptions(QString::fromLatin1(states[number % std::size(states)]));
            position->setPrice((goods.price - Kopecks{1}).toRoubles());
        }
    }
    static QSharedPointer<Document> dearDocument(int number, int positions)
    {
        auto document = QSharedPointer<Document>::create(number, QDateTime({2024, 12, 28}, {22, 58}));
        fill(*document, positions);
        document->setEnding({.state = Document::State::Closed,
                             .finished = QDateTime({2024, 12, 28}, {22, 59}),
                             .payments = {Payment::cash(document->getSum())}});
        return document;
    }

    /// Shows a form, measures its table, and closes the form.
    void expectFits(const QString& form, const QStringList& tables, const std::function<void()>& ask)
    {
        bool isMeasured = false;
        cashier.onForm(form, [&](QWidget& root) {
            EXPECT_EQ(root.size(), window->size());
            QApplication::processEvents();
            for (const QString& name : tables) {
                const auto* table = root.findChild<QTableView*>(name);
                ASSERT_TRUE(table) << qPrintable(name);
                expectAllFits(*table);
            }
            isMeasured = true;
            gui.object.cancelForms();
        });
        ask();
        EXPECT_TRUE(isMeasured);
    }
};

TEST_P(TableCells, receipt_showsEveryAmountWhole)
{
    openSized();
    till->open();
    fill(*till->document(), 120);
    till->save();
    emit till->changed();
    QApplication::processEvents();
    expectAllFits(*widget<QTableView>("receiptTable"));
}

TEST_P(TableCells, receiptAtThePayment_showsEveryAmountWhole)
{
    openSized();
    till->open();
    till->document()->add({.name = u"Бинт"_s, .price = Kopecks{999'999'999}}, {});
    till->setPhase(Till::Phase::Payment);
    QApplication::processEvents();
    ASSERT_EQ(till->phase(), Till::Phase::Payment);
    expectAllFits(*widget<QTableView>("receiptTable"));
}

TEST_P(TableCells, goods_showEveryPriceWhole)
{
    openSized();
    QList<CatalogueGoods> goods;
    for (int number = 1; number <= 120; ++number) {
        goods.append(dearGoods(number));
    }
    expectFits(u"goodsSelectionForm"_s, {u"goodsTable"_s}, [&goods] {
        askForm(GoodsSelectionParams::eventCode, GoodsSelectionParams{goods, {}, {}});
    });
}

TEST_P(TableCells, documents_showEverySumWhole)
{
    openSized();
    const QList<QSharedPointer<Document>> documents{dearDocument(99'999'999, 1), dearDocument(99'999'998, 1)};
    DocumentListParams params;
    params.documents = [&documents] { return documents; };
    params.byNumber = [](int) { return DocumentListParams::Pointer(); };
    params.ofDay = [](QDate) { return QList<DocumentListParams::Pointer>(); };
    params.returned = [](const Document&) { return Document::Returned::Nothing; };
    for (DocumentListParams::Rule* rule : {&params.obstacleToResuming, &params.obstacleToReturning,
                                           &params.obstacleToVoiding, &params.obstacleToPrinting, &params.warning}) {
        *rule = [](const Document&) { return std::optional<Obstacle>(); };
    }
    params.marks = &marks;
    expectFits(u"documentListForm"_s, {u"documentTable"_s, u"positionsTable"_s},
               [&params] { askForm(DocumentListParams::eventCode, params); });
}

TEST_P(TableCells, positionsToReturn_showEverySumWhole)
{
    openSized();
    const auto sale = dearDocument(1, 120);
    ReturnParams params{.title = u"Чек № 1"_s, .positions = sale->positions(), .marks = &marks, .places = {}};
    for (int place = 1; place <= 120; ++place) {
        params.places.append(place);
    }
    expectFits(u"returnForm"_s, {u"positionsTable"_s}, [&params] { askForm(ReturnParams::eventCode, params); });
}

TEST_P(TableCells, prescriptions_showEveryNumberWhole)
{
    openSized();
    QList<QSharedPointer<ElectronicPrescription>> prescriptions;
    for (int number = 0; number < 60; ++number) {
        const auto prescription = QSharedPointer<ElectronicPrescription>::create();
        prescription->setInn(u"Амоксициллин и клавулановая кислота"_s);
        prescription->setInnCode(u"1234567890"_s);
        prescription->setPrescriptionDate(QDate(2024, 12, 28));
        prescription->setDoseQuantity(number == 59 ? 999'999'999.999 : 30.0);
        prescription->addDispensedDoseQuantity(number == 59 ? 999'999'999.999 : 0.0);
        prescriptions.append(prescription);
    }
    const auto patient = QSharedPointer<Patient>::create(u"Рябинина Ольга Петровна"_s, QDate(1961, 5, 4));
    const ElectronicPrescriptionChoiceParams params(prescriptions, u"active"_s, patient, false);
    expectFits(u"electronicPrescriptionChoiceForm"_s, {u"electronicPrescriptionsTableView"_s},
               [&params] { askForm(params.getEvent()); });
}

TEST_P(TableCells, dispenses_showEveryNumberWhole)
{
    openSized();
    DispenseChoiceParams params{
        u"Амоксидар, капсулы 500 мг № 16"_s, u"4500-1"_s, u"10"_s, u"29.02.2024 12:30:05"_s, {}};
    for (int number = 0; number < 40; ++number) {
        params.dispenses.append({u"28.12.2024 22:58"_s, number == 39 ? u"999 999,99"_s : u"10"_s,
                                 u"Аптека № 7, проспект Независимости, 117"_s, u"4500123456789012-%1"_s.arg(number)});
    }
    expectFits(u"dispenseChoiceForm"_s, {u"dispensesTable"_s},
               [&params] { askForm(DispenseChoiceParams::eventCode, params); });
}

INSTANTIATE_TEST_SUITE_P(, TableCells,
                         ::testing::Combine(::testing::Values(QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)),
                                            ::testing::Bool(), ::testing::Values("ru", "en")),
                         [](const auto& instance) {
                             return std::to_string(std::get<QSize>(instance.param).width()) +
                                    (std::get<bool>(instance.param) ? "touch" : "keys") +
                                    std::get<const char*>(instance.param);
                         });
