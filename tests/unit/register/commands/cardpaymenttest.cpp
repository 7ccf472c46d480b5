// SPDX-License-Identifier: MIT
// Payments and refunds by card, from the key to the closed document.
#include "commandfixture.h"
#include "dialogdouble.h"
#include "documentwords.h"
#include "inputblocker.h"
#include "pluginscope.h"
#include "positionmarks.h"
#include "receiptprinter.h"
#include "registeraction.h"
#include "savetofilelogic.h"
#include "savingdouble.h"
#include "storeddocumentcommands.h"
#include "terminaldouble.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QPushButton>

#include <chrono>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

class CardPaymentTest : public CommandFixture
{
protected:
    CardPaymentTest() { storedDocumentCommands->offer(controller.object); }

    /// A document over 24,80 that is at its payment.
    void standAtPayment()
    {
        till->add(article(amoxidar, 2));
        till->setPhase(Till::Phase::Payment);
    }
    /// The same, of a position that belongs to the plug-in "testplugin".
    void serveAndStandAtPayment()
    {
        till->add(article(amoxidar, 2));
        const PluginScope scope(u"testplugin"_s);
        till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
        till->setPhase(Till::Phase::Payment);
    }
    EContext::Result payByCard(const QString& cash = {})
    {
        return run(registeraction::pay, {{u"method"_s, u"card"_s}, {u"received"_s, cash}});
    }
    EContext::Result payInCash(const QString& cash = {}) { return run(registeraction::pay, {{u"received"_s, cash}}); }
    /// Charges the card for a document that then cannot be closed.
    void chargeAndStayOpen(const QString& cash = {})
    {
        standAtPayment();
        payByCardAndStayOpen(cash);
    }
    void payByCardAndStayOpen(const QString& cash = {})
    {
        SavingDouble saving;
        saving.onSave = [](const auto& document, const QString&, const auto& write) {
            const bool closes = document->isClosed();
            return !closes && write();
        };
        EXPECT_EQ(payByCard(cash), EContext::Stop);
        EXPECT_TRUE(till->document());
    }
    /// Sells for 24,80 and 12,40, and returns the number of the sale.
    int soldTwo(const QString& cash = {})
    {
        till->add(article(amoxidar, 2));
        till->add(article(amoxidar));
        const int number = till->document()->getNumber();
        till->setPhase(Till::Phase::Payment);
        EXPECT_EQ(payByCard(cash), EContext::GoOn);
        return number;
    }
    void returnAndStandAtPayment(int sale, const QSet<int>& positions)
    {
        ASSERT_TRUE(till->returnPositions(archived(sale), positions));
        till->setPhase(Till::Phase::Payment);
    }
    /// Of the messages that the cashier saw; empty when there was none.
    QString firstText() const { return dialog.messages().value(0).text; }
    QString lastText() const { return dialog.messages().value(dialog.messages().size() - 1).text; }
    QJsonObject saved(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }
    /// Resumes a suspended document as the cashier does.
    EContext::Result resume(int number)
    {
        cashier.onForm(u"documentListForm"_s, [number](QWidget&) {
            control::Action answer(control::DialogAnswer);
            answer.appendArgument(number, u"resume"_s);
            Singleton<ActionQueueController>::get()->enqueue(answer, true);
        });
        return run(registeraction::showDocuments);
    }
    /// The register ends without warning, starts again and looks for lost answers.
    void crashAndSettle()
    {
        crash();
        storedDocumentCommands->settleRestored();
    }
    /// The documents that the next start asks about.
    QList<int> unsettled() const
    {
        QList<int> numbers;
        for (const auto& document : till->unsettledDocuments()) {
            numbers.append(document->getNumber());
        }
        return numbers;
    }
    /// Voids a document as the cashier does.
    EContext::Result voidByNumber(int number)
    {
        answerQuestion("yesButton");
        return run(registeraction::voidByNumber, {{u"number"_s, number}});
    }
    QJsonObject savedOperation() const { return savedDocument().value("cardOperations"_L1).toArray().at(0).toObject(); }
    /// The register ends without warning and starts again.
    void crash()
    {
        openDocumentCommands.reset();
        DocumentWatcher::setCurrentDocument(nullptr);
        till.reset(); // first: each till puts back what it replaced
        till = std::make_unique<Till>(folder.path());
        till->setActivePlugins([this] { return activePlugins; });
        openDocumentCommands = std::make_unique<OpenDocumentCommands>(*till);
        openDocumentCommands->offer(controller.object);
        goodsCommands = std::make_unique<GoodsCommands>(*till, catalogue);
        goodsCommands->offer(controller.object);
        paymentCommands = std::make_unique<PaymentCommands>(*till);
        paymentCommands->offer(controller.object);
        storedDocumentCommands = std::make_unique<StoredDocumentCommands>(*till, printer, marks);
        storedDocumentCommands->offer(controller.object);
        till->restore(OpenDocumentFile(folder.path()).load());
        paymentCommands->settleRestored();
        till->setPhase(Till::Phase::Payment);
    }

    PositionMarks marks;
    ReceiptPrinter printer{folder.path(), marks};
    std::unique_ptr<StoredDocumentCommands> storedDocumentCommands =
        std::make_unique<StoredDocumentCommands>(*till, printer, marks);
    ConnectedTerminal terminal;
    DialogDouble dialog;
};

