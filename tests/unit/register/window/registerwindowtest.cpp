// SPDX-License-Identifier: MIT
#include "registerwindow.h"
#include "actionhost.h"
#include "dialog.h"
#include "inputblocker.h"
#include "windowfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

class WindowTest : public WindowFixture
{
protected:
    WindowTest()
    {
        config.set(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey,pluginKey"_s);
        config.set(u"FunctionKey.pluginKey:text"_s, u"Скидка"_s);
        config.set(u"FunctionKey.pluginKey:key"_s, u"F5"_s);
        config.set(u"FunctionKey.pluginKey:action"_s, u"94"_s);
        config.set(u"FunctionKey.pluginKey:arguments"_s, u"status=active"_s);
    }
};

TEST_F(WindowTest, barcodeTypedAndReturnKey_addsTheGoods)
{
    openWindow();
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), u"Чек не открыт"_s);
    QTest::keyClicks(QApplication::focusWidget(), amoxidar);
    press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), u"Чек № 1"_s);
    EXPECT_EQ(widget<QLabel>("totalLabel")->text(), u"12,40"_s);
    EXPECT_EQ(widget<QLabel>("totalCaptionLabel")->text(), u"ИТОГО"_s);
    EXPECT_EQ(widget<QTableView>("receiptTable")->model()->rowCount(), 1);
    EXPECT_TRUE(widget<QLineEdit>("searchLineEdit")->text().isEmpty());
}

TEST_F(WindowTest, returnOpen_saysWhatToDoNextAndTheSumToReturn)
{
    openWindow();
    till->add(article(amoxidar));
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    EXPECT_EQ(widget<QLineEdit>("searchLineEdit")->placeholderText(), u"Поиск товара: название, МНН или штрихкод"_s);
    ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    EXPECT_EQ(widget<QLabel>("totalCaptionLabel")->text(), u"К возврату"_s);
    EXPECT_EQ(widget<QLabel>("totalLabel")->text(), u"12,40"_s);
    EXPECT_EQ(widget<QLabel>("totalLabel")->accessibleName(), u"К возврату"_s);
    const auto* search = widget<QLineEdit>("searchLineEdit");
    EXPECT_EQ(search->placeholderText(), u"Проверьте позиции возврата, затем выплатите деньги"_s);
    EXPECT_EQ(search->accessibleName(), search->placeholderText());
    ASSERT_TRUE(till->cancel());
    EXPECT_EQ(widget<QLabel>("totalCaptionLabel")->text(), u"ИТОГО"_s);
    EXPECT_EQ(search->placeholderText(), u"Поиск товара: название, МНН или штрихкод"_s);
}

