// SPDX-License-Identifier: MIT
// Subtotal and payment in the register's window.
#include "actionhost.h"
#include "dialogdouble.h"
#include "finally.h"
#include "registeraction.h"
#include "registerstyle.h"
#include "terminaldouble.h"
#include "windowfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

class PaymentTest : public WindowFixture
{
protected:
    PaymentTest() { till->add(article(amoxidar)); } // 12,40

    void openWindow()
    {
        WindowFixture::openWindow();
        press(Qt::Key_F12);
        ASSERT_TRUE(becomesIdle());
        ASSERT_EQ(till->phase(), Till::Phase::Payment);
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1StringView(text)); }
    void pressAndFinish(Qt::Key key)
    {
        press(key);
        ASSERT_TRUE(becomesIdle());
    }
    QString text(const char* label) const { return widget<QLabel>(label)->text(); }
    QString role(const char* label) const { return widget<QLabel>(label)->property("textRole").toString(); }
    QLineEdit* received() const { return widget<QLineEdit>("receivedLineEdit"); }
    /// Sells what is on the document, and opens the return of that sale.
    void openReturn()
    {
        ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
        ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    }
};

TEST_F(PaymentTest, subtotal_showsTheSumAndWhatComesNext)
{
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    EXPECT_EQ(till->phase(), Till::Phase::Subtotal);
    EXPECT_EQ(text("paymentCaptionLabel"), u"ПОДЫТОГ"_s);
    EXPECT_EQ(text("paymentSumLabel"), u"12,40"_s);
    EXPECT_EQ(widget<QPushButton>("payButton")->text(), u"К оплате"_s);
    EXPECT_EQ(text("paymentHintLabel"), u"F12 или Ввод — дальше, Esc — назад к позициям."_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QPushButton>("payButton"));
    EXPECT_FALSE(isSeen("searchLineEdit"));
    EXPECT_FALSE(isSeen("receivedLineEdit"));
    EXPECT_FALSE(isSeen("changeLabel"));
    EXPECT_EQ(controller.object.context(), EContext::OpenDocument);
}

class SubtotalKey : public PaymentTest, public ::testing::WithParamInterface<Qt::Key>
{
};

TEST_P(SubtotalKey, atTheSubtotal_leadsToThePayment)
{
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    pressAndFinish(GetParam());
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(QApplication::focusWidget(), received());
}

INSTANTIATE_TEST_SUITE_P(, SubtotalKey, ::testing::Values(Qt::Key_F12, Qt::Key_Return), [](const auto& instance) {
    return std::string(instance.param == Qt::Key_F12 ? "paymentKey" : "return");
});

TEST_F(PaymentTest, withoutAPaymentKey_theHintNamesNone)
{
    config.set(u"FunctionKeys:keys"_s, u"subtotalKey"_s);
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    EXPECT_EQ(text("paymentHintLabel"), u"Ввод — дальше, Esc — назад к позициям."_s);
}

TEST_F(PaymentTest, currency_isShownBesideTheSumWhenThereIsOne)
{
    openWindow();
    EXPECT_FALSE(isSeen("paymentCurrencyLabel"));
    EXPECT_FALSE(isSeen("totalCurrencyLabel"));
    config.set(u"Register:currency"_s, u"BYN"_s);
    till->setPhase(Till::Phase::Positions);
    openWindow();
    EXPECT_EQ(text("paymentCurrencyLabel"), u"BYN"_s);
    EXPECT_TRUE(isSeen("paymentCurrencyLabel"));
    EXPECT_EQ(text("changeLabel"), u"Сдача 0,00\u00a0BYN"_s);
    type("12,39");
    EXPECT_EQ(text("changeLabel"), u"Не хватает 0,01\u00a0BYN"_s);
}

TEST_F(PaymentTest, payment_asksForTheMoney)
{
    openWindow();
    EXPECT_EQ(text("paymentCaptionLabel"), u"К ОПЛАТЕ"_s);
    EXPECT_EQ(text("paymentSumLabel"), u"12,40"_s);
    EXPECT_EQ(text("changeLabel"), u"Сдача 0,00"_s);
    EXPECT_EQ(QApplication::focusWidget(), received());
    EXPECT_TRUE(received()->text().isEmpty());
    EXPECT_FALSE(isSeen("searchLineEdit"));
    EXPECT_FALSE(isSeen("paymentKeyboard"));
    EXPECT_EQ(controller.object.context(), EContext::OpenDocument);
}