TEST_F(CardPaymentTest, nothingTyped_cardPaysAll)
{
    standAtPayment();
    EXPECT_EQ(payByCard(), EContext::GoOn);
    const auto sale = archived(1);
    EXPECT_EQ(sale->getState(), Document::State::Closed);
    EXPECT_EQ(sale->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_EQ(sale->getChange(), Kopecks{0});
    ASSERT_EQ(sale->cardOperations().size(), 1);
    EXPECT_EQ(sale->cardOperations().first().card, u"**** **** **** 1234"_s) << "never the whole number";
    EXPECT_EQ(sale->cardOperations().first().authorizationCode, u"A17"_s);
    EXPECT_EQ(sale->cardOperations().first().terminal, u"bank"_s);
    ASSERT_EQ(terminal->requests.size(), 1);
    EXPECT_EQ(terminal->requests.first().amount, Kopecks{2480});
    EXPECT_EQ(terminal->requests.first().documentNumber, 1);
    EXPECT_FALSE(terminal->requests.first().reference.isEmpty());
}

TEST_F(CardPaymentTest, cashTyped_cardPaysTheRest)
{
    standAtPayment();
    EXPECT_EQ(payByCard(u"20"_s), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments,
              (QList<Payment>{Payment::cash(Kopecks{2000}), Payment::card(Kopecks{480})}));
    EXPECT_EQ(archived(1)->getReceived(), Kopecks{2480});
    EXPECT_EQ(terminal->taken(), 480);
}

TEST_F(CardPaymentTest, cashThatIsEnoughOrUnreadable_saysSoAndAsksNoTerminal)
{
    standAtPayment();
    for (const char* typed : {"24,80", "30", "12,x"}) {
        EXPECT_EQ(payByCard(QLatin1StringView(typed)), EContext::Stop) << typed;
    }
    ASSERT_EQ(dialog.messages().size(), 3);
    EXPECT_TRUE(firstText().startsWith(u"Получено наличными 24,80, к оплате 24,80"_s));
    EXPECT_TRUE(lastText().startsWith(u"«12,x» — не сумма."_s));
    EXPECT_TRUE(terminal->calls.isEmpty());
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(CardPaymentTest, terminalIsAsked_operationIsSavedBeforeAndInputIsThrownAway)
{
    standAtPayment();
    witness.seen.clear();
    terminal->onMove = [this](const CardRequest& request, const auto& move) {
        EXPECT_EQ(savedOperation().value("state"_L1), u"asked"_s);
        EXPECT_EQ(savedOperation().value("reference"_L1), request.reference);
        EXPECT_EQ(savedOperation().value("amount"_L1), 24.8);
        EXPECT_TRUE(InputBlocker::isActive());
        EXPECT_EQ(PluginScope::current(), u"bank"_s);
        EXPECT_EQ(witness.codes(), QList<int>{EActivityListener::LongWorkBegins});
        move();
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(witness.codes(), (QList<int>{EActivityListener::LongWorkBegins, EActivityListener::LongWorkEnds,
                                           EActivityListener::DocumentClosed}));
    EXPECT_FALSE(InputBlocker::isActive());
}

TEST_F(CardPaymentTest, terminalTellsItsTimeLimit_itIsThatOfTheLongWork)
{
    terminal->onTimeLimit = [] {
        EXPECT_EQ(PluginScope::current(), u"bank"_s);
        return std::optional(std::chrono::seconds(90));
    };
    standAtPayment();
    witness.seen.clear();
    EXPECT_EQ(payByCard(), EContext::GoOn);
    ASSERT_EQ(witness.seen.first().code, EActivityListener::LongWorkBegins);
    EXPECT_EQ(witness.seen.first().seconds, 90);
}

TEST_F(CardPaymentTest, terminalCannotTellItsTimeLimit_paysAllTheSame)
{
    const auto throwing = []() -> std::optional<std::chrono::seconds> { throw std::runtime_error("mischief"); };
    for (const auto& tell : {decltype(terminal->onTimeLimit)(), decltype(terminal->onTimeLimit)(throwing)}) {
        terminal->onTimeLimit = tell;
        standAtPayment();
        witness.seen.clear();
        EXPECT_EQ(payByCard(), EContext::GoOn);
        EXPECT_EQ(witness.seen.first().seconds, 0);
    }
    EXPECT_EQ(terminal->taken(), 4960);
}

TEST_F(CardPaymentTest, declined_saysWhyAndTheNextTryIsAnotherOperation)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) {
        return CardAnswer::declined({tr::undefined, u"Недостаточно средств"_s});
    };
    EXPECT_EQ(payByCard(), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(firstText(), u"Чек № 1: терминал отклонил оплату 24,80. Недостаточно средств\n"
                           "Деньги не списаны. Возьмите другую карту или наличные."_s);
    EXPECT_EQ(till->due(), Kopecks{2480});
    terminal->onMove = {};
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_NE(terminal->requests.at(0).reference, terminal->requests.at(1).reference);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
}

TEST_F(CardPaymentTest, busy_saysSoAndNothingIsOwed)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::busy(); };
    EXPECT_EQ(payByCard(), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(firstText().startsWith(u"Терминал занят, деньги не списаны."_s));
    EXPECT_FALSE(till->document()->unsettledCardOperation());
    EXPECT_EQ(payInCash(), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::cash(Kopecks{2480})});
}

TEST_F(CardPaymentTest, answerLostAndMoneyTaken_terminalIsAskedForItAndTheDocumentCloses)
{
    standAtPayment();
    terminal->loseAnswers();
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"find"_s}));
    EXPECT_EQ(terminal->taken(), 2480);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_EQ(archived(1)->cardOperations().first().authorizationCode, u"A17"_s);
    EXPECT_EQ(firstText(), u"Чек № 1: оплата картой 24,80 прошла, она учтена в чеке."_s);
}

TEST_F(CardPaymentTest, answerLostAndMoneyNotTaken_documentStaysOpenAndUnpaid)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::unknown(); };
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"find"_s}));
    EXPECT_EQ(firstText(), u"Чек № 1: оплата картой 24,80 не прошла, деньги не списаны."_s);
    EXPECT_EQ(till->due(), Kopecks{2480});
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(CardPaymentTest, terminalThrows_countsAsALostAnswer)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto& move) -> CardAnswer {
        move();
        throw std::runtime_error("4111111111111111");
    };
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"find"_s}));
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_FALSE(InputBlocker::isActive());
    EXPECT_EQ(witness.codes().count(72), witness.codes().count(73));
}

TEST_F(CardPaymentTest, terminalCannotSay_cashierWhoSawTheSlipSettlesIt)
{
    standAtPayment();
    terminal->loseAnswers();
    terminal->onFind = [](const QString&) -> CardAnswer { throw 1; };
    cashier.onForm(u"questionForm"_s, [](QWidget& root) {
        EXPECT_TRUE(root.findChild<QLabel*>(u"messageLabel"_s)
                        ->text()
                        .startsWith(u"Чек № 1: неизвестно, списал ли терминал 24,80 с карты."_s));
        press(root, "yesButton");
    });
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
}

TEST_F(CardPaymentTest, cashierIsSureThatNothingWasTaken_cashIsTakenInstead)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::unknown(); };
    terminal->onFind = [](const auto&) { return CardAnswer::unknown(); };
    answerQuestion("noButton");
    answerQuestion("yesButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(payInCash(), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::cash(Kopecks{2480})});
}

TEST_F(CardPaymentTest, nobodyKnows_everyWayOnAsksForThatOperationFirst)
{
    standAtPayment();
    terminal->loseAnswers();
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    for (int question = 0; question < 4; ++question) {
        answerQuestion("noButton");
    }
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(payInCash(u"24,80"_s), EContext::Stop);
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_FALSE(till->suspend());
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"find"_s, u"find"_s, u"find"_s, u"find"_s}));
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->phase(), Till::Phase::Positions) << "a cancellation that was stopped leads back";

    terminal->onFind = {};
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(terminal->count("pay"), 1);
    EXPECT_EQ(terminal->taken(), 2480);
}

TEST_F(CardPaymentTest, terminalStaysBusy_cashierWhoHasTheSlipSettlesIt)
{
    standAtPayment();
    terminal->loseAnswers();
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    cashier.onForm(u"questionForm"_s, [](QWidget& root) {
        EXPECT_TRUE(root.findChild<QLabel*>(u"messageLabel"_s)->text().startsWith(u"Терминал занят и не может"_s));
        EXPECT_EQ(root.findChild<QPushButton*>(u"noButton"_s)->text(), u"Подождать"_s);
        press(root, "yesButton");
    });
    answerQuestion("yesButton");
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"find"_s}));
}