TEST_F(WindowTest, goodsOfAFormerPositionScanned_itIsRaisedAndCurrent)
{
    openWindow();
    till->add(article(amoxidar));
    till->add(article(u"2990000000026"_s));
    auto* table = widget<QTableView>("receiptTable");
    EXPECT_EQ(table->currentIndex().row(), 1);
    scan(amoxidar);
    ASSERT_TRUE(QTest::qWaitFor([this] { return till->document()->position(1)->getQuantity() == 2.0; }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(table->currentIndex().row(), 0) << "F4 is for what was scanned last";
}

TEST_F(WindowTest, returnKeyInTheEmptySearch_doesNothing)
{
    openWindow();
    press(Qt::Key_Return);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_FALSE(till->document());
}

TEST_F(WindowTest, upAndDown_moveTheCurrentPosition)
{
    openWindow();
    till->add(article(amoxidar));
    till->add(article(amoxidar));
    auto* table = widget<QTableView>("receiptTable");
    EXPECT_EQ(table->currentIndex().row(), 1) << "the newest";
    press(Qt::Key_Up);
    EXPECT_EQ(table->currentIndex().row(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(table->currentIndex().row(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(table->currentIndex().row(), 1);
}

TEST_F(WindowTest, positionChangedInPlace_theCurrentRowStays)
{
    openWindow();
    till->add(article(amoxidar));
    till->add(article(amoxidar));
    press(Qt::Key_Up);
    till->setPacks(2, 9);
    EXPECT_EQ(widget<QTableView>("receiptTable")->currentIndex().row(), 0);
}

TEST_F(WindowTest, positionRemoved_theNextOneIsCurrentOrTheNewLast)
{
    openWindow();
    for (int i = 0; i < 4; ++i) {
        till->add(article(amoxidar));
    }
    const auto* table = widget<QTableView>("receiptTable");
    press(Qt::Key_Up);
    ASSERT_EQ(table->currentIndex().row(), 2);
    till->remove(3);
    EXPECT_EQ(table->currentIndex().row(), 2) << "№ 4 took its place";
    till->remove(4);
    EXPECT_EQ(table->currentIndex().row(), 1) << "the new last";
}

TEST_F(WindowTest, longDocument_theCurrentPositionIsFullyVisible)
{
    openWindow();
    const auto* table = widget<QTableView>("receiptTable");
    const auto expectInSight = [table](const char* when) {
        QApplication::processEvents();
        const QRect row = table->visualRect(table->currentIndex());
        EXPECT_GE(row.top(), 0) << when;
        EXPECT_LT(row.bottom(), table->viewport()->height()) << when;
    };
    for (int i = 0; i < 30; ++i) {
        till->add(article(amoxidar));
        expectInSight("added");
    }
    EXPECT_EQ(table->currentIndex().row(), 29);
    till->setPhase(Till::Phase::Payment);
    ASSERT_TRUE(isSeen("paymentPanel"));
    expectInSight("payment");
    window->resize(1024, 700);
    window->resize(1024, 600);
    expectInSight("resized");
    till->setPhase(Till::Phase::Positions);
    till->remove(30);
    expectInSight("removed");
}

TEST_F(WindowTest, documentVoided_theStatusLineShowsTheAmountToPayOut)
{
    openWindow();
    const auto* status = widget<QLabel>("statusMessageLabel");
    till->add(article(amoxidar));
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
    ASSERT_TRUE(till->voidDocument(till->archive().find(1)));
    EXPECT_EQ(status->text(), u"Чек № 1 аннулирован. Верните покупателю 12,40"_s);
    till->add(article(amoxidar));
    ASSERT_TRUE(till->suspend());
    ASSERT_TRUE(till->voidDocument(till->archive().find(2)));
    EXPECT_EQ(status->text(), u"Отложенный чек № 2 аннулирован"_s);
}

TEST_F(WindowTest, functionKey_showsItsShortcutAndStartsItsAction)
{
    openWindow();
    EXPECT_EQ(widget<QPushButton>("newReceiptKey")->text(), u"F2\nНовый чек"_s);
    press(Qt::Key_F2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); }));
}

TEST_F(WindowTest, touchMode_functionKeysAndTheStatusLineNameNoShortcut)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    config.set(u"FunctionKey.pluginKey:key"_s, u"F2"_s);
    openWindow();
    EXPECT_EQ(widget<QPushButton>("newReceiptKey")->text(), u"Новый чек"_s);
    EXPECT_EQ(widget<QPushButton>("statusMoreButton")->toolTip(), QString());
    EXPECT_EQ(widget<QLabel>("statusMessageLabel")->text(), QString()) << "each of two keys with F2 has its button";
    press(Qt::Key_F2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); })) << "a keyboard may be connected";
}

TEST_F(WindowTest, functionKeyClicked_startsItsActionWithArgumentsAndPosition)
{
    openWindow();
    till->add(article(amoxidar));
    QVariantMap given;
    servePluginCommand(given);
    QTest::mouseClick(widget<QPushButton>("pluginKey"), Qt::LeftButton);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(given, (QVariantMap{{u"status"_s, u"active"_s}, {u"positionNumber"_s, 1}}));
}

TEST_F(WindowTest, functionKeyWithoutHandler_showsWhy)
{
    openWindow();
    QString said;
    const auto pressAndRead = [&] {
        cashier.onForm(u"messageForm"_s, [&said](QWidget& root) {
            said = root.findChild<QLabel*>(u"messageLabel"_s)->text();
            root.findChild<QPushButton*>(u"okButton"_s)->click();
        });
        press(Qt::Key_F5);
        ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
        ASSERT_TRUE(becomesIdle());
    };
    pressAndRead();
    EXPECT_TRUE(said.startsWith(u"«Скидка» сейчас недоступно: нет подключённого модуля"_s)) << qPrintable(said);
    till->open();
    pressAndRead();
    EXPECT_TRUE(said.startsWith(u"«Скидка» сейчас недоступно: нет подключённого модуля"_s)) << qPrintable(said);
}

