// SPDX-License-Identifier: MIT
#include "storeddocumentcommands.h"
#include "actionhost.h"
#include "commandfixture.h"
#include "dialogdouble.h"
#include "documentwords.h"
#include "formanswer.h"
#include "registeraction.h"
#include "savingdouble.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>

#include <stdexcept>

using namespace Qt::StringLiterals;

class StoredDocumentCommandsTest : public CommandFixture
{
protected:
    StoredDocumentCommandsTest() { documentCommands.offer(controller.object); }

    static QVariantMap number(int number) { return {{u"number"_s, number}}; }
    static QVariantMap carrying(const QSharedPointer<Document>& document)
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
        till->add(article(amoxidar));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->cancel());
        return number;
    }
    /// The closed return of a new sale; its number, one more than the sale's.
    int returned()
    {
        EXPECT_TRUE(till->returnSale(archived(sold())));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
        return number;
    }
    int voided()
    {
        const int number = sold();
        EXPECT_TRUE(till->voidDocument(archived(number)));
        return number;
    }
    /// The only notice that running the action shows.
    QString noticeOf(control::EActionType type, const QVariantMap& arguments)
    {
        const DialogDouble dialog;
        EXPECT_EQ(run(type, arguments), EContext::Stop);
        EXPECT_EQ(dialog.messages().size(), 1);
        if (dialog.messages().size() != 1) {
            return {};
        }
        EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
        return dialog.messages().first().text;
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
    StoredDocumentCommands documentCommands{*till, printer, marks};
};

TEST_F(StoredDocumentCommandsTest, returnIsDamaged_listSaysWhyItsSaleCanNeitherBeReturnedNorVoided)
{
    const int number = returned();
    QFile damaged(folder.filePath(u"finished/%1.json"_s.arg(number, 8, 10, QChar(u'0'))));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("{") == 1);
    damaged.close();
    cashier.onForm(u"documentListForm"_s, [](QWidget& root) {
        EXPECT_TRUE(root.findChild<QLabel*>(u"hintLabel"_s)->text().startsWith(u"Возврат № 2 по чеку № 1 повреждён"_s))
            << qPrintable(root.findChild<QLabel*>(u"hintLabel"_s)->text());
        press(root, "cancelButton");
    });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(StoredDocumentCommandsTest, suspended_suspendsASaleButNoReturn)
{
    EXPECT_EQ(run(registeraction::suspend), EContext::NotFound) << "no receipt is open";
    till->add(article(amoxidar));
    EXPECT_EQ(run(registeraction::suspend), EContext::GoOn);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);

    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_EQ(noticeOf(registeraction::suspend, {}), u"Возврат нельзя отложить: завершите его или отмените."_s);
    EXPECT_TRUE(till->document());
}

TEST_F(StoredDocumentCommandsTest, suspendedThatCannotBeSaved_stops)
{
    till->add(article(amoxidar));
    SavingDouble saving;
    saving.failAll();
    EXPECT_EQ(run(registeraction::suspend), EContext::Stop);
    EXPECT_TRUE(till->document());
}

