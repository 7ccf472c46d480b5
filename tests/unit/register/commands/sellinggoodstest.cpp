// SPDX-License-Identifier: MIT
// What may go on a document: goods with a price, as many packs as are there, and of two goods with one bar code the
// right one.

#include "commandfixture.h"
#include "dialogdouble.h"
#include "goodstablemodel.h"
#include "registeraction.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace
{

/// Goods that a pharmacy's own program has put into the database, beside the demo goods.
struct Row {
    QString code;
    QString barcode;
    QString name;
    QString price; ///< as SQL
    int stock = 100;
    QString minRetailPrice = u"0"_s; ///< as SQL
};

class SellingGoods : public CommandFixture
{
protected:
    SellingGoods()
    {
        change({u"CREATE TABLE free AS SELECT * FROM goods"_s, u"DROP TABLE goods"_s,
                u"ALTER TABLE free RENAME TO goods"_s});
    }
    void change(const QStringList& statements) const
    {
        const QString connection = u"goods program"_s;
        {
            auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
            database.setDatabaseName(folder.filePath(u"goods.sqlite"_s));
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            for (const QString& statement : statements) {
                ASSERT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
            }
        }
        QSqlDatabase::removeDatabase(connection);
    }
    void put(const Row& row) const
    {
        change({u"INSERT INTO goods VALUES ('%1', '%2', 'Вещество', '%3', %4, 0, %5, %6)"_s.arg(
            row.code, row.barcode, row.name, row.price, row.minRetailPrice, QString::number(row.stock))});
    }
    EContext::Result scan(const QString& barcode) { return run(registeraction::addGoods, {{u"search"_s, barcode}}); }
    /// Scans goods and has the cashier answer the question that comes. Returns its text.
    QString scanAndAnswer(const QString& barcode, const char* button, EContext::Result expected)
    {
        const auto asked = expectQuestion(button);
        EXPECT_EQ(scan(barcode), expected);
        EXPECT_TRUE(cashier.isDone()) << "no question was asked";
        return *asked;
    }
    QSharedPointer<QString> expectQuestion(const char* button)
    {
        auto asked = QSharedPointer<QString>::create();
        cashier.onForm(u"questionForm"_s, [asked, button](QWidget& root) {
            *asked = root.findChild<QLabel*>(u"messageLabel"_s)->text();
            press(root, button);
        });
        return asked;
    }
    void typePacks(const QString& packs)
    {
        cashier.onForm(u"textInputForm"_s, [packs](QWidget& root) {
            root.findChild<QLineEdit*>(u"inputLineEdit"_s)->setText(packs);
            press(root, "okButton");
        });
    }
    /// The names of the goods that the selection shows when it opens; the cashier chooses the row.
    QSharedPointer<QStringList> chooseRow(int row, const QString& packs = u"1"_s)
    {
        auto names = QSharedPointer<QStringList>::create();
        cashier.onForm(u"goodsSelectionForm"_s, [=](QWidget& root) {
            auto* table = root.findChild<QAbstractItemView*>(u"goodsTable"_s);
            for (int each = 0; each < table->model()->rowCount(); ++each) {
                names->append(table->model()->index(each, 0).data().toString());
            }
            table->setCurrentIndex(table->model()->index(row, 0));
            root.findChild<QLineEdit*>(u"quantityLineEdit"_s)->setText(packs);
            press(root, "okButton");
        });
        return names;
    }
    double packs(int position) const { return till->document()->position(position)->getQuantity(); }
    qsizetype positions() const { return till->document() ? till->document()->positions().size() : 0; }
    SelectedGoods selected(const QString& barcode, int packs = 1) const { return article(barcode, packs); }

    const QString own = u"4810000000017"_s;
};

// Prices

/// A price that no goods are sold at, as SQL, and what the cashier reads of it.
struct BadPrice {
    const char* name;
    const char* sql;
    const char16_t* wrong;
};

class UnusablePrice : public SellingGoods, public ::testing::WithParamInterface<BadPrice>
{
protected:
    UnusablePrice() { put({u"t1"_s, own, u"Бинт"_s, QString::fromLatin1(GetParam().sql)}); }

    QString expected() const
    {
        return u"Товар «Бинт» не продаётся.\nЕго цена: "_s + QString::fromUtf16(GetParam().wrong);
    }
};

TEST_P(UnusablePrice, scanned_isNotSoldAndTheCashierReadsWhy)
{
    const DialogDouble dialog;
    EXPECT_EQ(scan(own), EContext::Stop);
    EXPECT_FALSE(till->document());
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(expected())) << dialog.messages().first().text.toStdString();
}