TEST_F(CardPaymentTest, terminalStaysBusyAndTookNothing_documentIsCancelled)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::unknown(); };
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    answerQuestion("yesButton"); // the slip is there
    answerQuestion("noButton");  // it took nothing
    answerQuestion("yesButton"); // for sure
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
}

TEST_F(CardPaymentTest, cashierDoesNotKnow_nothingIsChargedAgain)
{
    standAtPayment();
    terminal->loseAnswers();
    terminal->onFind = [](const auto&) { return CardAnswer::unknown(); };
    answerQuestion("noButton");
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(till->document()->unsettledCardOperation());
    EXPECT_EQ(savedOperation().value("state"_L1), u"asked"_s);
    answerQuestion("yesButton");
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(terminal->count("pay"), 1);
}

TEST_F(CardPaymentTest, documentCannotBeSaved_terminalIsNotAsked)
{
    standAtPayment();
    SavingDouble saving;
    saving.failAll();
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(terminal->calls.isEmpty());
    EXPECT_TRUE(till->document()->cardOperations().isEmpty());
}

TEST_F(CardPaymentTest, chargedButNotClosed_goingOnUsesTheMoney)
{
    for (const bool byCard : {true, false}) {
        chargeAndStayOpen();
        EXPECT_EQ(till->due(), Kopecks{0});
        const int number = till->document()->getNumber();
        EXPECT_EQ(byCard ? payByCard() : payInCash(), EContext::GoOn) << byCard;
        EXPECT_EQ(archived(number)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})}) << byCard;
    }
    EXPECT_EQ(terminal->count("pay"), 2);
}

TEST_F(CardPaymentTest, mixChargedButNotClosed_cashIsStillDue)
{
    chargeAndStayOpen(u"20"_s);
    EXPECT_EQ(till->due(), Kopecks{2000});
    EXPECT_EQ(payInCash(u"50"_s), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments,
              (QList<Payment>{Payment::cash(Kopecks{5000}), Payment::card(Kopecks{480})}));
    EXPECT_EQ(archived(1)->getChange(), Kopecks{3000});
}

TEST_F(CardPaymentTest, chargedDocument_keepsItsPositionsAndIsNotSuspended)
{
    chargeAndStayOpen();
    EXPECT_EQ(till->add(article(amoxidar)), 0);
    till->setPacks(1, 5);
    till->remove(1);
    EXPECT_FALSE(till->suspend());
    ASSERT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(till->document()->getSum(), Kopecks{2480});
    EXPECT_TRUE(till->obstacleToSuspending()->text.ui().startsWith(u"По чеку № 1 уже есть оплата картой"_s));
}

TEST_F(CardPaymentTest, sumLoweredAfterTheCharge_isNotClosedWithCashForTheCard)
{
    chargeAndStayOpen();
    till->document()->position(1)->setPrice(10);
    EXPECT_EQ(payInCash(), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"С карты списано 24,80, а сумма чека теперь 20,00."_s));
    EXPECT_TRUE(till->document());
}