TEST_F(StoredDocumentCommandsTest, returnByNumberTyped_opensTheReturn)
{
    sold();
    witness.seen.clear();
    typeNumber(u"00000001"_s);
    EXPECT_EQ(run(registeraction::returnSale), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getReturnedSale(), 1);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(StoredDocumentCommandsTest, numberNotGiven_nothingHappens)
{
    sold();
    for (const auto type : {registeraction::returnSale, registeraction::voidByNumber}) {
        cashier.onForm(u"textInputForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
        EXPECT_EQ(run(type), EContext::Stop);
        EXPECT_TRUE(cashier.isDone());
    }
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
}

TEST_F(StoredDocumentCommandsTest, returnOfWhatIsNoClosedSale_isRefused)
{
    const int stopped[] = {suspend(), cancelled(), voided(), returned()};
    for (const int document : stopped) {
        EXPECT_EQ(noticeOf(registeraction::returnSale, number(document)),
                  u"Документ № %1 — не закрытая продажа, его нельзя вернуть.\nПроверьте номер чека."_s.arg(document));
    }
    EXPECT_FALSE(till->document());
}

TEST_F(StoredDocumentCommandsTest, returnOfASaleReturned_namesItsDocument)
{
    const int taker = returned();
    EXPECT_EQ(noticeOf(registeraction::returnSale, number(taker - 1)),
              u"Продажа № %1 уже возвращена документом № %2.\nПроверьте номер чека."_s.arg(taker - 1).arg(taker));
    EXPECT_FALSE(till->document());
}

TEST_F(StoredDocumentCommandsTest, numberOfNoDocument_isShownWithTheNumber)
{
    const QString notFound = u"Документа № 17 нет среди отложенных и завершённых.\nПроверьте номер."_s;
    for (const auto type : {registeraction::returnSale, registeraction::voidByNumber}) {
        EXPECT_EQ(noticeOf(type, number(17)), notFound);
    }
}

TEST_F(StoredDocumentCommandsTest, returnWhileADocumentIsOpen_isRefusedBeforeAskingForTheNumber)
{
    sold();
    till->open();
    const QString finishFirst = u"Сначала завершите или отложите открытый чек № 2."_s;
    EXPECT_EQ(noticeOf(registeraction::returnSale, {}), finishFirst);
    EXPECT_EQ(noticeOf(registeraction::returnSale, number(1)), finishFirst);
    EXPECT_EQ(till->document()->getNumber(), 2);
    EXPECT_EQ(archived(1)->getReturnedBy(), 0);
}

TEST_F(StoredDocumentCommandsTest, returnThatCannotBeSaved_stops)
{
    sold();
    SavingDouble saving;
    saving.failAll();
    EXPECT_EQ(run(registeraction::returnSale, number(1)), EContext::Stop);
    EXPECT_FALSE(till->document());
}

TEST_F(StoredDocumentCommandsTest, voidingByNumber_asksAndVoidsByTheHooks)
{
    const std::pair<int, QString> documents[] = {
        {sold(), u"Аннулировать продажу № 1 на сумму 24,80? Деньги возвращаются покупателю."_s},
        {suspend(), u"Аннулировать отложенный чек № 2 на сумму 12,40?"_s},
    };
    QList<QSharedPointer<AbstractDocument>> hooked;
    addHook(EContext::Idle, control::VoidDocument, [&hooked](const control::Action& voiding) {
        hooked.append(voiding.value(u"document"_s).value<QSharedPointer<AbstractDocument>>());
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
        EXPECT_EQ(run(registeraction::voidByNumber, number(document)), EContext::Stop);
        EXPECT_EQ(question, wording);
        EXPECT_TRUE(hooked.isEmpty());
        EXPECT_EQ(archived(document)->getState(), before);

        typeNumber(QString::number(document));
        cashier.onForm(u"questionForm"_s, answer("yesButton"));
        EXPECT_EQ(run(registeraction::voidByNumber), EContext::GoOn);
        ASSERT_EQ(hooked.size(), 1);
        EXPECT_EQ(hooked.first().dynamicCast<Document>()->getNumber(), document);
        EXPECT_EQ(archived(document)->getState(), Document::State::Voided);
    }
}

TEST_F(StoredDocumentCommandsTest, voidingOfASaleWithoutMoney_saysNothingOfMoney)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setPrice(0.0);
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{0})}));
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::voidByNumber, number(1)), EContext::GoOn);
    EXPECT_EQ(question, u"Аннулировать продажу № 1 на сумму 0,00?"_s);
    EXPECT_EQ(documentwords::voiding(*archived(1), Document::State::Closed), u"Чек № 1 аннулирован"_s);
}

TEST_F(StoredDocumentCommandsTest, voidingOfWhatCannotBeVoided_isRefused)
{
    const int taker = returned();
    const int stopped[] = {cancelled(), voided(), taker, taker - 1};
    for (const int document : stopped) {
        EXPECT_TRUE(noticeOf(registeraction::voidByNumber, number(document))
                        .startsWith(u"Документ № %1 нельзя аннулировать"_s.arg(document)))
            << document;
    }
}

