// SPDX-License-Identifier: MIT
// The window while it is locked: what is below the lock, what is shown meanwhile, and closing.
#include "dialog.h"
#include "inputblocker.h"
#include "lockstate.h"
#include "registeraction.h"
#include "terminaldouble.h"
#include "windowfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class LockedWindow : public WindowFixture
{
protected:
    void typeCode(const QString& code)
    {
        auto* input = widget<QLineEdit>("unlockLineEdit");
        QTest::keyClicks(input, code);
        QTest::keyClick(input, Qt::Key_Return);
    }
    /// Has a plug-in's timer show a message.
    void showLater(const QString& text)
    {
        QTimer::singleShot(0, window.get(), [this, text] {
            Dialog::create()->showMessage({tr::undefined, text}, Dialog::Notice, 0, 0);
            ++messagesClosed;
        });
    }
    /// The text of the message on the screen; empty: there is none.
    QString shownMessage() const
    {
        const auto* label = widget<QLabel>("messageLabel");
        return label && label->isVisible() ? label->text() : QString();
    }
    /// Opens the goods selection and does `act` in it.
    void inGoodsSelection(const std::function<void()>& act)
    {
        cashier.when([] { return Cashier::isOnTop(u"goodsSelectionForm"_s); }, act);
        press(Qt::Key_F3);
    }
    /// Does `act` as soon as a message waits below the lock, or is shown.
    void onMessage(const std::function<void()>& act)
    {
        cashier.when([] { return Cashier::isOnTop(u"messageForm"_s); }, act);
    }
    /// Does `act` as soon as this message is seen.
    void onSeenMessage(const QString& text, const std::function<void()>& act)
    {
        cashier.when([this, text] { return shownMessage() == text; }, act);
    }
    bool isDone(int closed)
    {
        return QTest::qWaitFor([this, closed] { return cashier.isDone() && messagesClosed == closed; });
    }
    /// What the lock looks like.
    QImage picture() const { return window->grab().toImage(); }

    int messagesClosed = 0;
};