TEST_F(CardPaymentTest, documentIsEndedWhileTheTerminalWorks_staysOpenAndIsPaid)
{
    const int other = suspend();
    standAtPayment();
    const auto document = till->document();
    terminal->onMove = [&](const auto&, const auto& move) {
        move();
        EXPECT_FALSE(till->cancel()) << "nobody knows yet whether the money moved";
        EXPECT_FALSE(till->suspend());
        EXPECT_FALSE(till->close({Payment::cash(Kopecks{2480})}));
        EXPECT_FALSE(till->voidDocument(document));
        EXPECT_FALSE(till->resume(archived(other)));
        till->open();
        EXPECT_EQ(till->document(), document);
        EXPECT_EQ(till->add(article(amoxidar)), 0);
        till->setPacks(1, 5);
        till->remove(1);
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(archived(2)->getState(), Document::State::Closed);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_EQ(archived(other)->getState(), Document::State::Suspended);
}

TEST_F(CardPaymentTest, actionsWhileTheTerminalWorks_areStopped)
{
    const int other = sold();
    standAtPayment();
    QList<EContext::Result> results;
    terminal->onMove = [&](const auto&, const auto& move) {
        move();
        for (const auto type :
             {control::CancelDocument, control::CancelDocumentFromMenu, control::RemovePosition, control::VoidDocument,
              control::Subtotal, control::SubtotalAndPayment, control::AddSelectedGoods, registeraction::pay,
              registeraction::suspend, registeraction::openSale, registeraction::addGoods, registeraction::returnSale,
              registeraction::changeQuantity, registeraction::backToPositions, registeraction::voidByNumber}) {
            control::Action inner(type);
            inner.insert(u"positionNumber"_s, 1);
            inner.insert(u"number"_s, other);
            inner.insert(u"document"_s, QVariant::fromValue(archived(other).staticCast<AbstractDocument>()));
            results.append(controller.object.execute(inner));
        }
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(results, QList<EContext::Result>(15, EContext::Stop));
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    EXPECT_EQ(archived(other)->getState(), Document::State::Closed);
}

TEST_F(CardPaymentTest, suspendedWhileTheTerminalWorks_theMoneyWaitsOnTheSuspendedDocument)
{
    serveAndStandAtPayment();
    terminal->onMove = [this](const auto&, const auto& move) {
        move();
        activePlugins.clear();
        EXPECT_TRUE(till->suspend()) << "its plug-in ended";
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Чек уже не открыт"_s));
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 2) << "the next customer's is not closed with that money";
    EXPECT_TRUE(till->document()->cardOperations().isEmpty());
    EXPECT_EQ(archived(1)->getCharged(), Kopecks{2480});

    ASSERT_TRUE(till->cancel());
    activePlugins = {u"testplugin"_s};
    EXPECT_EQ(resume(1), EContext::GoOn);
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(payByCard(), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 2480);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
}

TEST_F(CardPaymentTest, pluginEndsWhileTheTerminalWorks_documentStaysOpenWithTheMoney)
{
    serveAndStandAtPayment();
    terminal->onMove = [this](const auto&, const auto& move) {
        move();
        activePlugins.clear();
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(lastText().contains(u"ведёт модуль «testplugin», а он не работает"_s)) << qPrintable(lastText());
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getCharged(), Kopecks{2480});
    activePlugins = {u"testplugin"_s};
    EXPECT_EQ(payInCash(), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
}

/// How a plug-in sets the price of one of two packs at 12,40 while the terminal takes 24,80.
struct NewPrice {
    const char* name;
    double price;
    const char* shown;
};

class PriceDuringThePayment : public CardPaymentTest, public ::testing::WithParamInterface<NewPrice>
{
};

TEST_P(PriceDuringThePayment, documentStaysOpenAndTheCashierReadsWhy)
{
    standAtPayment();
    terminal->onMove = [this](const auto&, const auto& move) {
        move();
        till->document()->position(1)->setPrice(GetParam().price);
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(QString::fromUtf8(GetParam().shown))) << qPrintable(lastText());
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getState(), Document::State::Open);
    EXPECT_EQ(till->document()->getCharged(), Kopecks{2480});
}

INSTANTIATE_TEST_SUITE_P(, PriceDuringThePayment,
                         ::testing::Values(NewPrice{"lowered", 10, "С карты списано 24,80, а сумма чека теперь 20,00."},
                                           NewPrice{"raised", 15,
                                                    "Сумма чека выросла во время оплаты: остаётся оплатить 5,20."},
                                           NewPrice{"belowZero", -1, "Сумма чека меньше нуля"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(CardPaymentTest, priceRaisedDuringThePayment_theRestIsTakenInCash)
{
    standAtPayment();
    terminal->onMove = [this](const auto&, const auto& move) {
        move();
        till->document()->position(1)->setPrice(15);
        return TerminalDouble::approved();
    };
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(payInCash(u"10"_s), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments,
              (QList<Payment>{Payment::cash(Kopecks{1000}), Payment::card(Kopecks{2480})}));
    EXPECT_EQ(archived(1)->getChange(), Kopecks{480});
}

TEST_F(CardPaymentTest, documentChangesWhileAnOperationIsSettled_isNotPaidBeforeItsSubtotal)
{
    standAtPayment();
    terminal->loseAnswers();
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    terminal->onFind = [this](const auto&) {
        till->document()->position(1)->setPrice(-1);
        return CardAnswer::declined();
    };
    EXPECT_EQ(payInCash(), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Сумма чека меньше нуля"_s));
    ASSERT_TRUE(till->document());

    till->document()->position(1)->setPrice(12.4);
    till->setPhase(Till::Phase::Payment);
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    terminal->onFind = [this](const auto&) {
        till->setPhase(Till::Phase::Positions);
        return CardAnswer::declined();
    };
    EXPECT_EQ(payInCash(), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Чек № 1 изменился во время оплаты."_s)) << qPrintable(lastText());
    EXPECT_TRUE(till->document());
}

TEST_F(CardPaymentTest, goodsAddedWhileTheCashierIsAskedAboutTheChange_areNotPaidBeforeTheirSubtotal)
{
    standAtPayment();
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        EXPECT_GT(till->add(article(amoxidar)), 0);
        press(root, "yesButton");
    });
    EXPECT_EQ(payInCash(u"9000"_s), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Чек № 1 изменился во время оплаты."_s)) << qPrintable(lastText());
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->positions().size(), 2);
}

TEST_F(CardPaymentTest, chargedDocumentIsCancelled_moneyGoesBackFirst)
{
    chargeAndStayOpen(u"20"_s);
    cashier.onForm(u"questionForm"_s, [](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"messageLabel"_s)->text(),
                  u"Отменить чек № 1 на сумму 24,80?\nОплата картой вернётся на карту покупателя."_s);
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::GoOn);
    EXPECT_EQ(terminal->calls, (QStringList{u"pay"_s, u"refund"_s}));
    EXPECT_EQ(terminal->requests.last().payment, terminal->requests.first().reference);
    EXPECT_EQ(terminal->requests.last().authorizationCode, u"A17"_s);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
    EXPECT_EQ(documentwords::ending(*archived(1)), u"Чек № 1 отменён. На карту возвращено 4,80"_s);
}

TEST_F(CardPaymentTest, cancellingIsInterruptedAfterTheRefund_documentIsCancelledNotPaid)
{
    chargeAndStayOpen();
    {
        SavingDouble saving;
        saving.onSave = [](const auto& document, const QString&, const auto& write) {
            return !document->isClosed() && write();
        };
        EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    }
    EXPECT_EQ(run(control::SubtotalAndPayment), EContext::Stop);
    const QString begun = u"Отмена чека № 1 начата, деньги возвращены или могли быть возвращены."_s;
    EXPECT_TRUE(lastText().startsWith(begun));
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    for (const auto& obstacle :
         {till->obstacleToAddingGoods(), till->obstacleToChangingPositions(), till->obstacleToSuspending()}) {
        EXPECT_TRUE(obstacle && obstacle->text.ui().startsWith(begun)) << "nothing but cancelling is left";
    }
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}), EContext::Stop);
    EXPECT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(terminal->count("refund"), 1);
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_F(CardPaymentTest, pluginKeepsTheDocument_moneyStaysOnIt)
{
    chargeAndStayOpen();
    addHook(EContext::OpenDocument, control::CancelDocument, [](const control::Action&) { return EContext::Stop; });
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_EQ(terminal->count("refund"), 0);
    EXPECT_EQ(till->due(), Kopecks{0});
}

TEST_F(CardPaymentTest, refundIsDeclined_documentStaysUnlessTheCashierPaysInCash)
{
    chargeAndStayOpen();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    cashier.onForm(u"questionForm"_s, [](QWidget& root) {
        EXPECT_TRUE(root.findChild<QLabel*>(u"messageLabel"_s)
                        ->text()
                        .endsWith(u"Их выдают в конце, когда касса об этом скажет."_s));
        press(root, "noButton");
    });
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_EQ(till->document()->getCharged(), Kopecks{2480});
    answerQuestion("yesButton");
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
    EXPECT_EQ(documentwords::ending(*archived(1)), u"Чек № 1 отменён. Верните покупателю наличными 24,80"_s);
}

TEST_F(CardPaymentTest, noTerminal_cardIsNotCharged)
{
    standAtPayment();
    terminal.disconnect();
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(firstText().startsWith(u"Терминал не подключён."_s));
    EXPECT_TRUE(till->document()->cardOperations().isEmpty());
}

TEST_F(CardPaymentTest, crashBeforeTheAnswer_isSettledAtTheNextStart)
{
    for (const bool taken : {true, false}) {
        standAtPayment();
        const int number = till->document()->getNumber();
        QByteArray atCrash;
        terminal->onMove = [&](const auto&, const auto& move) {
            if (taken) {
                move();
            }
            atCrash = QJsonDocument(savedDocument()).toJson();
            return CardAnswer::busy();
        };
        EXPECT_EQ(payByCard(), EContext::Stop);
        QFile file(folder.filePath(u"receipt.json"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(atCrash) == atCrash.size());
        file.close();
        crash();
        EXPECT_EQ(till->due(), taken ? Kopecks{0} : Kopecks{2480}) << taken;
        EXPECT_FALSE(till->document()->unsettledCardOperation()) << taken;
        EXPECT_EQ(savedOperation().value("state"_L1), taken ? u"approved"_s : u"declined"_s);
        EXPECT_EQ(payInCash(), EContext::GoOn) << taken;
        EXPECT_EQ(archived(number)->getReceived(), Kopecks{2480}) << taken;
    }
    EXPECT_EQ(terminal->taken(), 2480) << "of two documents one was paid by card";
}

TEST_F(CardPaymentTest, anotherTerminalAfterTheCrash_isNotAskedForTheOperation)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::unknown(); };
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    terminal.connect(u"otherbank"_s);
    answerQuestion("yesButton");
    crash();
    EXPECT_EQ(terminal->count("find"), 1) << "it does not know what another terminal did";
    EXPECT_EQ(till->due(), Kopecks{0});
}

TEST_F(CardPaymentTest, saleByCardIsReturned_moneyGoesBackToThatCard)
{
    returnAndStandAtPayment(soldTwo(), {1, 2});
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{3720})});
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(terminal->requests.last().payment, terminal->requests.first().reference);
    EXPECT_EQ(terminal->requests.last().documentNumber, 2);
    EXPECT_EQ(documentwords::ending(*archived(2)), u"Возврат № 2 закрыт. На карту возвращено 37,20"_s);
}