TEST_F(StoredDocumentCommandsTest, voidingOfASaleThatIsBeingReturned_isRefused)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_TRUE(noticeOf(registeraction::voidByNumber, number(1)).startsWith(u"Документ № 1 нельзя аннулировать"_s));
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
    ASSERT_TRUE(till->cancel());
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::voidByNumber, number(1)), EContext::GoOn) << "the return was given up";
}

class Voiding : public StoredDocumentCommandsTest,
                public ::testing::WithParamInterface<std::tuple<EContext::Code, EContext::Result>>
{
protected:
    EContext::Code context() const { return std::get<0>(GetParam()); }
    EContext::Result permission() const { return std::get<1>(GetParam()); }
};

TEST_P(Voiding, documentIsCurrentForTheHooksAndSavedWhateverTheySay)
{
    const int documents[] = {sold(), suspend()};
    if (context() != EContext::Idle) {
        till->open();
    }
    controller.object.host().setContext(context());
    const QString done = u"{\"status\":\"canceled\"}"_s;
    QList<QSharedPointer<AbstractDocument>> currents;
    addHook(context(), control::VoidDocument, [&](const control::Action& voiding) {
        currents.append(current());
        EXPECT_EQ(current(), voiding.value(u"document"_s).value<QSharedPointer<AbstractDocument>>());
        current()->getPosition(1)->setExtendedOptions(done);
        return permission();
    });
    for (const int number : documents) {
        const auto document = archived(number);
        const auto before = document->getState();
        currents.clear();
        witness.seen.clear();
        EXPECT_EQ(run(control::VoidDocument, carrying(document)), permission());
        EXPECT_EQ(currents, QList<QSharedPointer<AbstractDocument>>{document});
        EXPECT_EQ(current(), till->document()) << "the open document is the current one again";
        EXPECT_EQ(till->document().isNull(), context() == EContext::Idle);
        EXPECT_EQ(archived(number)->getState(), permission() == EContext::GoOn ? Document::State::Voided : before);
        EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), done);
        EXPECT_EQ(document->toJson(), archived(number)->toJson());
        EXPECT_TRUE(witness.seen.isEmpty());
    }
}

