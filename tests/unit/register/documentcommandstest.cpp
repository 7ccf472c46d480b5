// SPDX-License-Identifier: MIT
#include "documentcommands.h"
#include "commandtill.h"
#include "documentwords.h"
#include "formanswer.h"
#include "registeraction.h"
#include "saves.h"
#include "shownmessages.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>

#include <stdexcept>

using namespace Qt::StringLiterals;

class DocumentCommandsTest : public CommandTill
{
protected:
    DocumentCommandsTest() { documentCommands.offer(controller.object); }

    static QVariantMap number(int number) { return {{u"number"_s, number}}; }
    static QVariantMap carrying(const QSharedPointer<Receipt>& document)
    {
        return {{u"document"_s, QVariant::fromValue(document.staticCast<AbstractDocument>())}};
    }
    /// Has the cashier type a document's number.
    void typeNumber(const QString& text)
    {
        cashier.onForm(u"textInputForm"_s, [text](QWidget& root) {
            root.findChild<QLineEdit*>(u"inputLineEdit"_s)->setText(text);
            press(root, "okButton");
        });
    }
    /// A document that was cancelled; its number.
    int cancelled()
    {
        sale->add(article(amoxidar));
        const int number = sale->receipt()->getNumber();
        EXPECT_TRUE(sale->cancel());
        return number;
    }
    /// The closed cancelling document of a new sale; its number, one more than the sale's.
    int takenBack()
    {
        EXPECT_TRUE(sale->takeBack(archived(sold())));
        const int number = sale->receipt()->getNumber();
        EXPECT_TRUE(sale->close(sale->receipt()->getSum()));
        return number;
    }
    int annulled()
    {
        const int number = sold();
        EXPECT_TRUE(sale->annul(archived(number)));
        return number;
    }
    /// The only notice that running the action shows.
    QString noticeOf(control::EActionType type, const QVariantMap& arguments)
    {
        const ShownMessages messages;
        EXPECT_EQ(run(type, arguments), EContext::Stop);
        EXPECT_EQ(messages.all().size(), 1);
        if (messages.all().size() != 1) {
            return {};
        }
        EXPECT_EQ(messages.all().first().kind, Dialog::Notice);
        return messages.all().first().text;
    }
    QSharedPointer<AbstractDocument> current() const
    {
        struct Current : DocumentWatcher {
            QSharedPointer<AbstractDocument> document() const { return getDocument(); }
        };
        return Current().document();
    }

    PositionMarks marks;
    ReceiptPrinter printer{folder.path(), marks};
    DocumentCommands documentCommands{*sale, printer, marks};
};

TEST_F(DocumentCommandsTest, putAside_putsTheReceiptAsideButNoCancellingDocument)
{
    EXPECT_EQ(run(registeraction::putAside), EContext::NotFound) << "no receipt is open";
    sale->add(article(amoxidar));
    EXPECT_EQ(run(registeraction::putAside), EContext::GoOn);
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::PutAside);

    ASSERT_TRUE(sale->takeBack(archived(sold())));
    EXPECT_EQ(noticeOf(registeraction::putAside, {}), u"Возврат нельзя отложить: завершите его или отмените."_s);
    EXPECT_TRUE(sale->receipt());
}

TEST_F(DocumentCommandsTest, putAsideThatCannotBeSaved_stops)
{
    sale->add(article(amoxidar));
    Saves saves;
    saves.failAll();
    EXPECT_EQ(run(registeraction::putAside), EContext::Stop);
    EXPECT_TRUE(sale->receipt());
}