TEST_F(CardPaymentTest, mixedSaleIsReturnedInParts_cardGetsBackWhatItPaidAndCashTheRest)
{
    const int sale = soldTwo(u"10"_s); // 10,00 in cash, 27,20 by card
    returnAndStandAtPayment(sale, {1});
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{2480})});
    returnAndStandAtPayment(sale, {2});
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(3)->ending().payments,
              (QList<Payment>{Payment::cash(Kopecks{1000}), Payment::card(Kopecks{240})}));
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_F(CardPaymentTest, refundOfAReturnIsDeclined_cashierPaysItOutOrGoesBack)
{
    const int sale = soldTwo();
    returnAndStandAtPayment(sale, {1});
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    answerQuestion("noButton");
    EXPECT_EQ(run(registeraction::pay), EContext::Stop);
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::cash(Kopecks{2480})});
    EXPECT_EQ(documentwords::ending(*archived(2)), u"Возврат № 2 закрыт. Верните покупателю наличными 24,80"_s);
    terminal->onMove = {};
    returnAndStandAtPayment(sale, {2});
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(3)->ending().payments, QList<Payment>{Payment::card(Kopecks{1240})});
    EXPECT_EQ(terminal->taken(), 2480);
}

TEST_F(CardPaymentTest, returnWithoutATerminal_isPaidInCash)
{
    returnAndStandAtPayment(soldTwo(), {1, 2});
    terminal.disconnect();
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::cash(Kopecks{3720})});
}

TEST_F(CardPaymentTest, returnRefundedButNotClosed_isNotCancelledAndNotRefundedAgain)
{
    returnAndStandAtPayment(soldTwo(), {1, 2});
    {
        SavingDouble saving;
        saving.onSave = [](const auto& document, const QString&, const auto& write) {
            return !document->isClosed() && write();
        };
        EXPECT_EQ(run(registeraction::pay), EContext::Stop);
    }
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"По возврату уже возвращали деньги"_s));
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(terminal->count("refund"), 1);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{3720})});
}

TEST_F(CardPaymentTest, returnIsCancelled_nothingIsRefunded)
{
    returnAndStandAtPayment(soldTwo(), {1});
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(terminal->count("refund"), 0);
    EXPECT_EQ(till->returned(*archived(1)), Document::Returned::Nothing);
}

TEST_F(CardPaymentTest, saleByCardIsVoided_moneyGoesBackToTheCard)
{
    const int sale = soldTwo(u"10"_s);
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::GoOn);
    EXPECT_EQ(archived(sale)->getState(), Document::State::Voided);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(documentwords::voiding(*archived(sale), Document::State::Closed),
              u"Чек № 1 аннулирован. На карту возвращено 27,20, верните наличными 10,00"_s);
}

TEST_F(CardPaymentTest, saleWhollyByCard_isSpokenOfWithoutCash)
{
    const int sale = soldTwo();
    EXPECT_EQ(documentwords::ending(*archived(sale)), u"Чек № 1 закрыт. Картой оплачено 37,20"_s);
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(documentwords::voiding(*archived(sale), Document::State::Closed),
              u"Чек № 1 аннулирован. На карту возвращено 37,20"_s);
}

TEST_F(CardPaymentTest, chargedDocument_takesNoSelectedGoodsAndSaysWhy)
{
    chargeAndStayOpen();
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"По чеку № 1 уже есть оплата картой"_s));
}

TEST_F(CardPaymentTest, voidingIsInterruptedAfterTheRefund_saleIsVoidedNotReturned)
{
    const int sale = soldTwo();
    {
        SavingDouble saving;
        saving.onSave = [](const auto& document, const QString&, const auto& write) {
            return document.template dynamicCast<Document>()->getState() != Document::State::Voided && write();
        };
        answerQuestion("yesButton");
        EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::Stop);
    }
    EXPECT_EQ(archived(sale)->getState(), Document::State::Closed);
    EXPECT_FALSE(till->returnSale(archived(sale))) << "the money is back already";
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::GoOn);
    EXPECT_EQ(terminal->count("refund"), 1);
}

TEST_F(CardPaymentTest, voidingRefundDeclined_saleStaysClosed)
{
    const int sale = soldTwo();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    answerQuestion("yesButton");
    answerQuestion("noButton");
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::Stop);
    EXPECT_EQ(archived(sale)->getState(), Document::State::Closed);
    EXPECT_EQ(terminal->taken(), 3720);
    EXPECT_TRUE(lastText().startsWith(u"Документ № 1 не аннулирован: деньги на карту не возвращены."_s));
    EXPECT_FALSE(archived(sale)->isVoidingBegun()) << "nothing has happened";
    EXPECT_FALSE(till->obstacleToPrinting(*archived(sale)));
}

TEST_F(CardPaymentTest, saleBelowZeroAtItsPayment_isNotClosed)
{
    standAtPayment();
    till->document()->position(1)->setPrice(-1);
    EXPECT_FALSE(till->close({Payment::cash(Kopecks{0})}));
    EXPECT_EQ(payInCash(), EContext::Stop);
    EXPECT_TRUE(till->document());
}

TEST_F(CardPaymentTest, documentReplacedWhileItsRefundWorks_theNextOneIsNotCancelled)
{
    serveAndStandAtPayment();
    payByCardAndStayOpen();
    terminal->onMove = [this](const auto&, const auto& move) {
        move();
        activePlugins.clear();
        EXPECT_TRUE(till->suspend());
        till->add(article(amoxidar));
        return TerminalDouble::approved();
    };
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Чек уже не открыт"_s)) << qPrintable(lastText());
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 2);
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
    EXPECT_EQ(archived(1)->getRefunded(), Kopecks{2480});
}

