// SPDX-License-Identifier: MIT
// The positions of a sale that come back: chosen in the form, returned as a document of their own.
#include "dialogdouble.h"
#include "looks.h"
#include "registeraction.h"
#include "storeddocumentcommands.h"
#include "tallotableview.h"
#include "windowfixture.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class ReturnFormTest : public WindowFixture
{
protected:
    ReturnFormTest()
    {
        documentCommands.offer(controller.object);
        for (int line = 0; line < 3; ++line) {
            till->add(article(amoxidar, line + 1)); // 12,40, 24,80, 37,20
        }
        EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    }

    /// Returns sale number 1, and does `act` in the form.
    EContext::Result returnSale(const Cashier::Act& act)
    {
        cashier.onForm(u"returnForm"_s, act);
        return returnSale();
    }
    EContext::Result returnSale()
    {
        control::Action action(registeraction::returnSale);
        action.insert(u"number"_s, 1);
        return controller.object.execute(action);
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static QString hint(const QWidget& form) { return form.findChild<QLabel*>(u"hintLabel"_s)->text(); }
    static TalloTableView* table(const QWidget& form) { return form.findChild<TalloTableView*>(u"positionsTable"_s); }
    QList<int> openPositions() const
    {
        QList<int> numbers;
        for (const auto& position : till->document()->positions()) {
            numbers.append(position->getNumber());
        }
        return numbers;
    }
    void closeReturn() { ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())})); }
    Document::Returned returned() const { return till->returned(*till->archive().find(1)); }

    ReceiptPrinter printer{folder.path(), marks};
    StoredDocumentCommands documentCommands{*till, printer, marks};
};

TEST_F(ReturnFormTest, returnKeyAlone_returnsAll)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  EXPECT_TRUE(hint(form).startsWith(u"Выбрано 3 из 3 на сумму 74,40."_s));
                  EXPECT_EQ(table(form)->model()->index(2, 0).data(), u"✓"_s);
                  EXPECT_TRUE(table(form)->isColumnHidden(3)) << "no position has a mark";
                  press(Qt::Key_Return);
              }),
              EContext::GoOn);
    EXPECT_EQ(openPositions(), (QList<int>{1, 2, 3}));
    EXPECT_EQ(returned(), Document::Returned::Wholly);
}

TEST_F(ReturnFormTest, positionOfTheSaleWasRemoved_placesAreThoseOfTheReceipt)
{
    for (int line = 0; line < 3; ++line) {
        till->add(article(amoxidar, line + 1));
    }
    till->remove(1);
    ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    openWindow();
    cashier.onForm(u"returnForm"_s, [](QWidget& form) {
        EXPECT_EQ(table(form)->model()->index(0, 1).data(), u"1"_s);
        EXPECT_EQ(table(form)->model()->index(1, 1).data(), u"2"_s);
        press(Qt::Key_Return);
    });
    control::Action action(registeraction::returnSale);
    action.insert(u"number"_s, 2);
    EXPECT_EQ(controller.object.execute(action), EContext::GoOn);
    EXPECT_EQ(openPositions(), (QList<int>{2, 3})) << "plug-ins know them by these numbers";
}

TEST_F(ReturnFormTest, shown_saysWhatIsDoneOfWhichSaleAndWithWhichKeys)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  EXPECT_EQ(form.findChild<QLabel*>(u"titleLabel"_s)->text(),
                            u"Возврат товара. Чек № 1: что возвращают"_s);
                  for (const auto& key : {u"Пробел"_s, u"Ввод"_s, u"Esc"_s}) {
                      EXPECT_TRUE(hint(form).contains(key)) << qPrintable(hint(form));
                  }
                  EXPECT_EQ(table(form)->model()->headerData(3, Qt::Horizontal), u"Вид"_s);
                  press(Qt::Key_Escape);
              }),
              EContext::Stop);
}

TEST_F(ReturnFormTest, shownInTouchMode_saysWhatToTouch)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  EXPECT_TRUE(hint(form).contains(u"Коснитесь строки"_s));
                  EXPECT_EQ(looks::namesOfKeys(looks::textsOn(form)), QStringList());
                  const QString button = form.findChild<QPushButton*>(u"returnButton"_s)->text();
                  EXPECT_TRUE(hint(form).contains(u'«' + button + u'»')) << qPrintable(hint(form));
                  form.findChild<QPushButton*>(u"cancelButton"_s)->click();
              }),
              EContext::Stop);
}

TEST_F(ReturnFormTest, tick_isAtLeastAsLargeAsTheTextOfItsRow)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  const auto* view = table(form);
                  const QModelIndex cell = view->model()->index(0, 0);
                  const QFontMetrics text(view->font());
                  const QFontMetrics tick(cell.data(Qt::FontRole).value<QFont>());
                  const QRect drawn = tick.tightBoundingRect(cell.data().toString());
                  EXPECT_GE(drawn.height(), text.tightBoundingRect(u"А"_s).height());
                  EXPECT_GE(view->rowHeight(0), tick.height()) << "it is not cut off";
                  press(Qt::Key_Escape);
              }),
              EContext::Stop);
}