TEST_P(Voiding, severalHooks_theFirstThatDoesNotGoOnIsTheLast)
{
    const auto document = archived(sold());
    controller.object.host().setContext(context());
    int later = 0;
    addHook(context(), control::VoidDocument, [this](const control::Action&) { return permission(); });
    addHook(context(), control::VoidDocument, [&later](const control::Action&) {
        ++later;
        return EContext::GoOn;
    });
    EXPECT_EQ(run(control::VoidDocument, carrying(document)), permission());
    EXPECT_EQ(later, permission() == EContext::GoOn ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(ContextsAndResults, Voiding,
                         ::testing::Combine(::testing::Values(EContext::Idle, EContext::OpenDocument,
                                                              EContext::StoredDocuments),
                                            ::testing::Values(EContext::Stop, EContext::NotFound, EContext::GoOn)),
                         [](const auto& tested) {
                             return "context" + std::to_string(std::get<0>(tested.param)) + "result" +
                                    std::to_string(std::get<1>(tested.param));
                         });

TEST_F(StoredDocumentCommandsTest, voidingOfAnythingElse_isNotFoundAndNoHookRuns)
{
    const auto closed = archived(sold());
    const auto cancelledOne = archived(cancelled());
    till->add(article(amoxidar));
    int hooks = 0;
    addHook(EContext::OpenDocument, control::VoidDocument, [&hooks](const control::Action&) {
        ++hooks;
        return EContext::GoOn;
    });
    const QVariantMap arguments[] = {{},
                                     {{u"document"_s, 5}},
                                     {{u"document"_s, QVariant::fromValue(closed)}},
                                     carrying(nullptr),
                                     carrying(till->document()),
                                     carrying(cancelledOne)};
    for (const QVariantMap& argument : arguments) {
        EXPECT_EQ(run(control::VoidDocument, argument), EContext::NotFound);
    }
    EXPECT_EQ(hooks, 0);
    EXPECT_EQ(till->document()->getState(), Document::State::Open);
    EXPECT_EQ(current(), till->document());
}

TEST_F(StoredDocumentCommandsTest, voidingThatCannotBeSaved_stopsAndTheDocumentStays)
{
    const auto document = archived(suspend());
    till->open();
    {
        SavingDouble saving;
        saving.failAll();
        EXPECT_EQ(run(control::VoidDocument, carrying(document)), EContext::Stop);
        EXPECT_EQ(saving.files, QStringList{u"finished/00000001.json"_s});
    }
    EXPECT_EQ(document->getState(), Document::State::Suspended);
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
    EXPECT_EQ(current(), till->document());
}

TEST_F(StoredDocumentCommandsTest, hookThrows_isShownAndCountsAsStop)
{
    const auto document = archived(sold());
    till->open();
    addHook(EContext::OpenDocument, control::VoidDocument, [this](const control::Action&) -> EContext::Result {
        current()->getPosition(1)->setExtendedOptions(u"{\"half\":1}"_s);
        throw std::runtime_error("lost");
    });
    const DialogDouble dialog;
    EXPECT_EQ(run(control::VoidDocument, carrying(document)), EContext::Stop);
    EXPECT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
    EXPECT_EQ(archived(1)->position(1)->getExtendedOptions(), u"{\"half\":1}"_s);
    EXPECT_EQ(current(), till->document());
}

TEST_F(StoredDocumentCommandsTest, hookOfVoidingChangesStoredDocuments_stopsAndTheVoidingGoesOn)
{
    const auto document = archived(sold());
    for (const auto type : {registeraction::returnSale, registeraction::voidByNumber, registeraction::showDocuments}) {
        addHook(EContext::Idle, control::VoidDocument, [this, type](const control::Action&) {
            control::Action inner(type);
            inner.insert(u"number"_s, 1);
            EXPECT_EQ(controller.object.execute(inner), EContext::Stop) << type;
            return EContext::GoOn;
        });
    }
    EXPECT_EQ(run(control::VoidDocument, carrying(document)), EContext::GoOn);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
}

TEST_F(StoredDocumentCommandsTest, hookOfVoidingVoidsTheSame_isNotFoundAndTheVoidingGoesOn)
{
    const auto document = archived(sold());
    addHook(EContext::Idle, control::VoidDocument, [this, document](const control::Action& carried) {
        control::Action again = carried;
        EXPECT_EQ(controller.object.execute(again), EContext::NotFound);
        return EContext::GoOn;
    });
    EXPECT_EQ(run(control::VoidDocument, carrying(document)), EContext::GoOn);
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
}

class DocumentList : public StoredDocumentCommandsTest
{
protected:
    /// Does something once the list of documents is shown.
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
    EXPECT_FALSE(till->document());
}

TEST_F(DocumentList, documentChosen_isResumedOrReturned)
{
    sold();
    suspend();
    inTheList([](QWidget& root) { choose(root, 0), press(root, "takeUpButton"); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 2);
    till->cancel();
    inTheList([](QWidget& root) { choose(root, 1), press(root, "takeBackButton"); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getReturnedSale(), 1);
}

TEST_F(DocumentList, resumingWhileADocumentIsOpen_isRefused)
{
    suspend();
    till->open();
    const DialogDouble dialog;
    inTheList([](QWidget&) { answerForm(u"resume"_s, 1); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text, u"Сначала завершите или отложите открытый чек № 2."_s);
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
}

TEST_F(DocumentList, resumingADocumentThatIsGone_isShown)
{
    sold();
    const DialogDouble dialog;
    inTheList([](QWidget&) { answerForm(u"resume"_s, 9); });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text, u"Документа № 9 нет среди отложенных и завершённых.\nПроверьте номер."_s);
    EXPECT_FALSE(till->document());
}

TEST_F(DocumentList, voidedThere_theHooksOfStoredDocumentsRunAndTheListStays)
{
    sold();
    till->open();
    int hooks = 0;
    addHook(EContext::StoredDocuments, control::VoidDocument, [&](const control::Action&) {
        ++hooks;
        EXPECT_EQ(current().dynamicCast<Document>()->getNumber(), 1);
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
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
    EXPECT_EQ(current(), till->document());
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