TEST_F(CardPaymentTest, cancelledSaleWasPaidBackToACardAndInCash_bothAmountsAreNamed)
{
    chargeAndStayOpen(u"20"_s);
    till->document()->position(1)->setPrice(20); // 35,20 is due beside the 4,80
    till->setPhase(Till::Phase::Payment);
    payByCardAndStayOpen();
    ASSERT_TRUE(till->document());
    ASSERT_EQ(till->document()->getCharged(), Kopecks{4000});
    terminal->onMove = [](const CardRequest& request, const auto& move) {
        if (request.amount == Kopecks{480}) {
            return CardAnswer::declined();
        }
        move();
        return TerminalDouble::approved();
    };
    answerQuestion("yesButton");
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(documentwords::ending(*archived(1)),
              u"Чек № 1 отменён. На карту возвращено 35,20, верните наличными 4,80"_s);
}

/// A sale that was charged, and whose position belongs to a plug-in that is missing after a restart.
class ChargedWithoutItsPlugin : public CardPaymentTest, public ::testing::WithParamInterface<bool>
{
protected:
    /// The answer of the terminal was lost, and the terminal can say later what it was.
    bool isLost() const { return GetParam(); }
    void chargeAndLoseThePlugin()
    {
        serveAndStandAtPayment();
        if (isLost()) {
            terminal->loseAnswers();
            terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
            answerQuestion("noButton");
            EXPECT_EQ(payByCard(u"20"_s), EContext::Stop);
            terminal->onMove = {};
        } else {
            payByCardAndStayOpen(u"20"_s);
        }
        activePlugins.clear();
        crashWithItOpen();
    }
    /// A restart asks about the lost answer again.
    void crashWithItOpen()
    {
        if (isLost()) {
            answerQuestion("noButton");
        }
        crash();
    }
    void pluginAndTerminalComeBack()
    {
        activePlugins = {u"testplugin"_s};
        terminal->onFind = {};
    }
    void expectTheMoneyIsOnIt(const Document& document) const
    {
        EXPECT_EQ(document.getCharged(), isLost() ? Kopecks{0} : Kopecks{480});
        EXPECT_EQ(document.unsettledCardOperation().has_value(), isLost());
        EXPECT_EQ(terminal->taken(), 480);
    }
};

TEST_P(ChargedWithoutItsPlugin, isSuspendedAndTheNextOneIsSoldAndTheFirstIsPaidLater)
{
    chargeAndLoseThePlugin();
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_EQ(run(control::CancelDocument), EContext::Stop);
    EXPECT_TRUE(lastText().endsWith(u"Открытый документ пока можно отложить."_s));
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::Stop);
    EXPECT_TRUE(lastText().endsWith(u"Открытый документ пока можно отложить."_s)) << "neither paid nor cancelled";
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    expectTheMoneyIsOnIt(*archived(1));
    EXPECT_EQ(unsettled(), isLost() ? QList<int>{1} : QList<int>());
    EXPECT_EQ(documentwords::state(*archived(1), Document::Returned::Nothing),
              isLost() ? u"Отложен, исход по карте неизвестен"_s : u"Отложен, есть оплата картой"_s);

    crash();
    EXPECT_FALSE(till->document());
    expectTheMoneyIsOnIt(*archived(1));
    EXPECT_EQ(archived(sold())->getState(), Document::State::Closed);

    crash();
    pluginAndTerminalComeBack();
    ASSERT_EQ(resume(1), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_FALSE(till->document()->unsettledCardOperation()) << "it is settled at once";
    EXPECT_EQ(unsettled(), QList<int>());
    EXPECT_EQ(till->due(), Kopecks{2000});
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(payInCash(u"20"_s), EContext::GoOn);
    EXPECT_EQ(archived(1)->ending().payments,
              (QList<Payment>{Payment::cash(Kopecks{2000}), Payment::card(Kopecks{480})}));
    EXPECT_EQ(terminal->count("pay"), 1);
    EXPECT_EQ(terminal->taken(), 480);
}

TEST_P(ChargedWithoutItsPlugin, suspendedAndStartedAgain_lostAnswerIsSettledBeforeItIsResumed)
{
    chargeAndLoseThePlugin();
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    terminal->onFind = {};
    crashAndSettle();
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
    EXPECT_EQ(archived(1)->getCharged(), Kopecks{480});
    EXPECT_FALSE(archived(1)->unsettledCardOperation());
    EXPECT_EQ(lastText().startsWith(u"Чек № 1: оплата картой 4,80 прошла"_s), isLost());
    EXPECT_EQ(unsettled(), QList<int>());
}

TEST_P(ChargedWithoutItsPlugin, suspendedAndVoided_moneyGoesBack)
{
    chargeAndLoseThePlugin();
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, 1}}), EContext::Stop) << "its plug-in is missing";
    EXPECT_EQ(terminal->taken(), 480);
    pluginAndTerminalComeBack();
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"messageLabel"_s)->text().contains(u"Оплата картой вернётся на карту"_s),
                  !isLost());
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, 1}}), EContext::GoOn);
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(terminal->count("refund"), 1);
    EXPECT_EQ(documentwords::voiding(*archived(1), Document::State::Suspended),
              u"Отложенный чек № 1 аннулирован. На карту возвращено 4,80"_s);
}

TEST_P(ChargedWithoutItsPlugin, suspendedAndResumedAndCancelled_moneyGoesBack)
{
    chargeAndLoseThePlugin();
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    pluginAndTerminalComeBack();
    ASSERT_EQ(resume(1), EContext::GoOn);
    EXPECT_EQ(run(control::CancelDocument), EContext::GoOn);
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_P(ChargedWithoutItsPlugin, powerFailsWhileItIsSuspendedOrResumed_theMoneyIsOnTheOneThatIsOpen)
{
    chargeAndLoseThePlugin();
    const QString open = folder.filePath(u"receipt.json"_s);
    const QString aside = folder.filePath(u"putaside/00000001.json"_s);
    const QString copy = folder.filePath(u"copy.json"_s);
    ASSERT_TRUE(QFile::copy(open, copy));
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    ASSERT_TRUE(QFile::copy(copy, open)) << "the former file was not removed yet";
    crashWithItOpen();
    ASSERT_TRUE(till->document());
    expectTheMoneyIsOnIt(*till->document());
    EXPECT_FALSE(QFile::exists(aside));

    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    ASSERT_TRUE(QFile::remove(copy) && QFile::copy(aside, copy));
    ASSERT_TRUE(till->resume(archived(1)));
    ASSERT_TRUE(QFile::copy(copy, aside));
    crashWithItOpen();
    ASSERT_TRUE(till->document());
    expectTheMoneyIsOnIt(*till->document());
    EXPECT_FALSE(QFile::exists(aside));
}

INSTANTIATE_TEST_SUITE_P(, ChargedWithoutItsPlugin, ::testing::Bool(),
                         [](const auto& instance) { return instance.param ? "answerLost" : "answered"; });

/// A sale paid by card whose dispense is cancelled by a hook when the sale is voided.
class VoidingOfACardSale : public CardPaymentTest
{
protected:
    VoidingOfACardSale()
    {
        addHook(EContext::Idle, control::VoidDocument, [this](const control::Action& voiding) {
            ++hooks;
            const auto document = voiding.value(u"document"_s).value<QSharedPointer<AbstractDocument>>();
            document->getPosition(1)->setExtendedOptions(u"{\"status\":\"canceled\"}"_s);
            EXPECT_TRUE(SaveToFileLogic::create()->save(document, {}));
            return permission;
        });
    }
    void declineRefunds()
    {
        terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    }
    /// Voids a sale whose refund is declined, and which the cashier does not pay out in cash.
    int voidInVain()
    {
        const int sale = soldTwo();
        declineRefunds();
        answerQuestion("yesButton");
        answerQuestion("noButton");
        EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::Stop);
        terminal->onMove = {};
        return sale;
    }
    /// Voids a sale; nobody knows whether its refund, which moves the money or does not, was done.
    int voidAndLoseTheAnswer(bool moves)
    {
        const int sale = soldTwo();
        terminal->onMove = [moves](const auto&, const auto& move) {
            if (moves) {
                move();
            }
            return CardAnswer::unknown();
        };
        terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
        answerQuestion("yesButton");
        answerQuestion("noButton");
        EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::Stop);
        terminal->onMove = {};
        terminal->onFind = {};
        return sale;
    }

    EContext::Result permission = EContext::GoOn;
    int hooks = 0;
};