TEST_F(ReturnFormTest, spaceOnAPosition_leavesItOut)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  press(Qt::Key_Down);
                  press(Qt::Key_Space);
                  EXPECT_TRUE(hint(form).startsWith(u"Выбрано 2 из 3 на сумму 49,60."_s)) << qPrintable(hint(form));
                  press(Qt::Key_Return);
              }),
              EContext::GoOn);
    EXPECT_EQ(openPositions(), (QList<int>{1, 3}));
    EXPECT_EQ(till->document()->getSum(), Kopecks{4960});
    EXPECT_EQ(returned(), Document::Returned::Partly);
}

TEST_F(ReturnFormTest, touchedRow_changesItsChoice)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  const auto* view = table(form);
                  QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                    view->visualRect(view->model()->index(0, 2)).center());
                  QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                    view->visualRect(view->model()->index(2, 0)).center());
                  form.findChild<QPushButton*>(u"returnButton"_s)->click();
              }),
              EContext::GoOn);
    EXPECT_EQ(openPositions(), QList<int>{2});
}

TEST_F(ReturnFormTest, noneChosen_cannotBeConfirmed)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget& form) {
                  press(Qt::Key_F4);
                  EXPECT_TRUE(hint(form).startsWith(u"Выбрано 0 из 3"_s));
                  EXPECT_FALSE(form.findChild<QPushButton*>(u"returnButton"_s)->isEnabled());
                  press(Qt::Key_F4);
                  EXPECT_TRUE(hint(form).startsWith(u"Выбрано 3 из 3"_s));
                  press(Qt::Key_Escape);
              }),
              EContext::Stop);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(returned(), Document::Returned::Nothing);
}

TEST_F(ReturnFormTest, partReturned_theRestComesBackLaterEachPositionOnce)
{
    openWindow();
    EXPECT_EQ(returnSale([](QWidget&) {
                  press(Qt::Key_Space);
                  press(Qt::Key_Return);
              }),
              EContext::GoOn);
    closeReturn();
    EXPECT_EQ(returned(), Document::Returned::Partly);
    EXPECT_TRUE(till->obstacleToVoiding(*till->archive().find(1)));
    EXPECT_EQ(returnSale(), EContext::GoOn) << "one position is left: there is nothing to choose";
    EXPECT_EQ(openPositions(), QList<int>{1});
    closeReturn();
    EXPECT_EQ(returned(), Document::Returned::Wholly);
    const DialogDouble dialog;
    EXPECT_EQ(returnSale(), EContext::Stop);
    EXPECT_EQ(dialog.messages().first().text, u"Продажа № 1 уже возвращена документом № 3.\n"
                                              "Проверьте номер чека."_s);
}

TEST_F(ReturnFormTest, partialReturnCancelled_itsPositionsCanComeBackAgain)
{
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {2}));
    EXPECT_EQ(till->returnablePositions(*till->archive().find(1)), (QSet<int>{1, 3}));
    ASSERT_TRUE(till->cancel());
    EXPECT_EQ(till->returnablePositions(*till->archive().find(1)), (QSet<int>{1, 2, 3}));
    EXPECT_FALSE(till->obstacleToVoiding(*till->archive().find(1)));
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {1}));
    closeReturn();
    EXPECT_FALSE(till->returnPositions(till->archive().find(1), {1})) << "each position once";
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {1, 2}));
    EXPECT_EQ(openPositions(), QList<int>{2});
}

TEST_F(ReturnFormTest, partialReturn_writesPluginDataBackToItsPositionsAlone)
{
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {2}));
    EXPECT_EQ(till->document()->getType(), 25);
    till->document()->position(2)->setExtendedOptions(u"{\"status\":\"canceled\"}"_s);
    closeReturn();
    const auto sale = till->archive().find(1);
    EXPECT_EQ(sale->position(2)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_EQ(sale->position(1)->getExtendedOptions(), QString());
    EXPECT_EQ(sale->position(3)->getExtendedOptions(), QString());
}

TEST_F(ReturnFormTest, oneReturnCannotBeRead_nothingElseComesBack)
{
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {2}));
    closeReturn();
    QFile damaged(folder.filePath(u"finished/00000002.json"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("{") == 1);
    damaged.close();
    EXPECT_EQ(till->returnablePositions(*till->archive().find(1)), QSet<int>{});
    EXPECT_EQ(returned(), Document::Returned::Wholly);
}

TEST_F(ReturnFormTest, restartDuringAPartialReturn_itsPositionsStayTaken)
{
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {2}));
    Till restarted(folder.path());
    restarted.restore(OpenDocumentFile(folder.path()).load());
    ASSERT_TRUE(restarted.document());
    EXPECT_EQ(restarted.document()->positions().size(), 1);
    EXPECT_EQ(restarted.returnablePositions(*restarted.archive().find(1)), (QSet<int>{1, 3}));
}
