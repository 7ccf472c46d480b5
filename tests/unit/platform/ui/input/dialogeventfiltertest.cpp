// SPDX-License-Identifier: MIT
#include "dialogeventfilter.h"
#include "uitest.h"

#include <QPushButton>
#include <QStandardItemModel>

#include <memory>

namespace
{

class DialogEventFilterTest : public UiTest
{
protected:
    DialogEventFilterTest()
        : rows(100, 2)
        , form(writeLayout("form.ui", widget("TalloTableView", "table") + widget("TalloLineEdit", "edit") +
                                          widget("QPushButton", "back") +
                                          widget("QPushButton", "choose",
                                                 "<property name=\"default\"><bool>true</bool></property>")))
        , filter(new DialogEventFilter(&form))
        , table(form.findWidget<TalloTableView>("table"))
        , edit(form.findWidget<TalloLineEdit>("edit"))
        , back(form.findWidget<QPushButton>("back"))
        , choose(form.findWidget<QPushButton>("choose"))
    {
        table->setModel(&rows);
        form.rootWidget()->installEventFilter(filter);
        QObject::connect(back, &QPushButton::clicked, [this] { ++backClicks; });
        QObject::connect(choose, &QPushButton::clicked, [this] { ++chooseClicks; });
        QObject::connect(&form, &BasicForm::dismissed, [this] { ++dismissals; });
        form.rootWidget()->resize(600, 500);
        form.rootWidget()->show();
        form.rootWidget()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.rootWidget()));
    }

    void handOver()
    {
        filter->setTableView(table);
        filter->setLineEdit(edit);
    }
    void listenToOk()
    {
        QObject::connect(filter, &DialogEventFilter::ok, [this] { ++oks; });
    }
    void listenToCancel()
    {
        QObject::connect(filter, &DialogEventFilter::cancel, [this] { ++cancels; });
    }
    void press(QWidget* focus, Qt::Key key)
    {
        focus->setFocus();
        QTest::keyClick(focus, key);
    }
    void hold(QWidget* focus, Qt::Key key)
    {
        focus->setFocus();
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
        QCoreApplication::sendEvent(focus, &held);
    }

    QStandardItemModel rows;
    LayoutForm form;
    DialogEventFilter* filter;
    TalloTableView* table;
    TalloLineEdit* edit;
    QPushButton* back;
    QPushButton* choose;
    int oks = 0;
    int cancels = 0;
    int backClicks = 0;
    int chooseClicks = 0;
    int dismissals = 0;
};

TEST_F(DialogEventFilterTest, returnInTheLineEdit_isOk)
{
    handOver();
    listenToOk();
    press(edit, Qt::Key_Return);
    EXPECT_EQ(oks, 1);
    press(edit, Qt::Key_Enter);
    EXPECT_EQ(oks, 2);
    EXPECT_EQ(chooseClicks, 0);
}

TEST_F(DialogEventFilterTest, returnInTheTable_isOk)
{
    handOver();
    listenToOk();
    press(table, Qt::Key_Return);
    EXPECT_EQ(oks, 1);
}

TEST_F(DialogEventFilterTest, returnInWidgetsThatWereNotHandedOver_isOk)
{
    listenToOk();
    press(edit, Qt::Key_Return);
    press(table, Qt::Key_Enter);
    EXPECT_EQ(oks, 2);
}

TEST_F(DialogEventFilterTest, returnOnTheRoot_isOk)
{
    listenToOk();
    form.rootWidget()->setFocusPolicy(Qt::StrongFocus);
    press(form.rootWidget(), Qt::Key_Return);
    EXPECT_EQ(oks, 1);
}

TEST_F(DialogEventFilterTest, returnOnAButton_clicksThatButtonOnly)
{
    handOver();
    listenToOk();
    press(back, Qt::Key_Return);
    EXPECT_EQ(backClicks, 1);
    EXPECT_EQ(chooseClicks, 0);
    EXPECT_EQ(oks, 0);
}

TEST_F(DialogEventFilterTest, enterOnTheDefaultButton_clicksItOnce)
{
    handOver();
    listenToOk();
    press(choose, Qt::Key_Enter);
    EXPECT_EQ(chooseClicks, 1);
    EXPECT_EQ(oks, 0);
}

TEST_F(DialogEventFilterTest, returnWithOkNotConnected_clicksTheDefaultButton)
{
    handOver();
    listenToCancel();
    press(edit, Qt::Key_Return);
    EXPECT_EQ(chooseClicks, 1);
    press(table, Qt::Key_Return);
    EXPECT_EQ(chooseClicks, 2);
    EXPECT_EQ(backClicks, 0);
}

TEST_F(DialogEventFilterTest, returnWithADisabledDefaultButton_doesNothing)
{
    choose->setEnabled(false);
    press(edit, Qt::Key_Return);
    EXPECT_EQ(chooseClicks, 0);
    EXPECT_EQ(backClicks, 0);
}

TEST_F(DialogEventFilterTest, returnWithTwoDefaultButtons_clicksTheEnabledOne)
{
    back->setDefault(true);
    for (QPushButton* impossible : {choose, back}) {
        backClicks = chooseClicks = 0;
        choose->setEnabled(impossible != choose);
        back->setEnabled(impossible != back);
        press(edit, Qt::Key_Return);
        EXPECT_EQ(chooseClicks, impossible == back ? 1 : 0);
        EXPECT_EQ(backClicks, impossible == choose ? 1 : 0);
    }
}

