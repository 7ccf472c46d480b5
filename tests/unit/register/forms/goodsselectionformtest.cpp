// SPDX-License-Identifier: MIT
#include "goodsselectionform.h"
#include "basicexception.h"
#include "registerstyle.h"
#include "scanner.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "tillfixture.h"

#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Keeps the answer of a form.
class AnsweredGui : public GraphicalUserInterface
{
public:
    void answer(const control::Action& action) override { answers.append(action); }

    QList<control::Action> answers;
};

} // namespace

class GoodsSelection : public TillFixture
{
protected:
    /// The form in a window of its own, ready for input. Its answer is in `answered`.
    void open(const QString& inn, const QString& info = {}, const QString& filter = {})
    {
        form = std::make_unique<GoodsSelectionForm>(GoodsSelectionParams{catalogue.goodsOf(inn), info, filter});
        form->rootWidget()->resize(1024, 600);
        form->rootWidget()->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form->rootWidget()));
        form->show();
    }
    /// The form for goods of a name, as for an external document.
    void openWanted(const QString& name, const std::optional<SelectedGoods>& picked = {}, const QString& info = {})
    {
        const auto all = [this] {
            ++readings;
            return catalogue.goodsOf({});
        };
        form = std::make_unique<GoodsSelectionForm>(
            GoodsSelectionParams{catalogue.goodsOf(name), info, {}, picked, name.trimmed(), all});
        form->rootWidget()->resize(1024, 600);
        form->rootWidget()->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form->rootWidget()));
        form->show();
    }
    template <typename T>
    T* widget(const char* name) const
    {
        return form->rootWidget()->findChild<T*>(QLatin1StringView(name));
    }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void type(const QString& text)
    {
        auto* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        ASSERT_TRUE(line);
        line->insert(text);
    }
    int shownRows() const { return widget<TalloTableView>("goodsTable")->model()->rowCount(); }
    QString hint() const { return widget<QLabel>("hintLabel")->text(); }
    const QList<control::Action>& answers() const { return answered.object.answers; }
    SelectedGoods selected() const
    {
        EXPECT_EQ(answers().size(), 1);
        return answers().isEmpty() ? SelectedGoods() : answers().first().value(u"result"_s).value<SelectedGoods>();
    }

    Own<GraphicalUserInterface, AnsweredGui> answered;
    std::unique_ptr<GoodsSelectionForm> form;
    int readings = 0; ///< of all goods
};

TEST_F(GoodsSelection, layoutWithOrdinaryLabels_medicineInfoIsPlain)
{
    QFile own(u":/layouts/goodsselection.ui"_s);
    ASSERT_TRUE(own.open(QIODevice::ReadOnly));
    QFile rich(folder.filePath(u"goodsselection.ui"_s));
    ASSERT_TRUE(rich.open(QIODevice::WriteOnly));
    rich.write(own.readAll().replace("WrappedLabel", "QLabel"));
    rich.close();
    config.set(u"GUI:layouts"_s, folder.path());
    open({}, u"<b>Инсулин</b>"_s);
    EXPECT_EQ(widget<QLabel>("medicineInfoLabel")->text(), u"<b>Инсулин</b>"_s);
    EXPECT_EQ(widget<QLabel>("medicineInfoLabel")->textFormat(), Qt::PlainText);
    EXPECT_STREQ(widget<QLabel>("medicineInfoLabel")->metaObject()->className(), "QLabel") << "of the layout";
}

TEST_F(GoodsSelection, opened_focusIsInTheFilterAndTheWantedGoodsAreCurrent)
{
    open(u"Амоксициллин"_s, u"Амоксициллин / Амоксидар / 30"_s);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"filterLineEdit"_s);
    EXPECT_EQ(shownRows(), 3);
    EXPECT_TRUE(widget<TalloTableView>("goodsTable")->currentIndex().data().toString().startsWith("Амоксидар,"));
    EXPECT_EQ(widget<QLabel>("medicineInfoLabel")->text(), u"Амоксициллин / Амоксидар / 30"_s);
    EXPECT_EQ(widget<TalloLineEdit>("quantityLineEdit")->text(), u"1"_s);
}

TEST_F(GoodsSelection, withoutInfo_itsLineIsHidden)
{
    open({});
    EXPECT_FALSE(widget<QLabel>("medicineInfoLabel")->isVisible());
    EXPECT_EQ(shownRows(), 60);
}