TEST_F(LockedWindow, withoutACode_anyKeyUnlocksAndDoesNothingElse)
{
    openWindow();
    window->lock();
    EXPECT_TRUE(isSeen("lockScreen"));
    EXPECT_FALSE(isSeen("salesScreen"));
    EXPECT_EQ(widget<QWidget>("lockScreen")->size(), window->size());
    press(Qt::Key_F2);
    EXPECT_FALSE(isSeen("lockScreen"));
    EXPECT_TRUE(isSeen("salesScreen"));
    EXPECT_FALSE(controller.object.isBusy()) << "the key only unlocks";
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(LockedWindow, withACode_onlyTheCodeUnlocks)
{
    openWindow(u"2468"_s);
    window->lock();
    const auto* input = widget<QLineEdit>("unlockLineEdit");
    EXPECT_EQ(QApplication::focusWidget(), input);
    EXPECT_EQ(input->echoMode(), QLineEdit::Password);
    typeCode(u"1111"_s);
    EXPECT_TRUE(isSeen("lockScreen"));
    EXPECT_TRUE(input->text().isEmpty());
    QTest::mouseClick(widget<QWidget>("lockScreen"), Qt::LeftButton, {}, {5, 5});
    press(Qt::Key_Escape);
    press(Qt::Key_F2);
    EXPECT_TRUE(isSeen("lockScreen"));
    EXPECT_FALSE(controller.object.isBusy());
    QTest::keyClicks(QApplication::focusWidget(), u"2468"_s);
    QTest::mouseClick(widget<QPushButton>("unlockButton"), Qt::LeftButton);
    EXPECT_FALSE(isSeen("lockScreen"));
}

TEST_F(LockedWindow, formOpen_isHiddenAndComesBackAsItWas)
{
    openWindow();
    inGoodsSelection([this] {
        auto* filter = widget<QLineEdit>("filterLineEdit");
        auto* packs = widget<QLineEdit>("quantityLineEdit");
        auto* table = widget<QTableView>("goodsTable");
        filter->setText(u"а"_s);
        table->setCurrentIndex(table->model()->index(2, 0));
        packs->setText(u"3"_s);
        packs->setFocus();

        window->lock();
        EXPECT_TRUE(isSeen("lockScreen"));
        EXPECT_FALSE(table->isVisible());
        EXPECT_TRUE(gui.object.topForm()) << "the command goes on waiting for its answer";
        press(Qt::Key_Space);
        EXPECT_TRUE(table->isVisible());
        EXPECT_EQ(table->currentIndex().row(), 2);
        EXPECT_EQ(filter->text(), u"а"_s);
        EXPECT_EQ(packs->text(), u"3"_s);
        EXPECT_EQ(QApplication::focusWidget(), packs);
        press(Qt::Key_Escape);
    });
    ASSERT_TRUE(isDone(0));
    ASSERT_TRUE(becomesIdle());
}

TEST_F(LockedWindow, messageOfATimer_waitsUntilUnlocked)
{
    openWindow(u"2468"_s);
    window->lock();
    const QImage locked = picture();
    onMessage([&] {
        EXPECT_EQ(widget<QWidget>("messageForm"), nullptr) << "its time to be read has not begun";
        EXPECT_EQ(picture(), locked);
        EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("unlockLineEdit"));
        typeCode(u"2468"_s);
    });
    onSeenMessage(u"Пациент Берёзкин"_s, [this] {
        EXPECT_EQ(QApplication::focusWidget(), widget<QPushButton>("okButton"));
        press(Qt::Key_Return);
    });
    showLater(u"Пациент Берёзкин"_s);
    ASSERT_TRUE(isDone(1));
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(LockedWindow, messageOverAForm_theFormHasItsFocusAfterwards)
{
    openWindow();
    const QWidget* focus = nullptr;
    inGoodsSelection([&] {
        focus = QApplication::focusWidget();
        window->lock();
        onMessage([this] { press(Qt::Key_Space); });
        onSeenMessage(u"x"_s, [this] { press(Qt::Key_Return); });
        cashier.when([this] { return messagesClosed == 1; },
                     [&] {
                         EXPECT_EQ(QApplication::focusWidget(), focus);
                         press(Qt::Key_Escape);
                     });
        showLater(u"x"_s);
    });
    ASSERT_TRUE(isDone(1));
    ASSERT_TRUE(becomesIdle());
    EXPECT_NE(focus, nullptr);
}

TEST_F(LockedWindow, twoMessages_areBothShownAfterwards)
{
    openWindow();
    window->lock();
    QSharedPointer<BasicForm> first;
    onMessage([&] {
        first = gui.object.topForm();
        showLater(u"second"_s);
    });
    cashier.when([&] { return gui.object.topForm() != first; }, [this] { press(Qt::Key_Space); });
    onSeenMessage(u"second"_s, [this] { press(Qt::Key_Return); });
    onSeenMessage(u"first"_s, [this] { press(Qt::Key_Return); });
    showLater(u"first"_s);
    EXPECT_TRUE(isDone(2));
}

TEST_F(LockedWindow, longWorkBegun_staysBelow)
{
    openWindow(u"2468"_s);
    window->lock();
    const QImage locked = picture();
    begin("Обращение к сервису");
    EXPECT_EQ(picture(), locked);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("unlockLineEdit"));
    typeCode(u"2468"_s);
    EXPECT_TRUE(isSeen("busyScreen"));
    end();
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(LockedWindow, lockedDuringLongWorkThatEnds_theSearchHasTheFocusAfterwards)
{
    openWindow();
    begin("x");
    window->lock();
    EXPECT_FALSE(isSeen("busyScreen"));
    end();
    press(Qt::Key_Space);
    EXPECT_FALSE(isSeen("busyScreen"));
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(LockedWindow, popupOpen_isClosed)
{
    openWindow();
    QMenu menu;
    menu.addAction(u"Пациент Берёзкин"_s);
    menu.popup(window->geometry().center());
    ASSERT_TRUE(menu.isVisible());
    window->lock();
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(LockedWindow, warningOfTheStatusLine_isStillThereAfterTheCodeWasTyped)
{
    openWindow(u"2468"_s);
    window->statusLine().showWarning(u"Чек № 1 восстановлен"_s);
    window->lock();
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_4, Qt::Key_6, Qt::Key_8, Qt::Key_Return}) {
        press(key);
    }
    ASSERT_FALSE(isSeen("lockScreen"));
    EXPECT_EQ(widget<QLabel>("statusMessageLabel")->text(), u"Чек № 1 восстановлен"_s);
}

TEST_F(LockedWindow, closedByTheCashier_asksForTheCodeFirst)
{
    openWindow(u"2468"_s);
    window->lock();
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(widget<QLabel>("lockHintLabel")->text(),
              u"Касса заблокирована. Введите код кассира, затем закройте окно."_s);
    typeCode(u"2468"_s);
    EXPECT_TRUE(window->close());
}

TEST_F(LockedWindow, closedWithoutACode_cancelsTheFormsBelowAndCloses)
{
    openWindow();
    inGoodsSelection([this] {
        window->lock();
        window->close();
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_FALSE(controller.object.isBusy());
}

TEST_F(LockedWindow, shutDown_closesAllTheSameAndEveryFormIsCancelled)
{
    openWindow(u"2468"_s);
    inGoodsSelection([this] {
        window->lock();
        onMessage([this] { window->shutDown(); });
        showLater(u"x"_s);
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_EQ(messagesClosed, 1);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_FALSE(gui.object.topForm());
    EXPECT_TRUE(LockState(folder.path()).isLocked());
}

TEST_F(LockedWindow, formsCancelledWhileAMessageWaits_itEndsUnseen)
{
    openWindow(u"2468"_s);
    window->lock();
    onMessage([this] { gui.object.cancelForms(); });
    showLater(u"x"_s);
    EXPECT_TRUE(isDone(1));
    EXPECT_TRUE(isSeen("lockScreen"));
}

TEST_F(LockedWindow, restarted_comesBackLockedAndNothingIsSeen)
{
    till->add(article(amoxidar));
    LockState(folder.path()).lock();
    openWindow(u"2468"_s);
    EXPECT_TRUE(isSeen("lockScreen"));
    EXPECT_FALSE(isSeen("salesScreen"));
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("unlockLineEdit"));
    typeCode(u"2468"_s);
    EXPECT_TRUE(isSeen("salesScreen"));
    EXPECT_EQ(widget<QWidget>("salesScreen")->size().width(), window->width());
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
    EXPECT_FALSE(LockState(folder.path()).isLocked());
}

TEST_F(LockedWindow, lockedDuringARequest_isLockedAtOnceAndInputIsThrownAwayUntilItsEnd)
{
    openWindow();
    {
        const InputBlocker request;
        window->lock();
        EXPECT_TRUE(isSeen("lockScreen"));
        press(Qt::Key_Space);
        EXPECT_TRUE(isSeen("lockScreen"));
    }
    press(Qt::Key_Space);
    EXPECT_FALSE(isSeen("lockScreen"));
}

/// A sale over 12,40 at its payment, with a terminal.
class LockedWhileATerminalWaits : public LockedWindow
{
protected:
    LockedWhileATerminalWaits()
    {
        openWindow(u"2468"_s);
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
    }
    /// The lock comes while the terminal waits for the customer.
    void lockMeanwhile(const CardAnswer& answer)
    {
        terminal->onMove = [this, answer](const auto&, const auto& move) {
            window->lock();
            QCoreApplication::processEvents();
            EXPECT_TRUE(isSeen("lockScreen"));
            move();
            return answer;
        };
    }
    EContext::Result payByCard()
    {
        control::Action action(registeraction::pay);
        action.insert(u"method"_s, u"card"_s);
        return controller.object.execute(action);
    }
    void expectPaidOnce() const
    {
        const auto sale = till->archive().find(1);
        ASSERT_TRUE(sale);
        EXPECT_EQ(sale->ending().payments, QList<Payment>{Payment::card(Kopecks{1240})});
        EXPECT_EQ(terminal->taken(), 1240);
        EXPECT_FALSE(till->document());
    }

    ConnectedTerminal terminal;
};

TEST_F(LockedWhileATerminalWaits, approved_saleIsClosedBelowTheLock)
{
    lockMeanwhile(TerminalDouble::approved());
    EXPECT_EQ(payByCard(), EContext::GoOn);
    expectPaidOnce();
    EXPECT_TRUE(isSeen("lockScreen"));
    EXPECT_FALSE(isSeen("busyScreen"));
    typeCode(u"2468"_s);
    EXPECT_TRUE(isSeen("salesScreen"));
}

TEST_F(LockedWhileATerminalWaits, answerLost_questionWaitsBelowTheLock)
{
    lockMeanwhile(CardAnswer::unknown());
    terminal->onFind = [](const auto&) { return CardAnswer::unknown(); };
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        EXPECT_FALSE(root.isVisible()) << "below the lock";
        EXPECT_TRUE(isSeen("lockScreen"));
        typeCode(u"2468"_s);
    });
    cashier.when([this] { return isSeen("yesButton"); },
                 [this] { QTest::mouseClick(widget<QPushButton>("yesButton"), Qt::LeftButton); });
    onMessage([this] { QTest::mouseClick(widget<QPushButton>("okButton"), Qt::LeftButton); });
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
    expectPaidOnce();
}
