// SPDX-License-Identifier: MIT
// What the cashier sees when a plug-in ends an action.
#include "actionhost.h"
#include "dialogdouble.h"
#include "finally.h"
#include "registerstyle.h"
#include "windowfixture.h"
#include "workstep.h"

#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

class StoppedActionTest : public WindowFixture
{
protected:
    StoppedActionTest()
    {
        till->add(article(amoxidar));
        till->add(article(amoxidar));
    }
    void answer(control::EActionType type, EContext::Result result)
    {
        controller.object.host().addTrigger({EContext::OpenDocument, type, ActionTrigger::Before,
                                             [result](const control::Action&) { return result; }, ActionTrigger::Any,
                                             1});
    }
    QLabel* status() const { return widget<QLabel>("statusMessageLabel"); }
};

TEST_F(StoppedActionTest, pluginStopsTheSubtotal_theStatusLineSaysSoUntilTheNextKey)
{
    answer(control::Subtotal, EContext::Stop);
    openWindow();
    press(Qt::Key_Up);
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(status()->text(),
              u"Подытог не выполнен: модуль остановил это действие. Если остановили не вы, повторите."_s);
    EXPECT_EQ(status()->property("textRole").toString(), u"waiting"_s);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_EQ(widget<QTableView>("receiptTable")->model()->rowCount(), 2);
    EXPECT_EQ(widget<QTableView>("receiptTable")->currentIndex().row(), 0);
    press(Qt::Key_Down);
    EXPECT_TRUE(status()->text().isEmpty());
    EXPECT_EQ(status()->property("textRole").toString(), u"hint"_s);
}

TEST_F(StoppedActionTest, pluginStopsAtTheSubtotalAlreadyShown_theSubtotalStays)
{
    answer(control::SubtotalAndPayment, EContext::Stop);
    openWindow();
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    press(Qt::Key_F12);
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(status()->text().startsWith(u"Оплата не выполнена:"_s));
    EXPECT_EQ(till->phase(), Till::Phase::Subtotal);
    EXPECT_TRUE(isSeen("paymentPanel"));
}

TEST_F(StoppedActionTest, functionKeyPressedAgainAndNotStopped_theMessageIsGone)
{
    answer(control::Subtotal, EContext::Stop);
    openWindow();
    till->setPhase(Till::Phase::Subtotal); // the second time changes nothing
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    ASSERT_FALSE(status()->text().isEmpty());
    controller.object.host().removePluginEntries();
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(status()->text().isEmpty());
}

TEST_F(StoppedActionTest, cancellationStoppedAtThePayment_positionsComeBackUnderTheMessageAndReturnKeySellsNothing)
{
    answer(control::CancelDocument, EContext::Stop);
    openWindow();
    till->setPhase(Till::Phase::Payment);
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { root.findChild<QPushButton*>(u"yesButton"_s)->click(); });
    press(Qt::Key_F9);
    ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_TRUE(status()->text().startsWith(u"Отмена не выполнена:"_s)) << qPrintable(status()->text());
    press(Qt::Key_Return);
    ASSERT_TRUE(becomesIdle());
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getState(), Document::State::Open);
}

TEST_F(StoppedActionTest, messageInTheStatusLine_fitsTheSmallestScreen)
{
    answer(control::Subtotal, EContext::Stop);
    applyRegisterStyle(*qApp, {1024, 600});
    const Finally undressed([] { qApp->setStyleSheet(QString()); });
    openWindow();
    widget<StatusLine>("statusLine")->showPlugins(u"Модулей: 1"_s, {});
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    QApplication::processEvents();
    EXPECT_LE(status()->heightForWidth(status()->width()), status()->height());
    EXPECT_GE(status()->contentsRect().left(), 8) << "not at the very edge of the amber";
}

TEST_F(StoppedActionTest, pluginStopsWithAMessage_theStatusLineRepeatsItUntilTheNextAction)
{
    int stops = 0;
    controller.object.host().addTrigger(
        {EContext::OpenDocument, control::Subtotal, ActionTrigger::Before,
         [&stops](const control::Action&) {
             if (stops++ == 0) {
                 WorkStep step({tr::undefined, u"Регистрация 1 из 2."_s});
                 step.setAdvice({tr::undefined, u"Не повторяйте."_s});
                 Dialog::create()->showMessage({tr::undefined, u"Связь прервалась."_s}, Dialog::Error, 0, 0);
             }
             return EContext::Stop;
         },
         ActionTrigger::Any, 1});
    openWindow();
    cashier.onForm(u"messageForm"_s, [](QWidget& root) { root.findChild<QPushButton*>(u"okButton"_s)->click(); });
    press(Qt::Key_F6);
    ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(status()->text(),
              u"Подытог не выполнен. Сообщение: Регистрация 1 из 2. Связь прервалась. Не повторяйте."_s);
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(status()->text(),
              u"Подытог не выполнен: модуль остановил это действие. Если остановили не вы, повторите."_s);
}

TEST_F(StoppedActionTest, permanentMessage_comesBackAfterAStoppedAction)
{
    answer(control::Subtotal, EContext::Stop);
    openWindow();
    widget<StatusLine>("statusLine")->showMessage(u"Модуль не подключён: x"_s);
    press(Qt::Key_F6);
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(status()->text().startsWith(u"Подытог"_s));
    QTest::mouseClick(widget<QTableView>("receiptTable")->viewport(), Qt::LeftButton);
    EXPECT_EQ(status()->text(), u"Модуль не подключён: x"_s);
}

TEST_F(StoppedActionTest, pluginDoesNotFindThePosition_aMessageSaysSoAndThePositionStays)
{
    answer(control::RemovePosition, EContext::NotFound);
    openWindow();
    const DialogDouble dialog;
    press(Qt::Key_F8);
    ASSERT_TRUE(becomesIdle());
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(
        u"Удаление позиции не выполнено: модуль не нашёл у себя эту позицию"_s));
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
    EXPECT_TRUE(status()->text().isEmpty());
    EXPECT_EQ(till->document()->positions().size(), 2);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_F(StoppedActionTest, positionState_isRefreshedAfterEachPieceOfLongWork)
{
    QFile file(folder.filePath(u"positionmarks.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"positions": [{"tag": "paper", "mark": "Б", "states": [
        {"option": "status", "value": "done", "text": "готово", "colour": "#1b6e3c"}]}]})");
    file.close();
    marks.load(file.fileName());
    openWindow();
    till->document()->position(1)->setTag(u"paper"_s);
    begin("x");
    till->document()->position(1)->setExtendedOptions(uR"({"status": "done"})"_s);
    end();
    const auto* table = widget<QTableView>("receiptTable");
    EXPECT_EQ(table->model()->index(0, PositionTableModel::State).data().toString(), u"готово"_s);
    EXPECT_FALSE(table->isColumnHidden(PositionTableModel::State));
}