TEST_F(WindowTest, twoKeysWithOneShortcut_theFirstWorksAndTheStatusLineNamesBoth)
{
    config.set(u"FunctionKey.pluginKey:key"_s, u"F2"_s);
    openWindow();
    const auto* status = widget<QLabel>("statusMessageLabel");
    const QString conflict = u"F2 назначена двум кнопкам, работает «Новый чек». Для «Скидка» исправьте в настройках "
                             "FunctionKey.pluginKey:key"_s;
    EXPECT_EQ(status->text(), conflict);
    window->statusLine().showMessage(u"Модуль не подключён"_s);
    EXPECT_EQ(status->text(), u"Модуль не подключён\n"_s + conflict);
    EXPECT_EQ(widget<QPushButton>("pluginKey")->text(), u"Скидка"_s) << "without the shortcut that it does not have";
    press(Qt::Key_F2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); }));
}

TEST_F(WindowTest, formShown_fillsTheWindowAndTheFocusReturnsAfterwards)
{
    openWindow();
    bool filled = false;
    bool groundHidden = false;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        filled = root.window() == window.get() && root.size() == window->size();
        groundHidden = !isSeen("salesScreen");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    press(Qt::Key_F3);
    ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(filled);
    EXPECT_TRUE(groundHidden);
    EXPECT_TRUE(isSeen("salesScreen"));
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(WindowTest, dialogShown_theScreenBelowIsVisibleButTakesNoInput)
{
    openWindow();
    bool seen = false;
    bool usable = true;
    cashier.onForm(u"messageForm"_s, [&](QWidget& root) {
        seen = isSeen("salesScreen");
        usable = widget<QWidget>("salesScreen")->isEnabled();
        press(Qt::Key_F2); // the shortcut of a key below
        root.findChild<QPushButton*>(u"okButton"_s)->click();
    });
    Dialog::create()->showMessage({tr::undefined, u"x"_s}, Dialog::Notice, 0, 0);
    EXPECT_TRUE(seen);
    EXPECT_FALSE(usable);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_FALSE(till->document());
    EXPECT_TRUE(widget<QWidget>("salesScreen")->isEnabled());
}

TEST_F(WindowTest, longWork_coversTheWindowUntilTheOuterOneEnds)
{
    openWindow();
    begin("Обращение к сервису");
    EXPECT_TRUE(isSeen("busyScreen"));
    EXPECT_EQ(widget<QWidget>("busyScreen")->size(), window->size());
    EXPECT_EQ(widget<QLabel>("busyMessageLabel")->text(), u"Обращение к сервису"_s);
    begin("Ещё");
    end();
    EXPECT_TRUE(isSeen("busyScreen"));
    end();
    EXPECT_FALSE(isSeen("busyScreen"));
}

TEST_F(WindowTest, longWork_isAnimated)
{
    openWindow();
    begin("x");
    const QImage first = widget<QWidget>("busyScreen")->grab().toImage();
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget<QWidget>("busyScreen")->grab().toImage() != first; }));
    end();
}

TEST_F(WindowTest, messageDuringLongWork_takesInputAndHidesTheBusyScreenUntilClosed)
{
    openWindow();
    begin("x");
    QString under;
    bool isBusySeen = true;
    cashier.onForm(u"messageForm"_s, [&](QWidget& root) {
        isBusySeen = isSeen("busyScreen");
        auto* button = root.findChild<QPushButton*>(u"okButton"_s);
        if (const QWidget* child = window->childAt(button->mapTo(window.get(), button->rect().center()))) {
            under = child->objectName();
        }
        QTest::mouseClick(button, Qt::LeftButton);
    });
    Dialog::create()->showMessage({tr::undefined, u"x"_s}, Dialog::Error, 0, 0);
    EXPECT_EQ(under, u"okButton"_s);
    EXPECT_FALSE(isBusySeen);
    EXPECT_TRUE(isSeen("busyScreen"));
    end();
    EXPECT_FALSE(isSeen("busyScreen"));
}