TEST_F(DocumentCommandsTest, takeBackByNumberTyped_opensTheCancellingDocument)
{
    sold();
    witness.seen.clear();
    typeNumber(u"00000001"_s);
    EXPECT_EQ(run(registeraction::takeBack), EContext::GoOn);
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getTakesBack(), 1);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(DocumentCommandsTest, numberNotGiven_nothingHappens)
{
    sold();
    for (const auto type : {registeraction::takeBack, registeraction::annulByNumber}) {
        cashier.onForm(u"textInputForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
        EXPECT_EQ(run(type), EContext::Stop);
        EXPECT_TRUE(cashier.isDone());
    }
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
}

TEST_F(DocumentCommandsTest, takeBackOfWhatIsNoClosedSale_isRefused)
{
    const int refused[] = {putAside(), cancelled(), annulled(), takenBack()};
    for (const int document : refused) {
        EXPECT_EQ(noticeOf(registeraction::takeBack, number(document)),
                  u"Документ № %1 — не закрытая продажа, его нельзя вернуть."_s.arg(document));
    }
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentCommandsTest, takeBackOfASaleTakenBack_namesItsDocument)
{
    const int taker = takenBack();
    EXPECT_EQ(noticeOf(registeraction::takeBack, number(taker - 1)),
              u"Продажа № %1 уже возвращена документом № %2."_s.arg(taker - 1).arg(taker));
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentCommandsTest, numberOfNoDocument_isToldWithTheNumber)
{
    const QString notFound = u"Документа № 17 нет среди отложенных и завершённых.\nПроверьте номер."_s;
    for (const auto type : {registeraction::takeBack, registeraction::annulByNumber}) {
        EXPECT_EQ(noticeOf(type, number(17)), notFound);
    }
}

TEST_F(DocumentCommandsTest, takeBackWhileAReceiptIsOpen_isRefusedBeforeAskingForTheNumber)
{
    sold();
    sale->open();
    const QString finishFirst = u"Сначала завершите или отложите открытый чек № 2."_s;
    EXPECT_EQ(noticeOf(registeraction::takeBack, {}), finishFirst);
    EXPECT_EQ(noticeOf(registeraction::takeBack, number(1)), finishFirst);
    EXPECT_EQ(sale->receipt()->getNumber(), 2);
    EXPECT_EQ(archived(1)->getTakenBackBy(), 0);
}

TEST_F(DocumentCommandsTest, takeBackThatCannotBeSaved_stops)
{
    sold();
    Saves saves;
    saves.failAll();
    EXPECT_EQ(run(registeraction::takeBack, number(1)), EContext::Stop);
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentCommandsTest, annulmentByNumber_asksAndAnnulsByTheHooks)
{
    const std::pair<int, QString> documents[] = {
        {sold(), u"Аннулировать продажу № 1 на сумму 24,80? Деньги возвращаются покупателю."_s},
        {putAside(), u"Аннулировать отложенный чек № 2 на сумму 12,40?"_s},
    };
    QList<QSharedPointer<AbstractDocument>> hooked;
    addHook(EContext::Idle, control::AnnulDocument, [&hooked](const control::Action& annulment) {
        hooked.append(annulment.value(u"document"_s).value<QSharedPointer<AbstractDocument>>());
        return EContext::GoOn;
    });
    for (const auto& [document, wording] : documents) {
        const auto before = archived(document)->getState();
        QString question;
        const auto answer = [&question](const char* button) {
            return [&question, button](QWidget& root) {
                question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
                press(root, button);
            };
        };
        hooked.clear();
        cashier.onForm(u"questionForm"_s, answer("noButton"));
        EXPECT_EQ(run(registeraction::annulByNumber, number(document)), EContext::Stop);
        EXPECT_EQ(question, wording);
        EXPECT_TRUE(hooked.isEmpty());
        EXPECT_EQ(archived(document)->getState(), before);

        typeNumber(QString::number(document));
        cashier.onForm(u"questionForm"_s, answer("yesButton"));
        EXPECT_EQ(run(registeraction::annulByNumber), EContext::GoOn);
        ASSERT_EQ(hooked.size(), 1);
        EXPECT_EQ(hooked.first().dynamicCast<Receipt>()->getNumber(), document);
        EXPECT_EQ(archived(document)->getState(), Receipt::State::Annulled);
    }
}

TEST_F(DocumentCommandsTest, annulmentOfASaleWithoutMoney_saysNothingOfMoney)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setPrice(0.0);
    ASSERT_TRUE(sale->close(0));
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::annulByNumber, number(1)), EContext::GoOn);
    EXPECT_EQ(question, u"Аннулировать продажу № 1 на сумму 0,00?"_s);
    EXPECT_EQ(documentwords::annulment(*archived(1), Receipt::State::Closed), u"Чек № 1 аннулирован"_s);
}

