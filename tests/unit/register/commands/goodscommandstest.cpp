// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

class GoodsCommandsTest : public CommandFixture
{
};

TEST_F(GoodsCommandsTest, selectGoods_offersThoseOfTheNameAndWritesTheResult)
{
    int rows = 0;
    QString info;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        rows = root.findChild<QAbstractItemView*>(u"goodsTable"_s)->model()->rowCount();
        info = root.findChild<QLabel*>(u"medicineInfoLabel"_s)->text();
        press(root, "okButton");
    });
    EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Амоксициллин"_s}, {u"medicineInfo"_s, u"a / b / 2.5"_s}}),
              EContext::GoOn);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(info, u"a / b / 2.5"_s);
    EXPECT_EQ(action.value(u"result"_s).value<SelectedGoods>().goods.nonProprietaryName, u"Амоксициллин"_s);
    EXPECT_TRUE(witness.seen.isEmpty()) << "choosing opens no receipt";
}

TEST_F(GoodsCommandsTest, selectGoods_readsAllGoodsOnlyForTheCashierWhoWantsThem)
{
    cashier.onForm(u"goodsSelectionForm"_s, [this](QWidget& root) {
        config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
        press(root, "allGoodsButton");
        EXPECT_TRUE(root.findChild<QLabel*>(u"hintLabel"_s)->text().startsWith(u"Справочник товаров недоступен"_s));
        press(root, "cancelButton");
    });
    const DialogDouble dialog;
    EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Нет такого вещества"_s}}), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_EQ(dialog.messages().size(), 0);
}

TEST_F(GoodsCommandsTest, addSelectedGoodsWhileTheReceiptIsPrinted_saysThatTheDocumentIsGone)
{
    till->add(article(amoxidar));
    const DialogDouble dialog;
    EContext::Result whilePrinting = EContext::GoOn;
    till->setPrinting([&](const Document&) {
        whilePrinting = run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}});
        EXPECT_TRUE(till->obstacleToChangingPositions());
    });
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    EXPECT_EQ(whilePrinting, EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Чек уже не открыт"_s));
    EXPECT_EQ(archived(1)->positions().size(), 1);
}

/// Picks goods for a medicine as a cashier does, and keeps what was there at first.
class PickedGoods : public GoodsCommandsTest
{
protected:
    /// @param packs typed into their field; empty: taken as they are
    void pick(const QString& medicineInfo, int row = -1, const QString& packs = {})
    {
        cashier.onForm(u"goodsSelectionForm"_s, [=, this](QWidget& root) {
            auto* table = root.findChild<QAbstractItemView*>(u"goodsTable"_s);
            auto* field = root.findChild<QLineEdit*>(u"quantityLineEdit"_s);
            currentRow = table->currentIndex().row();
            packsAtFirst = field->text();
            if (row >= 0) {
                table->setCurrentIndex(table->model()->index(row, 0));
            }
            if (!packs.isEmpty()) {
                field->setText(packs);
            }
            press(root, "okButton");
        });
        EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Амоксициллин"_s}, {u"medicineInfo"_s, medicineInfo}}),
                  EContext::GoOn);
    }

    int currentRow = -1;
    QString packsAtFirst;
    const QString medicine = u"Амоксициллин / / 30"_s;
};

TEST_F(PickedGoods, pickedAgainForTheSameMedicine_areOfferedWithTheirPacks)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    const QString code = action.value(u"result"_s).value<SelectedGoods>().goods.code;
    pick(medicine);
    EXPECT_EQ(currentRow, 2);
    EXPECT_EQ(packsAtFirst, u"3"_s);
    const auto again = action.value(u"result"_s).value<SelectedGoods>();
    EXPECT_EQ(again.goods.code, code);
    EXPECT_EQ(again.packs, 3);
}