TEST_F(WindowTest, longWorkEndedBelowAMessage_theBusyScreenDoesNotComeBack)
{
    openWindow();
    begin("x");
    cashier.onForm(u"messageForm"_s, [&](QWidget& root) {
        end();
        EXPECT_FALSE(isSeen("busyScreen"));
        root.findChild<QPushButton*>(u"okButton"_s)->click();
    });
    Dialog::create()->showMessage({tr::undefined, u"x"_s}, Dialog::Error, 0, 0);
    EXPECT_FALSE(isSeen("busyScreen"));
}

TEST_F(WindowTest, longWorkBegunOverAForm_coversTheForm)
{
    openWindow();
    bool isBusySeen = false;
    cashier.onForm(u"messageForm"_s, [&](QWidget& root) {
        begin("x");
        cashier.onForm(u"messageForm"_s, [&](QWidget& inner) {
            EXPECT_FALSE(isSeen("busyScreen"));
            inner.findChild<QPushButton*>(u"okButton"_s)->click();
        });
        Dialog::create()->showMessage({tr::undefined, u"y"_s}, Dialog::Error, 0, 0);
        isBusySeen = isSeen("busyScreen");
        end();
        root.findChild<QPushButton*>(u"okButton"_s)->click();
    });
    Dialog::create()->showMessage({tr::undefined, u"x"_s}, Dialog::Error, 0, 0);
    EXPECT_TRUE(isBusySeen);
}

TEST_F(WindowTest, closedWithoutForms_closesImmediately)
{
    openWindow();
    EXPECT_TRUE(window->close());
}

TEST_F(WindowTest, closedWhileACommandShowsFormAfterForm_everyFormIsCancelledFirst)
{
    openWindow();
    int asked = 0;
    controller.object.host().setHandler(control::EActionType(5000), [&](control::Action&) {
        while (asked < 3) { // each cancelled form brings back the one before it
            ++asked;
            TextInputParams params;
            if (!Dialog::create()->showTextInput(params).canceled()) {
                ADD_FAILURE() << "not cancelled";
            }
        }
        return EContext::Stop;
    });
    cashier.onForm(u"textInputForm"_s, [this](QWidget&) { EXPECT_FALSE(window->close()); });
    controller.object.enqueue(control::Action(control::EActionType(5000)), false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(controller.object.isBusy());
}

TEST_F(WindowTest, closedDuringARequest_waitsForItsEnd)
{
    openWindow();
    {
        const InputBlocker request;
        window->close();
        EXPECT_TRUE(window->isVisible());
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
}

TEST_F(WindowTest, nameOfTenThousandCharacters_doesNotWidenTheWindow)
{
    openWindow();
    SelectedGoods goods = article(amoxidar);
    goods.goods.name = QString(10'000, QChar(0x416));
    till->add(goods);
    QApplication::processEvents();
    EXPECT_EQ(window->size(), QSize(1024, 600));
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
}

TEST_F(WindowTest, functionKeyOrTableClicked_theFocusStaysInTheSearch)
{
    openWindow();
    QTest::mouseClick(widget<QPushButton>("newReceiptKey"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !till->document().isNull(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
    till->add(article(amoxidar));
    QTest::mouseClick(widget<QTableView>("receiptTable")->viewport(), Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(WindowTest, typedWhileAFunctionKeyHasTheFocus_goesToTheSearch)
{
    openWindow();
    widget<QPushButton>("goodsKey")->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(QApplication::focusWidget(), widget<QPushButton>("goodsKey"));
    for (const char digit : QByteArray("29900")) {
        QTest::keyClick(QApplication::focusWidget(), digit);
    }
    EXPECT_EQ(widget<QLineEdit>("searchLineEdit")->text(), u"29900"_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(WindowTest, cutOffNameTappedInTouchMode_isShownWhole)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    SelectedGoods goods = article(amoxidar);
    goods.goods.name = u"Ацетилсалициловая кислота + магния гидроксид, таблетки "_s.repeated(3);
    till->add(goods);
    QApplication::processEvents();
    const auto* table = widget<QTableView>("receiptTable");
    const QPoint place = table->visualRect(table->model()->index(0, 1)).center();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, table->viewport()->mapTo(window.get(), place));
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().contains(u"магния гидроксид, таблетки Ацетил"_s); }))
        << qPrintable(QToolTip::text());
    QToolTip::hideText();
}