TEST_F(VoidingOfACardSale, refundFails_saleIsMarkedAndCanOnlyBeVoidedOrReturned)
{
    const int sale = voidInVain();
    EXPECT_TRUE(lastText().startsWith(u"Аннулирование документа № 1 не завершено: деньги возвращены не все"_s));
    const auto marked = archived(sale);
    EXPECT_EQ(marked->getState(), Document::State::Closed);
    EXPECT_TRUE(marked->isVoidingBegun());
    EXPECT_TRUE(saved(u"finished/00000001.json"_s).value("annulmentBegun"_L1).toBool());
    EXPECT_EQ(documentwords::state(*marked, till->returned(*marked)), u"Продажа, аннулирование не завершено"_s);
    EXPECT_FALSE(till->obstacleToVoiding(*marked));
    EXPECT_FALSE(till->obstacleToReturning(*marked));
    EXPECT_TRUE(till->obstacleToPrinting(*marked)->text.ui().startsWith(
        u"Аннулирование продажи № 1 начато и не завершено.\nАннулируйте её ещё раз или оформите возврат."_s));
    EXPECT_TRUE(till->obstacleToResuming(*marked));
}

TEST_F(VoidingOfACardSale, refundFails_listOfDocumentsSaysSo)
{
    voidInVain();
    cashier.onForm(u"documentListForm"_s, [](QWidget& root) {
        const auto* documents = root.findChild<QAbstractItemView*>(u"documentTable"_s)->model();
        EXPECT_EQ(documents->index(0, 1).data(), u"Продажа, аннулирование не завершено"_s);
        EXPECT_TRUE(root.findChild<QPushButton*>(u"annulButton"_s)->isEnabled());
        EXPECT_TRUE(root.findChild<QPushButton*>(u"takeBackButton"_s)->isEnabled());
        EXPECT_FALSE(root.findChild<QPushButton*>(u"printButton"_s)->isEnabled());
        EXPECT_TRUE(root.findChild<QLabel*>(u"hintLabel"_s)
                        ->text()
                        .startsWith(u"Аннулирование продажи № 1 начато и не завершено."_s));
        press(root, "cancelButton");
    });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(VoidingOfACardSale, refundFails_theNextVoidingGoesOn)
{
    const int sale = voidInVain();
    crash();
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(archived(sale)->getState(), Document::State::Voided);
    EXPECT_FALSE(saved(u"finished/00000001.json"_s).contains("annulmentBegun"_L1));
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_F(VoidingOfACardSale, refundFails_saleIsReturnedInstead)
{
    returnAndStandAtPayment(voidInVain(), {1, 2});
    EXPECT_EQ(till->document()->position(1)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 0);
    const auto sale = archived(1);
    EXPECT_TRUE(till->obstacleToVoiding(*sale));
    EXPECT_FALSE(till->obstacleToPrinting(*sale)) << "what the voiding began has ended";
    EXPECT_EQ(documentwords::state(*sale, till->returned(*sale)), u"Продажа, возвращена документом № 2"_s);
}

TEST_F(VoidingOfACardSale, powerFailsDuringTheRefund_saleIsMarked)
{
    const int sale = soldTwo();
    bool isMarked = false;
    terminal->onMove = [&](const auto&, const auto& move) {
        isMarked = saved(u"finished/00000001.json"_s).value("annulmentBegun"_L1).toBool();
        move();
        return TerminalDouble::approved();
    };
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_TRUE(isMarked) << "on the disk, before the money moves";
}

TEST_F(VoidingOfACardSale, hookStops_saleIsMarkedWhenItHadBegun)
{
    permission = EContext::Stop;
    const int sale = soldTwo();
    EXPECT_EQ(voidByNumber(sale), EContext::Stop);
    EXPECT_TRUE(archived(sale)->isVoidingBegun()) << "a dispense is cancelled";
    EXPECT_EQ(voidByNumber(sale), EContext::Stop);
    EXPECT_TRUE(archived(sale)->isVoidingBegun()) << "nothing new, but the first one counts";
    EXPECT_EQ(terminal->count("refund"), 0);
}

TEST_F(CardPaymentTest, hookThatDidNothingStopsTheVoiding_saleIsNotMarked)
{
    const int sale = soldTwo();
    addHook(EContext::Idle, control::VoidDocument, [](const control::Action&) { return EContext::Stop; });
    EXPECT_EQ(voidByNumber(sale), EContext::Stop);
    EXPECT_FALSE(archived(sale)->isVoidingBegun());
    EXPECT_FALSE(saved(u"finished/00000001.json"_s).contains("annulmentBegun"_L1));
}

TEST_F(VoidingOfACardSale, suspendedDocument_isNotMarkedAndCanBeResumed)
{
    till->add(article(amoxidar));
    ASSERT_TRUE(till->suspend());
    permission = EContext::Stop;
    EXPECT_EQ(voidByNumber(1), EContext::Stop);
    EXPECT_FALSE(archived(1)->isVoidingBegun());
    EXPECT_EQ(resume(1), EContext::GoOn) << "its next subtotal registers again what was cancelled";
}

TEST_F(VoidingOfACardSale, refundWasDoneAndItsAnswerLost_returningSettlesItFirst)
{
    const int sale = voidAndLoseTheAnswer(true);
    EXPECT_TRUE(archived(sale)->isVoidingBegun());
    EXPECT_FALSE(till->returnSale(archived(sale))) << "the money may be back already";
    EXPECT_EQ(run(registeraction::returnSale, {{u"number"_s, sale}}), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Аннулирование продажи № 1 начато, деньги возвращены или могли"_s));
    EXPECT_FALSE(till->document());
    EXPECT_FALSE(archived(sale)->unsettledCardOperation());
    EXPECT_EQ(archived(sale)->getRefunded(), Kopecks{3720});
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_F(VoidingOfACardSale, refundWasNotDoneAndItsAnswerLost_returningSettlesItFirst)
{
    const int sale = voidAndLoseTheAnswer(false);
    cashier.onForm(u"returnForm"_s, [](QWidget& root) { press(root, "returnButton"); });
    EXPECT_EQ(run(registeraction::returnSale, {{u"number"_s, sale}}), EContext::GoOn);
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(run(registeraction::pay), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(archived(2)->ending().payments, QList<Payment>{Payment::card(Kopecks{3720})});
}

TEST_F(VoidingOfACardSale, nobodyKnowsOfTheRefund_neitherReturnsNorForgetsIt)
{
    const int sale = voidAndLoseTheAnswer(true);
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(run(registeraction::returnSale, {{u"number"_s, sale}}), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_TRUE(archived(sale)->unsettledCardOperation());
    EXPECT_FALSE(till->document());
}

TEST_F(VoidingOfACardSale, refundWasDoneAndItsAnswerLost_theNextStartFindsItAndSaysWhatToDo)
{
    const int sale = voidAndLoseTheAnswer(true);
    EXPECT_EQ(unsettled(), QList<int>{sale});
    const auto shown = dialog.messages().size();
    crashAndSettle();
    EXPECT_FALSE(till->document());
    EXPECT_FALSE(archived(sale)->unsettledCardOperation());
    EXPECT_EQ(archived(sale)->getRefunded(), Kopecks{3720});
    ASSERT_EQ(dialog.messages().size(), shown + 2);
    EXPECT_EQ(dialog.messages()[shown].text, u"Документ № 1: возврат 37,20 на карту выполнен."_s);
    EXPECT_TRUE(lastText().endsWith(u"Завершите его: аннулируйте продажу ещё раз."_s)) << qPrintable(lastText());
    EXPECT_EQ(unsettled(), QList<int>());

    crashAndSettle();
    EXPECT_EQ(dialog.messages().size(), shown + 2) << "it is said once";
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 0);
    EXPECT_EQ(terminal->count("refund"), 1);
}

TEST_F(VoidingOfACardSale, refundWasNotDoneAndItsAnswerLost_theNextStartSaysSoAndVoidingPaysBack)
{
    const int sale = voidAndLoseTheAnswer(false);
    const auto shown = dialog.messages().size();
    crashAndSettle();
    ASSERT_EQ(dialog.messages().size(), shown + 2);
    EXPECT_EQ(dialog.messages()[shown].text, u"Документ № 1: возврат 37,20 на карту не выполнен."_s);
    EXPECT_TRUE(lastText().endsWith(u"Аннулируйте её ещё раз или оформите возврат."_s)) << qPrintable(lastText());
    EXPECT_EQ(terminal->taken(), 3720);
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(terminal->taken(), 0);
}

TEST_F(VoidingOfACardSale, nobodyKnowsOfTheRefund_eachStartAsksAgain)
{
    const int sale = voidAndLoseTheAnswer(true);
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    for (int start = 0; start < 2; ++start) {
        answerQuestion("noButton");
        crashAndSettle();
        EXPECT_TRUE(cashier.isDone());
        EXPECT_TRUE(archived(sale)->unsettledCardOperation());
    }
    terminal->onFind = {};
    crashAndSettle();
    EXPECT_EQ(archived(sale)->getRefunded(), Kopecks{3720});
}

TEST_F(VoidingOfACardSale, firstOfTwoStaysUnknown_theSecondIsSettledAllTheSame)
{
    const int first = voidAndLoseTheAnswer(true);
    const int second = voidAndLoseTheAnswer(true);
    const QString lost = archived(first)->unsettledCardOperation()->reference;
    terminal->onFind = [lost](const QString& reference) {
        return reference == lost ? CardAnswer::busy() : TerminalDouble::approved();
    };
    answerQuestion("noButton");
    crashAndSettle();
    EXPECT_EQ(unsettled(), QList<int>{first});
    EXPECT_EQ(archived(second)->getRefunded(), Kopecks{3720});
}

TEST_F(VoidingOfACardSale, powerFailsDuringTheRefund_theNextStartFindsOutAmongManyDocuments)
{
    const int sale = soldTwo();
    QByteArray atTheCut;
    terminal->onMove = [&](const auto&, const auto& move) {
        move();
        atTheCut = QJsonDocument(saved(u"finished/00000001.json"_s)).toJson();
        EXPECT_EQ(unsettled(), QList<int>{sale}) << "on the disk, before the money moves";
        return TerminalDouble::approved();
    };
    EXPECT_EQ(voidByNumber(sale), EContext::GoOn);
    EXPECT_EQ(unsettled(), QList<int>());
    for (const auto& [name, content] : {std::pair(u"finished/00000001.json"_s, atTheCut),
                                        std::pair(u"unsettled"_s, QByteArray(R"({"documents": [5, 1, 77]})"))}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    terminal->onMove = {};
    for (int other = 0; other < 5; ++other) {
        sold();
    }
    crashAndSettle();
    EXPECT_FALSE(archived(sale)->unsettledCardOperation());
    EXPECT_EQ(archived(sale)->getRefunded(), Kopecks{3720});
}

TEST_F(CardPaymentTest, openDocumentWithALostAnswer_isNotNotedAmongTheOthers)
{
    standAtPayment();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::unknown(); };
    terminal->onFind = [](const auto&) { return CardAnswer::busy(); };
    answerQuestion("noButton");
    EXPECT_EQ(payByCard(), EContext::Stop);
    EXPECT_TRUE(till->document()->unsettledCardOperation());
    EXPECT_FALSE(QFile::exists(folder.filePath(u"unsettled"_s)));
}

TEST_F(CardPaymentTest, saleReturnedWhileTheVoidingIsAskedAbout_isNotVoided)
{
    const int sale = soldTwo();
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        EXPECT_TRUE(till->returnSale(archived(1)));
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{3720})}));
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, sale}}), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Документ № 1 изменился, пока касса ждала ответа."_s)) << qPrintable(lastText());
    EXPECT_EQ(archived(sale)->getState(), Document::State::Closed);
    EXPECT_EQ(terminal->count("refund"), 0);
}

TEST_F(CardPaymentTest, saleVoidedWhileItsPositionsAreChosen_isNotReturned)
{
    const int sale = soldTwo();
    cashier.onForm(u"returnForm"_s, [this](QWidget& root) {
        EXPECT_TRUE(till->voidDocument(archived(1)));
        press(root, "returnButton");
    });
    EXPECT_EQ(run(registeraction::returnSale, {{u"number"_s, sale}}), EContext::Stop);
    EXPECT_TRUE(lastText().startsWith(u"Документ № 1 изменился, пока касса ждала ответа."_s)) << qPrintable(lastText());
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(sale)->getState(), Document::State::Voided);
}