struct Typed {
    const char* name;
    const char* text;
    const char* change;
    const char* role;
};

class TypedMoney : public PaymentTest, public ::testing::WithParamInterface<Typed>
{
};

TEST_P(TypedMoney, changeIsShownAtOnce)
{
    openWindow();
    type(GetParam().text);
    EXPECT_EQ(text("changeLabel"), QString::fromUtf8(GetParam().change));
    EXPECT_EQ(role("changeLabel"), QLatin1StringView(GetParam().role));
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

INSTANTIATE_TEST_SUITE_P(, TypedMoney,
                         ::testing::Values(Typed{"comma", "20,5", "Сдача 8,10", "value"},
                                           Typed{"point", "20.55", "Сдача 8,15", "value"},
                                           Typed{"exact", "12,40", "Сдача 0,00", "value"},
                                           Typed{"tooLittle", "12,39", "Не хватает 0,01", "waiting"},
                                           Typed{"lettersAreLeftOut", "1a5", "Сдача 2,60", "value"},
                                           Typed{"thirdDecimalIsLeftOut", "13,005", "Сдача 0,60", "value"},
                                           Typed{"tooManyDigits", "123456789", "Не сумма", "error"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(PaymentTest, lettersOnTheKeysOfCommaAndPoint_areTheComma)
{
    openWindow();
    for (const char* typed : {"20ю5", "20б5", "20Ю5", "20Б5"}) {
        received()->clear();
        for (const QChar character : QString::fromUtf8(typed)) {
            QKeyEvent key(QEvent::KeyPress, character.unicode(), Qt::NoModifier, character);
            QCoreApplication::sendEvent(received(), &key);
        }
        EXPECT_EQ(received()->text(), u"20.5"_s) << typed;
        EXPECT_EQ(text("changeLabel"), u"Сдача 8,10"_s) << typed;
        EXPECT_EQ(role("paymentHintLabel"), u"hint"_s) << typed;
    }
}

class RefusedInput : public PaymentTest, public ::testing::WithParamInterface<Typed>
{
};

TEST_P(RefusedInput, isRefusedVisiblyUntilTheNextDigit)
{
    openWindow();
    type(GetParam().text);
    EXPECT_EQ(received()->text(), QLatin1StringView(GetParam().change)) << "what came before";
    EXPECT_EQ(text("paymentHintLabel"), u"Вводите только цифры и запятую, не больше двух цифр после неё."_s);
    EXPECT_EQ(role("paymentHintLabel"), u"error"_s);
    QTest::keyClick(received(), Qt::Key_Backspace);
    EXPECT_EQ(role("paymentHintLabel"), u"hint"_s);
}

INSTANTIATE_TEST_SUITE_P(, RefusedInput,
                         ::testing::Values(Typed{"letter", "15x", "15", ""}, Typed{"minus", "15-", "15", ""},
                                           Typed{"secondComma", "1,5,", "1.5", ""},
                                           Typed{"thirdDecimal", "13,005", "13.00", ""}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(PaymentTest, nothingTypedAndReturn_closesWithTheExactSum)
{
    openWindow();
    const QSharedPointer<Document> document = till->document();
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(document->getState(), Document::State::Closed);
    EXPECT_EQ(document->getReceived(), Kopecks{1240});
}

TEST_F(PaymentTest, paid_changeIsReadUntilTheNextDocument)
{
    openWindow();
    type("16");
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(text("receiptNumberLabel"), u"Чек не открыт"_s);
    EXPECT_EQ(text("statusMessageLabel"), u"Чек № 1 закрыт. Сдача 3,60"_s);
    EXPECT_EQ(role("statusMessageLabel"), u"done"_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
    pressAndFinish(Qt::Key_Return); // one more, in haste
    EXPECT_EQ(text("statusMessageLabel"), u"Чек № 1 закрыт. Сдача 3,60"_s);
    pressAndFinish(Qt::Key_F2);
    EXPECT_TRUE(text("statusMessageLabel").isEmpty());
}

TEST_F(PaymentTest, sumAndChange_growWithTheWindow)
{
    const Finally undressed([] { qApp->setStyleSheet(QString()); });
    openWindow();
    for (const QSize size : {QSize(1920, 1080), QSize(1024, 600)}) { // the last one is the scale of the other tests
        applyRegisterStyle(*qApp, size);
        const std::pair<const char*, int> sizes[] = {
            {"receiptNumberLabel", 4}, {"totalLabel", 16}, {"paymentSumLabel", 16}, {"changeLabel", 8}};
        for (const auto& [label, above] : sizes) {
            widget<QLabel>(label)->ensurePolished();
            EXPECT_EQ(widget<QLabel>(label)->font().pointSize(), registerTextSize(size) + above)
                << label << " at " << size.width();
        }
    }
}

TEST_F(PaymentTest, tooLittlePaid_isShownAndTheDocumentStaysAtItsPayment)
{
    openWindow();
    type("5");
    const DialogDouble dialog;
    pressAndFinish(Qt::Key_Return);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text, u"Получено 5,00, а к оплате 12,40.\nНе хватает 7,40."_s);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(received()->text(), u"5"_s);
    EXPECT_EQ(QApplication::focusWidget(), received());
}

TEST_F(PaymentTest, escape_goesBackToThePositions)
{
    openWindow();
    type("50");
    pressAndFinish(Qt::Key_Escape);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
    EXPECT_FALSE(isSeen("paymentPanel"));
    EXPECT_TRUE(isSeen("totalLabel"));
}

TEST_F(PaymentTest, backTouched_goesBackToThePositions)
{
    openWindow();
    QTest::mouseClick(widget<QPushButton>("backButton"), Qt::LeftButton);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_F(PaymentTest, moneyTyped_isForgottenWithThePayment)
{
    openWindow();
    type("50");
    pressAndFinish(Qt::Key_Return);
    till->add(article(amoxidar));
    pressAndFinish(Qt::Key_F12);
    EXPECT_TRUE(received()->text().isEmpty());
    EXPECT_EQ(text("changeLabel"), u"Сдача 0,00"_s);
}

class ScannedAtPayment : public PaymentTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ScannedAtPayment, isNoMoneyAndClosesNothing)
{
    openWindow();
    type("50");
    const DialogDouble dialog;
    scan(QLatin1StringView(GetParam()));
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(received()->text(), u"50"_s);
    EXPECT_EQ(text("paymentHintLabel"),
              u"Отсканирован штрихкод, он не считается. Чтобы добавить товар, вернитесь к позициям."_s);
    EXPECT_EQ(role("paymentHintLabel"), u"error"_s);
    EXPECT_TRUE(dialog.messages().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ScannedAtPayment, ::testing::Values("2990000000019", "46001234", "010460123456789021abc"),
                         [](const auto& instance) { return "length" + std::to_string(strlen(instance.param)); });

TEST_F(PaymentTest, barcodeFromASlowScanner_closesNothing)
{
    openWindow();
    type("2990000000019");
    const DialogDouble dialog;
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(PaymentTest, scannedAtTheSubtotal_leadsNowhere)
{
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    scan(amoxidar);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_EQ(till->phase(), Till::Phase::Subtotal);
    EXPECT_EQ(role("paymentHintLabel"), u"error"_s);
}

TEST_F(PaymentTest, scannedWithTheFocusOnBack_isRefusedAndLeadsNowhere)
{
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    widget<QPushButton>("backButton")->setFocus(Qt::TabFocusReason);
    scan(amoxidar);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_EQ(till->phase(), Till::Phase::Subtotal);
    EXPECT_EQ(text("paymentHintLabel"),
              u"Отсканирован штрихкод, он не считается. Чтобы добавить товар, вернитесь к позициям."_s);
    EXPECT_EQ(role("paymentHintLabel"), u"error"_s);
}

class ReturnOnBack : public PaymentTest, public ::testing::WithParamInterface<Qt::Key>
{
};

TEST_P(ReturnOnBack, leadsBackToThePositions)
{
    WindowFixture::openWindow();
    pressAndFinish(GetParam());
    ASSERT_NE(till->phase(), Till::Phase::Positions);
    widget<QPushButton>("backButton")->setFocus(Qt::TabFocusReason);
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_TRUE(till->document());
}

INSTANTIATE_TEST_SUITE_P(, ReturnOnBack, ::testing::Values(Qt::Key_F6, Qt::Key_F12), [](const auto& instance) {
    return std::string(instance.param == Qt::Key_F6 ? "atTheSubtotal" : "atThePayment");
});

TEST_F(PaymentTest, returnHeldDown_closesNothing)
{
    openWindow();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QApplication::sendEvent(received(), &repeated);
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

/// At the subtotal of a sale, where two presses are one double press however far apart they are.
class DoublePress : public PaymentTest
{
protected:
    DoublePress() { QApplication::setDoubleClickInterval(longest); }
    ~DoublePress() override { QApplication::setDoubleClickInterval(m_usual); }
    void openSubtotal()
    {
        WindowFixture::openWindow();
        pressAndFinish(Qt::Key_F6);
    }
    void clickAndFinish()
    {
        QTest::mouseClick(widget<QPushButton>("payButton"), Qt::LeftButton);
        ASSERT_TRUE(becomesIdle());
    }
    void expectOpenAtThePayment() const
    {
        ASSERT_TRUE(till->document());
        EXPECT_EQ(till->phase(), Till::Phase::Payment);
    }

private:
    static constexpr int longest = 3'600'000;
    const int m_usual = QApplication::doubleClickInterval();
};

TEST_F(DoublePress, ofReturnAtTheSubtotal_leadsToThePaymentAndClosesNothing)
{
    openSubtotal();
    pressAndFinish(Qt::Key_Return);
    pressAndFinish(Qt::Key_Return);
    expectOpenAtThePayment();
    QApplication::setDoubleClickInterval(0); // the time is over
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
}

TEST_F(DoublePress, ofTheButtonAtTheSubtotal_leadsToThePaymentAndClosesNothing)
{
    openSubtotal();
    clickAndFinish();
    clickAndFinish();
    expectOpenAtThePayment();
    QApplication::setDoubleClickInterval(0);
    clickAndFinish();
    EXPECT_FALSE(till->document());
}

TEST_F(DoublePress, atTheSubtotalOfAReturn_paysNothingOut)
{
    openReturn();
    openSubtotal();
    clickAndFinish();
    clickAndFinish();
    pressAndFinish(Qt::Key_Return);
    expectOpenAtThePayment();
    QApplication::setDoubleClickInterval(0);
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
}

TEST_F(DoublePress, moneyTypedBetween_secondPressCloses)
{
    openSubtotal();
    pressAndFinish(Qt::Key_Return);
    type("20");
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
}

TEST_F(DoublePress, paymentReachedByItsOwnKey_returnCloses)
{
    openSubtotal();
    pressAndFinish(Qt::Key_F12);
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
}

TEST_F(DoublePress, backAtThePositionsBetween_onlyTheLastWayToThePaymentCounts)
{
    openSubtotal();
    pressAndFinish(Qt::Key_Return);
    pressAndFinish(Qt::Key_Escape);
    pressAndFinish(Qt::Key_F12);
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
}

TEST_F(PaymentTest, upAndDown_moveTheCurrentPosition)
{
    till->add(article(amoxidar));
    WindowFixture::openWindow();
    for (const Qt::Key key : {Qt::Key_F6, Qt::Key_F12}) {
        pressAndFinish(key);
        press(Qt::Key_Up);
        EXPECT_EQ(widget<QTableView>("receiptTable")->currentIndex().row(), 0);
        press(Qt::Key_Down);
        EXPECT_EQ(widget<QTableView>("receiptTable")->currentIndex().row(), 1);
    }
}

TEST_F(PaymentTest, typedWhileAFunctionKeyHasTheFocus_goesToTheMoney)
{
    openWindow();
    widget<QPushButton>("goodsKey")->setFocus(Qt::TabFocusReason);
    type("2");
    type("0");
    EXPECT_EQ(received()->text(), u"20"_s);
    EXPECT_EQ(QApplication::focusWidget(), received());
}

TEST_F(PaymentTest, removeKey_removesThePositionAndGoesBackToThem)
{
    till->add(article(amoxidar));
    openWindow();
    pressAndFinish(Qt::Key_F8);
    EXPECT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(PaymentTest, cancelKey_cancelsTheDocumentAfterTheQuestion)
{
    openWindow();
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { root.findChild<QPushButton*>(u"yesButton"_s)->click(); });
    pressAndFinish(Qt::Key_F9);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(text("statusMessageLabel"), u"Чек № 1 отменён"_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QLineEdit>("searchLineEdit"));
}

TEST_F(PaymentTest, cancelKeyAndNo_leavesTheMoneyAsItWasTyped)
{
    openWindow();
    type("50");
    cashier.onForm(u"questionForm"_s, [this](QWidget&) { press(Qt::Key_Return); });
    pressAndFinish(Qt::Key_F9);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(received()->text(), u"50"_s);
    EXPECT_EQ(QApplication::focusWidget(), received());
}

TEST_F(PaymentTest, keysWhileAnActionRuns_doNothing)
{
    openWindow();
    const QSharedPointer<Document> document = till->document();
    controller.object.host().setHandler(control::EActionType(5000), [this](control::Action&) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_F6}) {
            press(key);
        }
        return EContext::GoOn;
    });
    controller.object.enqueue(control::Action(control::EActionType(5000)), false);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(till->document(), document);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(PaymentTest, subtotalOfAReturn_leadsToPayingOut)
{
    openReturn();
    WindowFixture::openWindow();
    pressAndFinish(Qt::Key_F6);
    EXPECT_EQ(widget<QPushButton>("payButton")->text(), u"К выплате"_s);
}

TEST_F(PaymentTest, return_paysOutTheSumWithoutAskingForMoney)
{
    openReturn();
    WindowFixture::openWindow();
    EXPECT_EQ(text("receiptNumberLabel"), u"Возврат № 2 (чек № 1)"_s);
    pressAndFinish(Qt::Key_F12);
    EXPECT_EQ(text("paymentCaptionLabel"), u"К ВОЗВРАТУ"_s);
    EXPECT_EQ(text("paymentSumLabel"), u"12,40"_s);
    EXPECT_FALSE(isSeen("receivedLineEdit"));
    EXPECT_FALSE(isSeen("changeLabel"));
    EXPECT_EQ(QApplication::focusWidget(), widget<QPushButton>("payButton"));
    scan(amoxidar);
    EXPECT_FALSE(controller.object.isBusy()) << "the Return of a scan pays nothing out";
    pressAndFinish(Qt::Key_Return);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(text("statusMessageLabel"), u"Возврат № 2 закрыт. Выдано покупателю 12,40"_s);
}

class PaymentByTouch : public PaymentTest
{
protected:
    PaymentByTouch() { config.set(u"GUI:touchMode"_s, u"true"_s); }
    void touch(const char* name) { QTest::mouseClick(widget<QPushButton>(name), Qt::LeftButton); }
};

TEST_F(PaymentByTouch, document_isSoldWithoutKeys)
{
    WindowFixture::openWindow();
    touch("subtotalKey");
    ASSERT_TRUE(becomesIdle());
    EXPECT_FALSE(isSeen("paymentKeyboard"));
    EXPECT_TRUE(text("paymentHintLabel").isEmpty()) << "there are no keys to name";
    touch("payButton");
    ASSERT_TRUE(becomesIdle());
    for (const char* key : {"key_1", "key_5", "key_,", "key_5"}) {
        touch(key);
    }
    EXPECT_EQ(received()->text(), u"15.5"_s);
    EXPECT_EQ(text("changeLabel"), u"Сдача 3,10"_s);
    touch("payButton");
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(text("statusMessageLabel"), u"Чек № 1 закрыт. Сдача 3,10"_s);
}

TEST_F(PaymentByTouch, keypad_fitsTheSmallestScreenBesidePositions)
{
    openWindow();
    EXPECT_EQ(window->size(), QSize(1024, 600));
    for (const char* name : {"receiptTable", "paymentKeyboard", "payButton", "changeLabel", "functionKeyBar"}) {
        const auto* control = widget<QWidget>(name);
        ASSERT_TRUE(control->isVisible()) << name;
        const QRect room(control->mapTo(window.get(), QPoint()), control->size());
        EXPECT_TRUE(window->rect().contains(room)) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
    }
    EXPECT_GE(widget<QTableView>("receiptTable")->viewport()->height(), 2 * 44);
}

TEST_F(PaymentTest, withoutATerminal_cardIsNotOffered)
{
    openWindow();
    EXPECT_FALSE(isSeen("cardButton"));
    EXPECT_FALSE(text("paymentHintLabel").contains(u"F11"_s));
    pressAndFinish(Qt::Key_F11);
    EXPECT_TRUE(till->document());
}

TEST_F(PaymentTest, cardKeyAlone_paysAllByCard)
{
    ConnectedTerminal terminal;
    openWindow();
    EXPECT_TRUE(isSeen("cardButton"));
    EXPECT_EQ(widget<QPushButton>("cardButton")->text(), u"F11 Картой"_s);
    EXPECT_TRUE(text("paymentHintLabel").contains(u"F11 — остаток картой"_s));
    pressAndFinish(Qt::Key_F11);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(till->archive().find(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{1240})});
}

TEST_F(PaymentTest, touchMode_theCardsButtonNamesNoKey)
{
    ConnectedTerminal terminal;
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    EXPECT_EQ(widget<QPushButton>("cardButton")->text(), u"Картой"_s);
    pressAndFinish(Qt::Key_F11);
    EXPECT_EQ(terminal->taken(), 1240) << "a keyboard may be connected";
}

TEST_F(PaymentTest, touchMode_returnOpen_theSearchFieldNamesNoKey)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    openReturn();
    EXPECT_EQ(widget<QLineEdit>("searchLineEdit")->placeholderText(),
              u"Проверьте позиции возврата, затем выплатите деньги"_s);
}

TEST_F(PaymentTest, cashTypedAndCardKey_paysTheRestByCard)
{
    ConnectedTerminal terminal;
    openWindow();
    type("10");
    pressAndFinish(Qt::Key_F11);
    EXPECT_EQ(terminal->taken(), 240);
    EXPECT_EQ(till->archive().find(1)->getChange(), Kopecks{0});
}

TEST_F(PaymentTest, returnOnTheCardButton_paysByCard)
{
    ConnectedTerminal terminal;
    openWindow();
    widget<QPushButton>("cardButton")->setFocus();
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(terminal->taken(), 1240);
}

TEST_F(PaymentTest, functionKeyWithTheCardsShortcut_winsAndTheCardHasItsButtonOnly)
{
    ConnectedTerminal terminal;
    config.set(u"FunctionKey.cancelReceiptKey:key"_s, u"F11"_s);
    openWindow();
    EXPECT_EQ(widget<QPushButton>("cardButton")->text(), u"Картой"_s);
    EXPECT_FALSE(text("paymentHintLabel").contains(u"F11"_s));
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { root.findChild<QPushButton*>(u"yesButton"_s)->click(); });
    pressAndFinish(Qt::Key_F11);
    EXPECT_EQ(terminal->count("pay"), 0);
    EXPECT_FALSE(till->document()) << "it was cancelled";
}

TEST_F(PaymentTest, heldCardKey_asksTheTerminalOnce)
{
    ConnectedTerminal terminal;
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    const DialogDouble dialog;
    openWindow();
    for (const bool repeated : {false, true, true}) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F11, Qt::NoModifier, {}, repeated);
        QCoreApplication::sendEvent(received(), &key);
        ASSERT_TRUE(becomesIdle());
    }
    EXPECT_EQ(terminal->count("pay"), 1);
}

TEST_F(PaymentTest, cardChargedAndDocumentOpen_onlyTheRestIsDue)
{
    ConnectedTerminal terminal;
    openWindow();
    CardOperation charged{.state = CardOperation::State::Approved, .amount = Kopecks{1000}, .reference = u"1-1"_s};
    ASSERT_TRUE(till->recordOrShow(till->document(), charged));
    EXPECT_EQ(text("paymentSumLabel"), u"2,40"_s);
    EXPECT_EQ(text("chargedLabel"), u"Картой оплачено 10,00"_s);
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(till->archive().find(1)->getReceived(), Kopecks{1240});
}

TEST_F(PaymentTest, returnOfASaleByCard_showsWhatGoesWhere)
{
    ConnectedTerminal terminal;
    openWindow();
    type("10");
    pressAndFinish(Qt::Key_F11);
    ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    EXPECT_EQ(widget<QLineEdit>("searchLineEdit")->placeholderText(),
              u"Проверьте позиции возврата, затем F12 — выплата"_s);
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(text("paymentSumLabel"), u"12,40"_s);
    EXPECT_EQ(text("chargedLabel"), u"На карту 2,40, наличными 10,00"_s);
    EXPECT_EQ(widget<QPushButton>("payButton")->text(), u"Вернуть деньги"_s);
    EXPECT_FALSE(isSeen("cardButton"));
    pressAndFinish(Qt::Key_Return);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_FALSE(till->document());
}