TEST_F(GoodsSelection, longInfo_isWholeInTheToolTip)
{
    const QString info = QString(300, QChar(0x416)) + u" / "_s + QString(300, QChar(0x429));
    open({}, info);
    auto* label = widget<QLabel>("medicineInfoLabel");
    EXPECT_LE(label->height(), 72);
    QHelpEvent help(QEvent::ToolTip, {5, 5}, label->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(label, &help);
    EXPECT_TRUE(QToolTip::text().contains(info));
}

TEST_F(GoodsSelection, returnKey_answersTheCurrentRowAndOnePack)
{
    open(u"Амоксициллин"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.name, u"Амоксидар, капсулы 500 мг №16"_s);
    EXPECT_EQ(selected().packs, 1);
    EXPECT_EQ(answers().first().value(u"data"_s).toInt(), 0);
}

TEST_F(GoodsSelection, filterTyped_onlyMatchesInAnyCaseAreShown)
{
    open({});
    type(u"ПАРАЦЕТ"_s);
    EXPECT_EQ(shownRows(), 2) << "by name or non-proprietary name";
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.nonProprietaryName, u"Парацетамол"_s);
}

TEST_F(GoodsSelection, typedInTheWrongLayoutAndWordsInAnyOrder_findsTheGoods)
{
    open({});
    type(u"500 ajhnt fvjrcblfh"_s); // "500 форте амоксидар"
    EXPECT_EQ(shownRows(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.name, u"Амоксидар Форте, капсулы 500 мг №16"_s);
}

TEST_F(GoodsSelection, barcodeTyped_findsItsGoods)
{
    open({}, {}, amoxidar);
    EXPECT_EQ(shownRows(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.barcode, amoxidar);
}

TEST_F(GoodsSelection, nothingMatches_isShownAtOnceAndReturnKeyDoesNothing)
{
    const QString shown = u"По запросу «4600000000000» ничего не найдено. Измените строку поиска."_s;
    open({}, {}, u" 4600000000000 "_s);
    EXPECT_EQ(hint(), shown);
    EXPECT_TRUE(widget<QPushButton>("okButton")->property("idle").toBool());
    press(Qt::Key_Return);
    EXPECT_TRUE(answers().isEmpty());
    EXPECT_EQ(hint(), shown);
    widget<TalloLineEdit>("filterLineEdit")->clear();
    EXPECT_TRUE(hint().isEmpty());
    EXPECT_FALSE(widget<QPushButton>("okButton")->property("idle").toBool());
}

TEST_F(GoodsSelection, filterTypedDownToNothing_isShownAtOnce)
{
    open({});
    type(u"парацет"_s);
    EXPECT_TRUE(hint().isEmpty());
    type(u"ъ"_s);
    EXPECT_TRUE(hint().startsWith(u"По запросу «парацетъ» ничего не найдено"_s));
}

TEST_F(GoodsSelection, longSearchWithoutAMatch_isShortenedInTheHint)
{
    open({}, {}, QString(10'000, QChar(0x416)));
    EXPECT_LT(hint().size(), 150);
    EXPECT_TRUE(hint().contains(u"Ж…» ничего не найдено"_s));
}

TEST_F(GoodsSelection, noGoodsAtAll_isShown)
{
    open(u"Нет такого вещества"_s);
    EXPECT_EQ(hint(), u"Нет товара для выбора. Вернитесь назад."_s);
}

TEST_F(GoodsSelection, goodsOutOfStock_areGreyAndCanBeChosen)
{
    CatalogueGoods gone;
    gone.name = u"Амоксидар, капсулы"_s;
    gone.price = Kopecks{1240};
    gone.stock = 0;
    CatalogueGoods there = gone;
    there.stock = 3;
    const GoodsTableModel model({gone, there});
    const QModelIndex stockOfGone = model.index(0, GoodsTableModel::Stock);
    EXPECT_EQ(stockOfGone.data().toString(), u"нет"_s);
    EXPECT_EQ(model.index(1, GoodsTableModel::Stock).data().toString(), u"3"_s);
    for (int column = 0; column < GoodsTableModel::ColumnCount; ++column) {
        EXPECT_EQ(model.index(0, column).data(Qt::ForegroundRole).value<QBrush>().color(), RegisterColours().mutedText);
        EXPECT_FALSE(model.index(1, column).data(Qt::ForegroundRole).isValid());
    }

    form = std::make_unique<GoodsSelectionForm>(GoodsSelectionParams{{gone}, {}, {}});
    form->rootWidget()->show();
    widget<QPushButton>("okButton")->click();
    EXPECT_EQ(selected().goods.name, gone.name) << "the pack may be in the cashier's hand";
}

TEST_F(GoodsSelection, packsTyped_areAnswered)
{
    open({}, {}, amoxidar);
    widget<TalloLineEdit>("quantityLineEdit")->setText(u"24"_s);
    widget<QPushButton>("okButton")->click();
    EXPECT_EQ(selected().packs, 24);
}

TEST_F(GoodsSelection, morePacksThanInStock_areAnswered)
{
    open({}, {}, amoxidar);
    widget<TalloLineEdit>("quantityLineEdit")->setText(u"25"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().packs, 25);
}

TEST_F(GoodsSelection, noGoodsOfTheWantedName_namesItAndOffersAllByOneKeyWithAWarning)
{
    openWanted(u"Нет такого вещества"_s);
    EXPECT_EQ(hint(), u"Нет товаров с МНН «Нет такого вещества». Можно показать все товары."_s);
    EXPECT_EQ(widget<QPushButton>("allGoodsButton")->text(), u"F4 Все товары"_s);
    EXPECT_TRUE(widget<QPushButton>("allGoodsButton")->isVisible());
    EXPECT_FALSE(widget<QLabel>("allGoodsLabel")->isVisible());
    EXPECT_EQ(readings, 0) << "not before the cashier wants them";
    press(Qt::Key_F4);
    EXPECT_EQ(readings, 1);
    EXPECT_EQ(shownRows(), 60);
    EXPECT_EQ(hint(), QString());
    EXPECT_FALSE(widget<QPushButton>("allGoodsButton")->isVisible());
    EXPECT_TRUE(widget<QLabel>("allGoodsLabel")->isVisible());
    EXPECT_EQ(widget<QLabel>("allGoodsLabel")->text(),
              u"Показаны все товары, не только с МНН «Нет такого вещества». Сверьте действующее вещество."_s);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"filterLineEdit"_s);
}

TEST_F(GoodsSelection, searchFindsNoneOfTheWantedName_allGoodsAreSearchedForTheSame)
{
    openWanted(u"Амоксициллин"_s);
    EXPECT_FALSE(widget<QPushButton>("allGoodsButton")->isVisible()) << "there are some";
    press(Qt::Key_F4);
    EXPECT_EQ(shownRows(), 3) << "the key does nothing yet";
    type(u"параделин"_s);
    EXPECT_EQ(hint(), u"Среди товаров с МНН «Амоксициллин» нет «параделин». Измените поиск или покажите все товары."_s);
    widget<QPushButton>("allGoodsButton")->click();
    EXPECT_EQ(shownRows(), 1);
    EXPECT_EQ(widget<TalloLineEdit>("filterLineEdit")->text(), u"параделин"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(selected().goods.name.startsWith(u"Параделин"_s));
}

TEST_F(GoodsSelection, allGoodsCannotBeRead_saysSoAndStaysAtTheWantedOnes)
{
    openWanted(u"Нет такого вещества"_s);
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    press(Qt::Key_F4);
    EXPECT_TRUE(hint().startsWith(u"Справочник товаров недоступен"_s)) << qPrintable(hint());
    EXPECT_EQ(shownRows(), 0);
    EXPECT_TRUE(widget<QPushButton>("allGoodsButton")->isVisible()) << "it can be tried again";
    EXPECT_FALSE(widget<QLabel>("allGoodsLabel")->isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"filterLineEdit"_s);
}

TEST_F(GoodsSelection, pickedAmongTheWanted_readsNoOthers)
{
    openWanted(u"Амоксициллин"_s, article(amoxidar, 2));
    EXPECT_EQ(readings, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.barcode, amoxidar);
    EXPECT_EQ(selected().packs, 2);
}

TEST_F(GoodsSelection, pickedFromAllGoods_isCurrentAgainAmongAllOfThemWithTheWarning)
{
    const auto found = catalogue.goodsOf(u"Парацетамол"_s).matching({});
    ASSERT_FALSE(found.isEmpty());
    const CatalogueGoods other = catalogue.goodsOf(u"Парацетамол"_s).at(found.first());
    openWanted(u"Амоксициллин"_s, SelectedGoods{other, 3});
    EXPECT_EQ(shownRows(), 60);
    EXPECT_TRUE(widget<QLabel>("allGoodsLabel")->isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.code, other.code);
    EXPECT_EQ(selected().packs, 3);
}

TEST_F(GoodsSelection, pickedWithoutACode_isKnownByBarcodeAndName)
{
    SelectedGoods picked = article(amoxidar, 2);
    picked.goods.code.clear();
    openWanted(u"Амоксициллин"_s, picked);
    EXPECT_EQ(widget<TalloTableView>("goodsTable")->currentIndex().data(), picked.goods.name);
    EXPECT_EQ(widget<TalloLineEdit>("quantityLineEdit")->text(), u"2"_s);
}

TEST_F(GoodsSelection, pickedAreNoLongerSold_theWantedTradeNameIsCurrent)
{
    SelectedGoods picked = article(amoxidar, 2);
    picked.goods.code = u"gone"_s;
    openWanted(u"Амоксициллин"_s, picked, u"Амоксициллин / Амоксидар / 30"_s);
    EXPECT_TRUE(widget<TalloTableView>("goodsTable")->currentIndex().data().toString().startsWith("Амоксидар,"));
    EXPECT_EQ(widget<TalloLineEdit>("quantityLineEdit")->text(), u"1"_s);
}

TEST_F(GoodsSelection, pickedFromAllGoodsThatCannotBeRead_noOthersAreTakenByReturn)
{
    const GoodsList wanted = catalogue.goodsOf(u"Амоксициллин"_s);
    SelectedGoods picked = article(amoxidar, 2);
    picked.goods.code = u"gone"_s;
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    form = std::make_unique<GoodsSelectionForm>(
        GoodsSelectionParams{wanted, {}, {}, picked, u"Амоксициллин"_s, [this] { return catalogue.goodsOf({}); }});
    form->rootWidget()->show();
    EXPECT_TRUE(hint().startsWith(u"Справочник товаров недоступен"_s)) << qPrintable(hint());
    widget<QPushButton>("okButton")->click();
    EXPECT_TRUE(answers().isEmpty());
}

TEST_F(GoodsSelection, wantedNameSpelledOtherwise_isTheSame)
{
    for (const QString& name : {u"АМОКСИЦИЛЛИН"_s, u" амоксициллин "_s}) {
        openWanted(name);
        EXPECT_EQ(shownRows(), 3) << qPrintable(name);
    }
}

TEST_F(GoodsSelection, layoutWithoutTheOfferOfAllGoods_worksWithoutIt)
{
    QFile own(u":/layouts/goodsselection.ui"_s);
    ASSERT_TRUE(own.open(QIODevice::ReadOnly));
    QFile former(folder.filePath(u"goodsselection.ui"_s));
    ASSERT_TRUE(former.open(QIODevice::WriteOnly));
    former.write(own.readAll().replace("allGoodsButton", "other").replace("allGoodsLabel", "another"));
    former.close();
    config.set(u"GUI:layouts"_s, folder.path());
    openWanted(u"Нет такого вещества"_s);
    EXPECT_EQ(shownRows(), 0);
    EXPECT_FALSE(hint().isEmpty());
}

TEST_F(GoodsSelection, packsEmpty_asksForThem)
{
    open({}, {}, amoxidar);
    widget<TalloLineEdit>("quantityLineEdit")->clear();
    press(Qt::Key_Return);
    EXPECT_TRUE(answers().isEmpty());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"quantityLineEdit"_s);
    EXPECT_EQ(hint(), u"Введите целое количество упаковок от 1 до 999."_s);
}

TEST_F(GoodsSelection, packsAreNoWholeNumber_stayInTheFieldAndAreAskedForAgain)
{
    for (const QString& typed : QStringList{"1,5", "1.5", "-2", "2x", "0", "abc", "1000", "99999999999"}) {
        open({}, {}, amoxidar);
        auto* packs = widget<TalloLineEdit>("quantityLineEdit");
        packs->selectAll();
        packs->setFocus();
        QTest::keyClicks(packs, typed);
        press(Qt::Key_Return);
        EXPECT_TRUE(answers().isEmpty()) << qPrintable(typed);
        EXPECT_EQ(packs->text(), typed);
        EXPECT_EQ(hint(), u"Введите целое количество упаковок от 1 до 999."_s);
    }
}

TEST_F(GoodsSelection, scannedIntoThePacks_searchesTheGoodsAndKeepsThePacks)
{
    open({}, {}, u"парацет"_s);
    auto* packs = widget<TalloLineEdit>("quantityLineEdit");
    packs->setText(u"2"_s);
    packs->setFocus();
    scanInto(*packs, amoxidar);
    EXPECT_TRUE(answers().isEmpty()) << "the Return of a scan sells nothing";
    EXPECT_EQ(packs->text(), u"2"_s);
    auto* filter = widget<TalloLineEdit>("filterLineEdit");
    EXPECT_EQ(filter->text(), amoxidar);
    EXPECT_EQ(QApplication::focusWidget(), filter);
    EXPECT_EQ(shownRows(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.barcode, amoxidar);
    EXPECT_EQ(selected().packs, 2);
}

TEST_F(GoodsSelection, scannedTwiceIntoThePacks_theSecondScanReplacesTheFirst)
{
    open({});
    widget<TalloLineEdit>("quantityLineEdit")->setFocus();
    scanInto(*QApplication::focusWidget(), u"4600000000000"_s);
    EXPECT_EQ(hint(), u"По запросу «4600000000000» ничего не найдено. Измените строку поиска."_s);
    scanInto(*QApplication::focusWidget(), amoxidar);
    EXPECT_EQ(selected().goods.barcode, amoxidar);
    EXPECT_EQ(selected().packs, 1);
}

TEST_F(GoodsSelection, packsTypedAndReturnKey_choosesThatMany)
{
    open({}, {}, amoxidar);
    auto* packs = widget<TalloLineEdit>("quantityLineEdit");
    packs->setFocus();
    packs->selectAll();
    QTest::keyClicks(packs, u"12"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().packs, 12);
}

TEST_F(GoodsSelection, escOrBackButton_answersMinusOneWithoutGoods)
{
    open({});
    press(Qt::Key_Escape);
    widget<QPushButton>("cancelButton")->click();
    ASSERT_EQ(answers().size(), 2);
    for (const control::Action& answer : answers()) {
        EXPECT_EQ(answer.getType(), control::DialogAnswer);
        EXPECT_EQ(answer.value(u"data"_s).toInt(), -1);
        EXPECT_FALSE(answer.value(u"result"_s).isValid());
    }
}

TEST_F(GoodsSelection, touchMode_hasKeyboardAndAmountButtons)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    open({}, {}, amoxidar);
    ASSERT_TRUE(widget<QWidget>("talloKeyboard"));
    widget<QPushButton>("quantityPlusButton")->click();
    widget<QPushButton>("quantityPlusButton")->click();
    widget<QPushButton>("quantityMinusButton")->click();
    EXPECT_EQ(widget<TalloLineEdit>("quantityLineEdit")->text(), u"2"_s);
    for (int press = 0; press < 5; ++press) {
        widget<QPushButton>("quantityMinusButton")->click();
    }
    EXPECT_EQ(widget<TalloLineEdit>("quantityLineEdit")->text(), u"1"_s);
}

TEST_F(GoodsSelection, noTouchMode_hasNeither)
{
    open({});
    for (const char* name : {"talloKeyboard", "quantityPlusButton", "quantityMinusButton", "scrollUpButton"}) {
        EXPECT_FALSE(widget<QWidget>(name)) << name;
    }
}

TEST_F(GoodsSelection, nameOfTenThousandCharacters_doesNotWidenTheWindow)
{
    CatalogueGoods goods;
    goods.name = QString(10'000, QChar(0x416));
    goods.nonProprietaryName = goods.name;
    form = std::make_unique<GoodsSelectionForm>(GoodsSelectionParams{{goods}, goods.name, {}});
    EXPECT_LE(form->rootWidget()->minimumSizeHint().width(), 1024);
    EXPECT_LE(form->rootWidget()->minimumSizeHint().height(), 600);
}

TEST_F(GoodsSelection, layoutWithoutTheTable_throwsItsName)
{
    QFile original(u":/layouts/goodsselection.ui"_s);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    QFile broken(folder.filePath(u"goodsselection.ui"_s));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write(original.readAll().replace("goodsTable", "otherTable"));
    broken.close();
    config.set(u"GUI:layouts"_s, folder.path());
    try {
        const GoodsSelectionForm unusable(GoodsSelectionParams{});
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_TRUE(exception.tr().ui().contains(u"goodsTable"_s));
    }
}

TEST_F(GoodsSelection, infoNamesATradeName_itsGoodsAreCurrent)
{
    const GoodsList goods = catalogue.goodsOf({});
    const auto wanted = std::find_if(goods.cbegin() + 1, goods.cend(), [](const auto& one) { return one.stock > 0; });
    ASSERT_NE(wanted, goods.cend());
    const QString tradeName = wanted->name.section(',', 0, 0);
    open({}, u"Вещество / "_s + tradeName + u" / 10"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(selected().goods.name, wanted->name);
}