TEST_F(DocumentCommandsTest, annulmentOfWhatCannotBeAnnulled_isRefused)
{
    const int taker = takenBack();
    const int refused[] = {cancelled(), annulled(), taker, taker - 1};
    for (const int document : refused) {
        EXPECT_TRUE(noticeOf(registeraction::annulByNumber, number(document))
                        .startsWith(u"Документ № %1 нельзя аннулировать"_s.arg(document)))
            << document;
    }
}

TEST_F(DocumentCommandsTest, annulmentOfASaleThatIsBeingTakenBack_isRefused)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    EXPECT_TRUE(noticeOf(registeraction::annulByNumber, number(1)).startsWith(u"Документ № 1 нельзя аннулировать"_s));
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
    ASSERT_TRUE(sale->cancel());
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::annulByNumber, number(1)), EContext::GoOn) << "the cancelling document was given up";
}

class Annulment : public DocumentCommandsTest,
                  public ::testing::WithParamInterface<std::tuple<EContext::Code, EContext::Result>>
{
protected:
    EContext::Code context() const { return std::get<0>(GetParam()); }
    EContext::Result permission() const { return std::get<1>(GetParam()); }
};

TEST_P(Annulment, documentIsCurrentForTheHooksAndSavedWhateverTheySay)
{
    const int documents[] = {sold(), putAside()};
    if (context() != EContext::Idle) {
        sale->open();
    }
    controller.object.setContext(context());
    const QString done = u"{\"status\":\"canceled\"}"_s;
    QList<QSharedPointer<AbstractDocument>> currents;
    addHook(context(), control::AnnulDocument, [&](const control::Action& annulment) {
        currents.append(current());
        EXPECT_EQ(current(), annulment.value(u"document"_s).value<QSharedPointer<AbstractDocument>>());
        current()->getPosition(1)->setExtendedOptions(done);
        return permission();
    });
    for (const int number : documents) {
        const auto document = archived(number);
        const auto before = document->getState();
        currents.clear();
        witness.seen.clear();
        EXPECT_EQ(run(control::AnnulDocument, carrying(document)), permission());
        EXPECT_EQ(currents, QList<QSharedPointer<AbstractDocument>>{document});
        EXPECT_EQ(current(), sale->receipt()) << "the open receipt is the current one again";
        EXPECT_EQ(sale->receipt().isNull(), context() == EContext::Idle);
        EXPECT_EQ(archived(number)->getState(), permission() == EContext::GoOn ? Receipt::State::Annulled : before);
        EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), done);
        EXPECT_EQ(document->toJson(), archived(number)->toJson());
        EXPECT_TRUE(witness.seen.isEmpty());
    }
}