TEST_F(DialogEventFilterTest, returnHeldDown_doesNothing)
{
    handOver();
    listenToOk();
    hold(edit, Qt::Key_Return);
    hold(table, Qt::Key_Enter);
    hold(back, Qt::Key_Return);
    hold(choose, Qt::Key_Return);
    EXPECT_EQ(oks + backClicks + chooseClicks, 0);
}

TEST_F(DialogEventFilterTest, esc_isCancelWhereverTheFocusIs)
{
    handOver();
    listenToCancel();
    int expected = 0;
    for (QWidget* focus : {static_cast<QWidget*>(edit), static_cast<QWidget*>(table), static_cast<QWidget*>(back),
                           static_cast<QWidget*>(choose), form.rootWidget()}) {
        press(focus, Qt::Key_Escape);
        EXPECT_EQ(cancels, ++expected) << focus->objectName().toStdString();
    }
    EXPECT_EQ(dismissals, 0);
}

TEST_F(DialogEventFilterTest, escHeldDown_doesNothing)
{
    handOver();
    listenToCancel();
    hold(edit, Qt::Key_Escape);
    hold(back, Qt::Key_Escape);
    EXPECT_EQ(cancels, 0);
    EXPECT_EQ(dismissals, 0);
}

TEST_F(DialogEventFilterTest, escAndCloseWithCancelNotConnected_dismissTheForm)
{
    handOver();
    press(edit, Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
    form.rootWidget()->close();
    EXPECT_EQ(dismissals, 2);
}

TEST_F(DialogEventFilterTest, windowClosed_isCancelAndTheWindowStays)
{
    listenToCancel();
    EXPECT_FALSE(form.rootWidget()->close());
    EXPECT_EQ(cancels, 1);
    EXPECT_EQ(dismissals, 0);
    EXPECT_TRUE(form.rootWidget()->isVisible());
}

TEST_F(DialogEventFilterTest, upAndDownInTheLineEdit_moveTheRow)
{
    handOver();
    table->selectRow(5);
    press(edit, Qt::Key_Down);
    EXPECT_EQ(table->currentIndex().row(), 6);
    press(edit, Qt::Key_Up);
    press(edit, Qt::Key_Up);
    EXPECT_EQ(table->currentIndex().row(), 4);
    EXPECT_EQ(QApplication::focusWidget(), edit);
}

TEST_F(DialogEventFilterTest, pageKeysInTheLineEdit_moveTheRowByAPage)
{
    handOver();
    table->selectRow(5);
    press(edit, Qt::Key_PageDown);
    const int paged = table->currentIndex().row();
    EXPECT_GT(paged, 6);
    press(edit, Qt::Key_PageUp);
    EXPECT_LT(table->currentIndex().row(), paged);
}

TEST_F(DialogEventFilterTest, downWithNoRowCurrent_takesTheFirst)
{
    handOver();
    table->setCurrentIndex({});
    press(edit, Qt::Key_Down);
    EXPECT_EQ(table->currentIndex().row(), 0);
}

TEST_F(DialogEventFilterTest, downInAnEmptyTable_doesNothing)
{
    handOver();
    rows.setRowCount(0);
    press(edit, Qt::Key_Down);
    EXPECT_FALSE(table->currentIndex().isValid());
}

TEST_F(DialogEventFilterTest, lettersTypedIntoTheTable_goToTheLineEdit)
{
    handOver();
    table->setFocus();
    QTest::keyClick(table, 'p');
    EXPECT_EQ(QApplication::focusWidget(), edit);
    EXPECT_EQ(edit->text(), "p");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Backspace);
    EXPECT_EQ(edit->text(), "");
}

TEST_F(DialogEventFilterTest, shortcutsInTheTable_stayThere)
{
    handOver();
    table->setFocus();
    QTest::keyClick(table, 'c', Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), table);
    EXPECT_EQ(edit->text(), "");
}

TEST_F(DialogEventFilterTest, lettersTypedBesideAReadOnlyLineEdit_stayInTheTable)
{
    handOver();
    edit->setReadOnly(true);
    table->setFocus();
    QTest::keyClick(table, 'p');
    EXPECT_EQ(QApplication::focusWidget(), table);
}

TEST_F(DialogEventFilterTest, doubleClickOnARow_isOk)
{
    handOver();
    listenToOk();
    const QPoint cell = table->visualRect(rows.index(1, 0)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell);
    EXPECT_EQ(oks, 0);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, cell);
    EXPECT_EQ(oks, 1);
    EXPECT_EQ(table->currentIndex().row(), 1);
}

TEST_F(DialogEventFilterTest, widgetsRemoved_areLeftAlone)
{
    handOver();
    listenToOk();
    filter->setTableView(nullptr);
    filter->setLineEdit(nullptr);
    table->selectRow(5);
    press(edit, Qt::Key_Down);
    EXPECT_EQ(table->currentIndex().row(), 5);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(rows.index(1, 0)).center());
    EXPECT_EQ(oks, 0);
}

TEST_F(DialogEventFilterTest, widgetsDestroyed_othersStillWork)
{
    handOver();
    listenToOk();
    delete table;
    press(edit, Qt::Key_Down);
    press(edit, Qt::Key_Return);
    EXPECT_EQ(oks, 1);
}

} // namespace