TEST_P(UnusablePrice, list_showsTheGoodsAndDoesNotTakeThem)
{
    QString shown;
    QString tip;
    QString hint;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        root.findChild<QLineEdit*>(u"filterLineEdit"_s)->setText(own);
        const auto* model = root.findChild<QAbstractItemView*>(u"goodsTable"_s)->model();
        ASSERT_EQ(model->rowCount(), 1);
        shown = model->index(0, 2).data().toString();
        tip = model->index(0, 2).data(Qt::ToolTipRole).toString();
        EXPECT_TRUE(model->index(0, 0).data(Qt::ForegroundRole).isValid()) << "it is not grey";
        press(root, "okButton");
        hint = root.findChild<QLabel*>(u"hintLabel"_s)->text();
        press(root, "cancelButton");
    });
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_EQ(shown, u"нет цены"_s);
    EXPECT_TRUE(tip.startsWith(expected())) << tip.toStdString();
    EXPECT_TRUE(hint.startsWith(expected())) << hint.toStdString();
    EXPECT_FALSE(till->document());
}

TEST_P(UnusablePrice, addedByAPlugin_isRefused)
{
    till->open();
    const DialogDouble dialog;
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(selected(own))}}), EContext::Stop);
    EXPECT_FALSE(action.value(u"positionNumber"_s).isValid());
    EXPECT_EQ(positions(), 0);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(expected()));
    EXPECT_EQ(till->add(selected(own)), 0) << "the till itself refuses it, too";
}

const BadPrice badPrices[] = {
    {"null", "NULL", u"не указана."},
    {"comma", "'12,50'", u"«12,50» — не число."},
    {"separatedThousands", "'1 250.00'", u"«1 250.00» — не число."},
    {"negative", "-5", u"−5 — меньше нуля."},
    {"zero", "0", u"0 — не больше нуля."},
    {"finerThanKopecks", "10.004", u"10.004 — больше двух знаков после запятой."},
    {"billions", "1e13", u"10000000000000 — больше 100 000 000."},
    {"infinite", "9e999", u"inf — больше 100 000 000."},
};

INSTANTIATE_TEST_SUITE_P(Rows, UnusablePrice, ::testing::ValuesIn(badPrices),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SellingGoods, minimumPriceThatCannotBeUsed_theGoodsAreNotSold)
{
    put({.code = u"t1"_s, .barcode = own, .name = u"Бинт"_s, .price = u"5"_s, .minRetailPrice = u"'1,2'"_s});
    const DialogDouble dialog;
    EXPECT_EQ(scan(own), EContext::Stop);
    EXPECT_FALSE(till->document());
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.contains(u"Его наименьшая цена: «1,2» — не число."_s));
}

TEST_F(SellingGoods, noMinimumPrice_theGoodsAreSold)
{
    put({.code = u"t1"_s, .barcode = own, .name = u"Бинт"_s, .price = u"5"_s, .minRetailPrice = u"NULL"_s});
    EXPECT_EQ(scan(own), EContext::GoOn);
    EXPECT_EQ(till->document()->position(1)->getMinRetailPrice(), 0.0);
}

// Packs and stock

TEST_F(SellingGoods, scannedOftenerThanThereArePacks_asksBeforeEachPackThatIsNotThere)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 2});
    EXPECT_EQ(scan(own), EContext::GoOn);
    EXPECT_EQ(scan(own), EContext::GoOn);
    EXPECT_EQ(scanAndAnswer(own, "noButton", EContext::Stop),
              u"На остатке 2 уп., а в чеке будет 3:\nБинт\nВсё равно продать?"_s);
    EXPECT_EQ(packs(1), 2.0);
    EXPECT_EQ(scanAndAnswer(own, "yesButton", EContext::GoOn),
              u"На остатке 2 уп., а в чеке будет 3:\nБинт\nВсё равно продать?"_s);
    EXPECT_EQ(packs(1), 3.0);
}

TEST_F(SellingGoods, packsOfALockedPosition_countAgainstTheStock)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 3});
    till->add(selected(own, 3));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    EXPECT_EQ(scanAndAnswer(own, "noButton", EContext::Stop),
              u"На остатке 3 уп., а в чеке будет 4:\nБинт\nВсё равно продать?"_s);
    EXPECT_EQ(positions(), 1);
}

TEST_F(SellingGoods, quantityBeyondTheStock_asksOnce)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 100});
    scan(own);
    typePacks(u"999"_s);
    auto asked = expectQuestion("noButton");
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(*asked, u"На остатке 100 уп., а в чеке будет 999:\nБинт\nВсё равно продать?"_s);
    EXPECT_EQ(packs(1), 1.0);

    typePacks(u"999"_s);
    asked = expectQuestion("yesButton");
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(packs(1), 999.0);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(SellingGoods, stockNotKept_isNotAskedAbout)
{
    for (const char* none : {"NULL", "''", "'много'"}) {
        put({u"t1"_s, own, u"Бинт"_s, u"5"_s});
        change({u"UPDATE goods SET stock = %1 WHERE code = 't1'"_s.arg(QLatin1StringView(none))});
        ASSERT_EQ(scan(own), EContext::GoOn) << none;
        typePacks(u"9"_s);
        EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn) << none;
        EXPECT_TRUE(cashier.isDone()) << none;
        EXPECT_EQ(packs(1), 9.0) << none;
        till->cancel();
        change({u"DELETE FROM goods WHERE code = 't1'"_s});
    }
}