TEST_P(Annulment, severalHooks_theFirstThatDoesNotGoOnIsTheLast)
{
    const auto document = archived(sold());
    controller.object.setContext(context());
    int later = 0;
    addHook(context(), control::AnnulDocument, [this](const control::Action&) { return permission(); });
    addHook(context(), control::AnnulDocument, [&later](const control::Action&) {
        ++later;
        return EContext::GoOn;
    });
    EXPECT_EQ(run(control::AnnulDocument, carrying(document)), permission());
    EXPECT_EQ(later, permission() == EContext::GoOn ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(ContextsAndResults, Annulment,
                         ::testing::Combine(::testing::Values(EContext::Idle, EContext::OpenReceipt,
                                                              EContext::StoredDocuments),
                                            ::testing::Values(EContext::Stop, EContext::NotFound, EContext::GoOn)),
                         [](const auto& tested) {
                             return "context" + std::to_string(std::get<0>(tested.param)) + "result" +
                                    std::to_string(std::get<1>(tested.param));
                         });

TEST_F(DocumentCommandsTest, annulmentOfAnythingElse_isNotFoundAndNoHookRuns)
{
    const auto closed = archived(sold());
    const auto cancelledOne = archived(cancelled());
    sale->add(article(amoxidar));
    int hooks = 0;
    addHook(EContext::OpenReceipt, control::AnnulDocument, [&hooks](const control::Action&) {
        ++hooks;
        return EContext::GoOn;
    });
    const QVariantMap arguments[] = {{},
                                     {{u"document"_s, 5}},
                                     {{u"document"_s, QVariant::fromValue(closed)}},
                                     carrying(nullptr),
                                     carrying(sale->receipt()),
                                     carrying(cancelledOne)};
    for (const QVariantMap& argument : arguments) {
        EXPECT_EQ(run(control::AnnulDocument, argument), EContext::NotFound);
    }
    EXPECT_EQ(hooks, 0);
    EXPECT_EQ(sale->receipt()->getState(), Receipt::State::Open);
    EXPECT_EQ(current(), sale->receipt());
}

TEST_F(DocumentCommandsTest, annulmentThatCannotBeSaved_stopsAndTheDocumentStays)
{
    const auto document = archived(putAside());
    sale->open();
    {
        Saves saves;
        saves.failAll();
        EXPECT_EQ(run(control::AnnulDocument, carrying(document)), EContext::Stop);
        EXPECT_EQ(saves.files, QStringList{u"finished/00000001.json"_s});
    }
    EXPECT_EQ(document->getState(), Receipt::State::PutAside);
    EXPECT_EQ(archived(1)->getState(), Receipt::State::PutAside);
    EXPECT_EQ(current(), sale->receipt());
}

TEST_F(DocumentCommandsTest, hookThrows_isToldAndCountsAsStop)
{
    const auto document = archived(sold());
    sale->open();
    addHook(EContext::OpenReceipt, control::AnnulDocument, [this](const control::Action&) -> EContext::Result {
        current()->getPosition(1)->setExtendedOptions(u"{\"half\":1}"_s);
        throw std::runtime_error("lost");
    });
    const ShownMessages messages;
    EXPECT_EQ(run(control::AnnulDocument, carrying(document)), EContext::Stop);
    EXPECT_EQ(messages.all().size(), 1);
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
    EXPECT_EQ(archived(1)->position(1)->getExtendedOptions(), u"{\"half\":1}"_s);
    EXPECT_EQ(current(), sale->receipt());
}

class DocumentList : public DocumentCommandsTest
{
protected:
    /// Does something once the list of documents stands.
    void inTheList(const Cashier::Act& act) { cashier.onForm(u"documentListForm"_s, act); }
    static void choose(QWidget& root, int row)
    {
        auto* table = root.findChild<QAbstractItemView*>(u"documentTable"_s);
        table->setCurrentIndex(table->model()->index(row, 0));
    }
};

TEST_F(DocumentList, left_changesNothing)
{
    sold();
    inTheList([](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentList, documentChosen_isTakenUpOrTakenBack)
{
    sold();
    putAside();
    inTheList([](QWidget& root) { choose(root, 0), press(root, "takeUpButton"); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getNumber(), 2);
    sale->cancel();
    inTheList([](QWidget& root) { choose(root, 1), press(root, "takeBackButton"); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getTakesBack(), 1);
}

TEST_F(DocumentList, takingUpWhileAReceiptIsOpen_isRefused)
{
    putAside();
    sale->open();
    const ShownMessages messages;
    inTheList([](QWidget&) { answerForm(u"takeUp"_s, 1); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().text, u"Сначала завершите или отложите открытый чек № 2."_s);
    EXPECT_EQ(archived(1)->getState(), Receipt::State::PutAside);
}

TEST_F(DocumentList, takingUpADocumentThatIsGone_isTold)
{
    sold();
    const ShownMessages messages;
    inTheList([](QWidget&) { answerForm(u"takeUp"_s, 9); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().text, u"Документа № 9 нет среди отложенных и завершённых.\nПроверьте номер."_s);
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentList, annulledThere_theHooksOfStoredDocumentsRunAndTheListStays)
{
    sold();
    sale->open();
    int hooks = 0;
    addHook(EContext::StoredDocuments, control::AnnulDocument, [&](const control::Action&) {
        ++hooks;
        EXPECT_EQ(current().dynamicCast<Receipt>()->getNumber(), 1);
        return EContext::GoOn;
    });
    inTheList([this](QWidget& root) {
        answerQuestion("yesButton");
        choose(root, 0);
        press(root, "annulButton");
        inTheList([](QWidget& again) { press(again, "cancelButton"); });
    });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_EQ(hooks, 1);
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Annulled);
    EXPECT_EQ(current(), sale->receipt());
}

TEST_F(DocumentList, printedThere_aCopyIsPrinted)
{
    sold();
    inTheList([](QWidget& root) {
        choose(root, 0);
        press(root, "printButton");
        press(root, "cancelButton");
    });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"printed/00000001.txt"_s)));
}
