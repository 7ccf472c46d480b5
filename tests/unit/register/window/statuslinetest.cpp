// SPDX-License-Identifier: MIT
#include "statusline.h"
#include "registerstyle.h"
#include "windowfixture.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class StatusLineTest : public WindowFixture
{
protected:
    StatusLineTest() { config.set(u"Language:interface"_s, u"ru"_s); }

    QPushButton* more() const { return widget<QPushButton>("statusMoreButton"); }
    QLabel* message() const { return widget<QLabel>("statusMessageLabel"); }
    /// What is read after `act`.
    QString readAfter(const std::function<void()>& act)
    {
        QString said;
        cashier.onForm(u"messageForm"_s, [&said](QWidget& root) {
            said = root.findChild<QLabel*>(u"messageLabel"_s)->text();
            root.findChild<QPushButton*>(u"okButton"_s)->click();
        });
        act();
        EXPECT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
        return said;
    }
    void clickMore()
    {
        const QPoint place = more()->mapTo(window.get(), more()->rect().center());
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
    }

    const QString tooLong = u"Подытог не выполнен. "_s + u"Связь с реестром прервалась. "_s.repeated(20).trimmed();
};

TEST_F(StatusLineTest, shortMessage_needsNoButton)
{
    openWindow();
    window->statusLine().showWarning(u"Подытог не выполнен."_s);
    EXPECT_FALSE(more()->isVisible());
    window->statusLine().dropNews();
    EXPECT_FALSE(more()->isVisible());
}

TEST_F(StatusLineTest, messageThatIsCut_isWholeBehindTheButtonAndStaysUntilTheNextKey)
{
    openWindow();
    window->statusLine().showWarning(tooLong);
    ASSERT_TRUE(more()->isVisible());
    EXPECT_EQ(readAfter([this] { clickMore(); }), tooLong);
    press(Qt::Key_Up);
    EXPECT_FALSE(more()->isVisible());
    EXPECT_TRUE(message()->text().isEmpty());
}

TEST_F(StatusLineTest, messageThatIsCut_isReadByItsKeyToo)
{
    openWindow();
    window->statusLine().showWarning(tooLong);
    EXPECT_EQ(readAfter([this] {
                  QTest::keyPress(window->windowHandle(), Qt::Key_Control, Qt::ControlModifier);
                  QTest::keyClick(window->windowHandle(), Qt::Key_F12, Qt::ControlModifier);
              }),
              tooLong);
    EXPECT_FALSE(till->document());
}

TEST_F(StatusLineTest, functionKeyWithTheButtonsShortcut_winsAndTheMessageHasItsButtonOnly)
{
    config.set(u"FunctionKey.newReceiptKey:key"_s, u"Ctrl+F12"_s);
    openWindow();
    window->statusLine().showWarning(tooLong);
    ASSERT_TRUE(more()->isVisible());
    EXPECT_EQ(more()->toolTip(), QString());
    EXPECT_EQ(readAfter([this] { clickMore(); }), tooLong);
    QTest::keyClick(window->windowHandle(), Qt::Key_F12, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); }));
    EXPECT_FALSE(window->statusLine().isWarningShown()) << "the cashier goes on";
}

TEST_F(StatusLineTest, windowMadeNarrower_theButtonAppears)
{
    openWindow();
    window->resize(1900, 600);
    window->statusLine().showMessage(u"Модуль не подключён. "_s.repeated(13).trimmed());
    ASSERT_FALSE(more()->isVisible());
    window->resize(1024, 600);
    EXPECT_TRUE(QTest::qWaitFor([this] { return more()->isVisible(); }));
}

TEST_F(StatusLineTest, permanentMessageWithDetails_showsThemBehindTheButton)
{
    openWindow();
    window->statusLine().showMessage(u"«Рецепт» не работает: нет модуля."_s, u"Журнал в папке /var/log"_s);
    ASSERT_TRUE(more()->isVisible());
    EXPECT_EQ(readAfter([this] { clickMore(); }), u"«Рецепт» не работает: нет модуля.\nЖурнал в папке /var/log"_s);
    window->statusLine().showDone(u"Чек закрыт"_s);
    EXPECT_FALSE(more()->isVisible());
    window->statusLine().dropNews();
    EXPECT_TRUE(more()->isVisible());
}

TEST_F(StatusLineTest, buttonAppears_theLineKeepsItsHeight)
{
    for (const bool touch : {false, true}) {
        config.set(u"GUI:touchMode"_s, touch ? u"true"_s : u"false"_s);
        applyRegisterStyle(*qApp, {1024, 600});
        openWindow();
        window->statusLine().showMessage({});
        QApplication::processEvents();
        const int height = window->statusLine().height();
        window->statusLine().showMessage(tooLong);
        QApplication::processEvents();
        ASSERT_TRUE(more()->isVisible());
        EXPECT_EQ(window->statusLine().height(), height) << (touch ? "touch" : "mouse");
        EXPECT_GE(more()->height(), touch ? 44 : 24);
        EXPECT_TRUE(window->statusLine().rect().contains(more()->geometry()));
    }
    qApp->setStyleSheet({});
}

TEST_F(StatusLineTest, directionMarks_areNotShown)
{
    openWindow();
    window->statusLine().showWarning(u"Отказ \u202eабв"_s);
    EXPECT_EQ(message()->text(), u"Отказ абв"_s);
}

TEST_F(StatusLineTest, standingWarning_isShownOnAmberBeforeTheRestAndComesBackAfterNews)
{
    openWindow();
    StatusLine& line = window->statusLine();
    line.showMessage(u"Модуль не подключён"_s);
    line.showStanding({u"Не решено: 5"_s});
    EXPECT_EQ(message()->text(), u"Не решено: 5\nМодуль не подключён"_s);
    EXPECT_EQ(message()->property("textRole").toString(), u"waiting"_s);
    EXPECT_FALSE(line.isWarningShown()) << "a key does not remove it";

    line.showWarning(u"Подытог не выполнен."_s);
    EXPECT_EQ(message()->text(), u"Подытог не выполнен."_s);
    press(Qt::Key_Up);
    EXPECT_EQ(message()->text(), u"Не решено: 5\nМодуль не подключён"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(message()->text(), u"Не решено: 5\nМодуль не подключён"_s);

    line.showStanding({});
    EXPECT_EQ(message()->text(), u"Модуль не подключён"_s);
    EXPECT_EQ(message()->property("textRole").toString(), u"hint"_s);
}