TEST_F(SellingGoods, stockNotKept_isEmptyInTheListAndTheGoodsCanBeChosen)
{
    put({u"t1"_s, own, u"Яяя бинт"_s, u"5"_s});
    change({u"UPDATE goods SET stock = NULL WHERE code = 't1'"_s});
    QString shown = u"nothing"_s;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        root.findChild<QLineEdit*>(u"filterLineEdit"_s)->setText(own);
        const auto* model = root.findChild<QAbstractItemView*>(u"goodsTable"_s)->model();
        shown = model->index(0, GoodsTableModel::Stock).data().toString();
        EXPECT_FALSE(model->index(0, GoodsTableModel::Name).data(Qt::ForegroundRole).isValid()) << "not grey";
        root.findChild<QLineEdit*>(u"quantityLineEdit"_s)->setText(u"9"_s);
        press(root, "okButton");
        if (Cashier::isOnTop(u"goodsSelectionForm"_s)) {
            gui.object.cancelForms();
        }
    });
    EXPECT_EQ(run(registeraction::addGoods), EContext::GoOn);
    EXPECT_EQ(shown, QString());
    ASSERT_EQ(positions(), 1);
    EXPECT_EQ(packs(1), 9.0);
}

TEST_F(SellingGoods, quantityOfOnePosition_countsTheOthersOfTheSameGoods)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 10});
    till->add(selected(own, 6));
    till->add(selected(own, 1));
    typePacks(u"4"_s);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(2)), EContext::GoOn);
    typePacks(u"5"_s);
    const auto asked = expectQuestion("noButton");
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(2)), EContext::Stop);
    EXPECT_EQ(*asked, u"На остатке 10 уп., а в чеке будет 11:\nБинт\nВсё равно продать?"_s);
    typePacks(u"1"_s);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(2)), EContext::GoOn) << "fewer need no question";
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(SellingGoods, quantityOfGoodsWithoutABarcode_isHeldAgainstTheirStock)
{
    put({u"t1"_s, {}, u"Вата на развес"_s, u"5"_s, 3});
    const auto all = catalogue.goodsOf({});
    const auto loose =
        std::find_if(all.cbegin(), all.cend(), [](const CatalogueGoods& one) { return one.code == u"t1"_s; });
    ASSERT_NE(loose, all.cend());
    till->add({*loose, 1});
    typePacks(u"4"_s);
    expectQuestion("noButton");
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_EQ(packs(1), 1.0);
}

TEST_F(SellingGoods, quantityWhileTheGoodsCannotBeRead_isChangedAllTheSame)
{
    scan(amoxidar);
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    typePacks(u"7"_s);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(packs(1), 7.0);
}

TEST_F(SellingGoods, packsFromTheListAndOnTheDocument_countTogether)
{
    put({u"t1"_s, own, u"Яяя бинт"_s, u"5"_s, 5});
    scan(own);
    cashier.onForm(u"goodsSelectionForm"_s, [this](QWidget& root) {
        root.findChild<QLineEdit*>(u"filterLineEdit"_s)->setText(own);
        root.findChild<QLineEdit*>(u"quantityLineEdit"_s)->setText(u"5"_s);
        press(root, "okButton");
    });
    const auto asked = expectQuestion("noButton");
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_EQ(*asked, u"На остатке 5 уп., а в чеке будет 6:\nЯяя бинт\nВсё равно продать?"_s);
    EXPECT_EQ(packs(1), 1.0);
}

TEST_F(SellingGoods, manyPacksThatAreInStock_areAskedAbout)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 5000});
    scan(own);
    typePacks(u"21"_s);
    const auto asked = expectQuestion("yesButton");
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(*asked, u"В чеке будет 21 уп. товара:\nБинт\nКоличество верное?"_s);
    EXPECT_EQ(packs(1), 21.0);
}

/// Goods for a prescription: they are selected by 219 and added by 220.
class GoodsForAPlugin : public SellingGoods
{
protected:
    GoodsForAPlugin()
    {
        put({u"t1"_s, own, u"Бинт"_s, u"5"_s, 5});
        scan(own);
    }
    /// Selects all packs there are, and answers the question. Returns its text.
    QString selectAndAnswer(const char* button, EContext::Result expected)
    {
        chooseRow(0, u"5"_s);
        const auto asked = expectQuestion(button);
        EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Вещество"_s}}), expected);
        EXPECT_TRUE(cashier.isDone()) << "no question was asked";
        return *asked;
    }
};