TEST_F(PickedGoods, anotherMedicine_beginsWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    pick(u"Амоксициллин / / 60"_s);
    EXPECT_EQ(currentRow, 0);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, theyAreOnTheDocument_theNextBeginWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, action.value(u"result"_s)}}), EContext::GoOn);
    pick(medicine);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, nextDocument_beginsWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    ASSERT_TRUE(till->cancel());
    till->open();
    pick(medicine);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(GoodsCommandsTest, selectGoodsCancelled_stopsWithoutAResult)
{
    cashier.onForm(u"goodsSelectionForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    EXPECT_FALSE(action.value(u"result"_s).isValid());
}

TEST_F(GoodsCommandsTest, selectGoodsClosedByTheRegister_stopsWithoutAResult)
{
    cashier.onForm(u"goodsSelectionForm"_s, [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
}

TEST_F(GoodsCommandsTest, selectGoodsWithoutADatabase_showsAMessageAndStops)
{
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    const DialogDouble dialog;
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Справочник товаров недоступен"_s));
}

TEST_F(GoodsCommandsTest, addSelectedGoods_writesThePositionNumberThatCanBeFoundAtOnce)
{
    till->open();
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar, 2))}}),
              EContext::GoOn);
    const int number = action.value(u"positionNumber"_s).toInt();
    ASSERT_TRUE(till->document()->getPosition(number));
    EXPECT_EQ(till->document()->getPosition(number)->getQuantity(), 2.0);
}

TEST_F(GoodsCommandsTest, addSelectedGoodsWithoutADocumentOrGoods_addsNothing)
{
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}),
              EContext::NotFound);
    till->open();
    EXPECT_EQ(run(control::AddSelectedGoods), EContext::NotFound);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, 5}}), EContext::NotFound);
    EXPECT_TRUE(till->document()->positions().isEmpty());
}

TEST_F(GoodsCommandsTest, barcodeSearched_addsItsGoodsWithoutAsking)
{
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::GoOn);
    ASSERT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(till->document()->position(1)->getName(), u"Амоксидар, капсулы 500 мг №16"_s);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(GoodsCommandsTest, barcodeOfGoodsOutOfStockSearched_asksBeforeTheyAreSold)
{
    const QVariantMap search{{u"search"_s, u"2990000000132"_s}};
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::addGoods, search), EContext::Stop);
    EXPECT_EQ(question, u"На остатке нет товара:\nАмлонорд Форте, таблетки 5 мг №30\nВсё равно продать?"_s);
    EXPECT_FALSE(till->document());

    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::addGoods, search), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->position(1)->getName(), u"Амлонорд Форте, таблетки 5 мг №30"_s);
}

TEST_F(GoodsCommandsTest, nameSearched_opensTheSelectionWithItAndAddsAfterwards)
{
    QList<int> eventsWhileChoosing;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        EXPECT_EQ(root.findChild<QLineEdit*>(u"filterLineEdit"_s)->text(), u"бинт"_s);
        eventsWhileChoosing = witness.codes();
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, u" бинт "_s}}), EContext::GoOn);
    EXPECT_TRUE(eventsWhileChoosing.isEmpty()) << "event 10 comes after the dialog";
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(GoodsCommandsTest, documentReplacedWhileGoodsAreChosen_theyAreNotAddedToTheNextOne)
{
    const DialogDouble dialog;
    for (const bool byPlugin : {false, true}) {
        till->add(article(amoxidar));
        const auto replaceAndPress = [this](const char* button) {
            return [this, button](QWidget& root) {
                till->cancel();
                till->open();
                press(root, button);
            };
        };
        if (byPlugin) {
            cashier.onForm(u"questionForm"_s, replaceAndPress("yesButton"));
            EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar, 500))}}),
                      EContext::Stop);
        } else {
            cashier.onForm(u"goodsSelectionForm"_s, replaceAndPress("okButton"));
            EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, u"амокси"_s}}), EContext::Stop);
        }
        EXPECT_TRUE(till->document()->positions().isEmpty()) << byPlugin;
        EXPECT_EQ(dialog.messages().size(), byPlugin ? 2 : 1);
        till->cancel();
    }
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Чек уже не открыт"_s));
}

TEST_F(GoodsCommandsTest, addGoodsCancelled_opensNoDocument)
{
    cashier.onForm(u"goodsSelectionForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_FALSE(till->document());
}