TEST_F(GoodsForAPlugin, selectedBeyondTheStock_areAskedAboutOnce)
{
    EXPECT_EQ(selectAndAnswer("yesButton", EContext::GoOn),
              u"На остатке 5 уп., а в чеке будет 6:\nБинт\nВсё равно продать?"_s);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, action.value(u"result"_s)}}), EContext::GoOn);
    EXPECT_EQ(action.value(u"positionNumber"_s), 2) << "a position of its own";
    EXPECT_EQ(packs(1), 1.0);
    EXPECT_EQ(packs(2), 5.0);
}

TEST_F(GoodsForAPlugin, selectedBeyondTheStockAndNotWanted_areNotSelected)
{
    selectAndAnswer("noButton", EContext::Stop);
    EXPECT_FALSE(action.value(u"result"_s).isValid());
}

TEST_F(GoodsForAPlugin, addedWithoutASelection_areAskedAbout)
{
    expectQuestion("noButton");
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(selected(own, 5))}}), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_EQ(positions(), 1);
}

// One bar code

TEST_F(SellingGoods, barcodeOfTwoGoods_theCashierChoosesAmongThem)
{
    put({u"t2"_s, own, u"Бинт широкий"_s, u"7"_s});
    put({u"t1"_s, own, u"Бинт узкий"_s, u"5"_s});
    QString info;
    cashier.onForm(u"goodsSelectionForm"_s, [&info](QWidget& root) {
        info = root.findChild<QLabel*>(u"medicineInfoLabel"_s)->text();
        press(root, "cancelButton");
    });
    EXPECT_EQ(scan(own), EContext::Stop);
    EXPECT_EQ(info, u"Штрихкод 4810000000017 есть у нескольких товаров. Выберите нужный."_s);
    EXPECT_FALSE(till->document()) << "neither is sold unasked";

    const auto names = chooseRow(1);
    EXPECT_EQ(scan(own), EContext::GoOn);
    EXPECT_EQ(*names, QStringList({u"Бинт узкий"_s, u"Бинт широкий"_s})) << "only these";
    EXPECT_EQ(till->document()->position(1)->getName(), u"Бинт широкий"_s);
    EXPECT_EQ(till->document()->position(1)->getPrice(), 7.0);
}

TEST_F(SellingGoods, sameGoodsScannedAgain_raiseTheirPosition)
{
    QList<int> raised;
    QObject::connect(till.get(), &Till::positionRaised, [&raised](int number) { raised.append(number); });
    scan(amoxidar);
    scan(u"2990000000026"_s);
    scan(amoxidar);
    ASSERT_EQ(positions(), 2);
    EXPECT_EQ(packs(1), 2.0);
    EXPECT_EQ(packs(2), 1.0);
    EXPECT_EQ(raised, QList<int>{1});
    EXPECT_EQ(savedDocument().value(u"sum"_s).toDouble(), till->document()->getSum().toRoubles()) << "it is saved";
}

TEST_F(SellingGoods, otherGoodsOfTheBarcode_areAPositionOfTheirOwn)
{
    put({u"t1"_s, own, u"Бинт"_s, u"5"_s});
    put({u"t2"_s, own, u"Бинт"_s, u"5"_s});
    chooseRow(0);
    scan(own);
    chooseRow(1);
    scan(own);
    EXPECT_EQ(positions(), 2);
}

TEST_F(SellingGoods, lockedPosition_isNotRaised)
{
    scan(amoxidar);
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    scan(amoxidar);
    ASSERT_EQ(positions(), 2);
    EXPECT_EQ(packs(1), 1.0);
    EXPECT_EQ(packs(2), 1.0);
    scan(amoxidar);
    EXPECT_EQ(positions(), 2);
    EXPECT_EQ(packs(2), 2.0);
}

TEST_F(SellingGoods, positionAtAnotherPrice_isNotRaised)
{
    scan(amoxidar);
    till->document()->position(1)->setPrice(1.0);
    scan(amoxidar);
    ASSERT_EQ(positions(), 2);
    EXPECT_EQ(till->document()->position(2)->getPrice(), 12.4);
}

TEST_F(SellingGoods, documentOfAFormerVersion_itsPositionIsRaised)
{
    scan(amoxidar);
    QJsonObject saved = till->document()->toJson();
    QJsonArray positions = saved.value(u"positions"_s).toArray();
    QJsonObject position = positions.first().toObject();
    position.remove(u"code"_s);
    positions.replace(0, position);
    saved.insert(u"positions"_s, positions);
    till->restore(OpenDocumentFile::Loaded(Document::fromJson(saved)));
    scan(amoxidar);
    ASSERT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(packs(1), 2.0);
}

} // namespace
