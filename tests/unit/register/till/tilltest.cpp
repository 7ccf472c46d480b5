// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "dialogdouble.h"
#include "registeraction.h"
#include "requestjournal.h"
#include "savingdouble.h"
#include "tillfixture.h"

#include <QDir>
#include <QJsonArray>
#include <QTest>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// The disk takes sales and no return.
bool saveAllButReturns(const QSharedPointer<AbstractDocument>& document, const QString&,
                       const SavingDouble::Write& write)
{
    return document->getType() != AbstractDocument::Return && write();
}

} // namespace

class TillTest : public TillFixture
{
protected:
    OpenDocumentFile::Loaded saved() const { return OpenDocumentFile(folder.path()).load(); }
};

TEST_F(TillTest, opened_isCurrentAndSavedBeforeEvent10)
{
    till->open();
    ASSERT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(witness.seen.first().current, till->document());
    EXPECT_EQ(witness.seen.first().context, EContext::OpenDocument);
    EXPECT_EQ(savedDocument().value(u"number"_s).toInt(), 1);
}

TEST_F(TillTest, openedTwice_staysTheSame)
{
    till->open();
    const auto document = till->document();
    till->open();
    EXPECT_EQ(till->document(), document);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(TillTest, firstGoods_openTheDocument)
{
    EXPECT_EQ(till->add(article(amoxidar, 2)), 1);
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(till->document()->getSum(), Kopecks{2480});
    const QJsonObject position = savedDocument().value(u"positions"_s).toArray().at(0).toObject();
    EXPECT_EQ(position.value(u"quantity"_s).toDouble(), 2.0);
    EXPECT_EQ(position.value(u"tmcPrice"_s).toDouble(), 12.9);
    EXPECT_EQ(position.value(u"minRetailPrice"_s).toDouble(), 1.2);
    EXPECT_EQ(position.value(u"barcode"_s).toString(), amoxidar);
}

TEST_F(TillTest, packsOfAnExternalPosition_stay)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    till->setPacks(1, 5);
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 1.0);
}

TEST_F(TillTest, packsAndRemoval_areSaved)
{
    till->add(article(amoxidar));
    till->add(article(amoxidar));
    till->setPacks(2, 5);
    EXPECT_EQ(savedDocument().value(u"sum"_s).toDouble(), 74.4);
    till->remove(1);
    EXPECT_EQ(savedDocument().value(u"positions"_s).toArray().size(), 1);
    till->remove(17);
    till->setPacks(17, 3);
    EXPECT_EQ(savedDocument().value(u"sum"_s).toDouble(), 62.0);
}

TEST_F(TillTest, recalculation_reachesTheScreens)
{
    till->add(article(amoxidar));
    int changes = 0;
    QObject::connect(till.get(), &Till::changed, [&changes] { ++changes; });
    Singleton<LoyaltySystemLayer>::get()->recalculate(till->document());
    EXPECT_EQ(changes, 1);
}

TEST_F(TillTest, restored_isOnTheScreensBeforePluginsHearOfIt)
{
    till->add(article(amoxidar));
    Till again(folder.path());
    qsizetype eventsBefore = -1;
    QObject::connect(&again, &Till::changed, [&] {
        if (eventsBefore < 0) {
            EXPECT_TRUE(again.document());
            eventsBefore = witness.seen.size();
        }
    });
    witness.seen.clear();
    again.restore(saved());
    EXPECT_EQ(eventsBefore, 0);
    EXPECT_EQ(witness.codes(), QList<int>{17});
}

TEST_F(TillTest, restored_isCurrentAndSendsItsEvent17Alone)
{
    till->add(article(amoxidar));
    till->document()->setPluginValue(u"P"_s, u"card"_s, u"42"_s);
    till->setPacks(1, 3);
    const QJsonObject before = till->document()->toJson();
    DocumentWatcher::setCurrentDocument(nullptr);
    witness.seen.clear();

    Till again(folder.path());
    again.restore(saved());
    ASSERT_EQ(witness.codes(), QList<int>{17});
    const Witness::Seen& seen = witness.seen.first();
    EXPECT_EQ(seen.context, EContext::OpenDocument);
    EXPECT_EQ(seen.document.metaType(), QMetaType::fromType<QSharedPointer<AbstractDocument>>());
    EXPECT_EQ(seen.document.value<QSharedPointer<AbstractDocument>>(), seen.current);
    EXPECT_EQ(seen.current, again.document());
    EXPECT_EQ(again.document()->toJson(), before);
}

TEST_F(TillTest, nothingToRestore_nothingIsShown)
{
    till->restore(saved());
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_FALSE(till->document());
    EXPECT_EQ(controller.object.context(), EContext::Idle);
}

TEST_F(TillTest, damagedDocument_isShownAndANewOneTakesAnotherNumber)
{
    till->open();
    QFile file(folder.filePath(u"receipt.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": 1, ");
    file.close();
    const DialogDouble dialog;

    Till again(folder.path());
    again.restore(saved());
    EXPECT_FALSE(again.document());
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Error);
    EXPECT_TRUE(dialog.messages().first().text.contains(u"receipt.json.damaged-"_s));
    again.open();
    EXPECT_EQ(again.document()->getNumber(), 2);
    EXPECT_EQ(QDir(folder.path()).entryList({u"receipt.json.damaged-*"_s}).size(), 1);
}

/// What the open document becomes.
class DocumentChanges : public TillTest
{
protected:
    /// Throws, which fails the test, when there is none.
    QSharedPointer<Document> archived(int number) const
    {
        auto document = till->archive().find(number);
        if (!document) {
            throw std::out_of_range("no document " + std::to_string(number));
        }
        return document;
    }
    bool isOpenSaved() const { return QFile::exists(folder.filePath(u"receipt.json"_s)); }
    /// Sells an article; the number of the sale.
    int sold() const
    {
        till->add(article(amoxidar, 2));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
        return number;
    }
    /// Opens the return of a sale.
    QSharedPointer<Document> returning(int number)
    {
        EXPECT_TRUE(till->returnSale(archived(number)));
        witness.seen.clear();
        return till->document();
    }
    static void setStatus(const Document& document, const char* status)
    {
        document.position(1)->setExtendedOptions(u"{\"status\":\"%1\"}"_s.arg(QLatin1StringView(status)));
    }
    /// One event was sent, with that document as the current one.
    void expectEvent(int event, const QSharedPointer<Document>& current) const
    {
        ASSERT_EQ(witness.codes(), QList<int>{event});
        EXPECT_EQ(witness.seen.first().current, current);
        EXPECT_EQ(witness.seen.first().context, EContext::OpenDocument);
    }
    void expectNothingOpen() const
    {
        EXPECT_FALSE(till->document());
        EXPECT_FALSE(Current().document());
        EXPECT_EQ(controller.object.context(), EContext::Idle);
        EXPECT_EQ(till->phase(), Till::Phase::Positions);
        EXPECT_FALSE(isOpenSaved());
    }
    /// `change` fails when nothing can be saved, and leaves the open document as it is.
    void expectNothingChanged(const std::function<bool()>& change)
    {
        const auto open = till->document();
        const QJsonObject before = open ? open->toJson() : QJsonObject();
        const QJsonObject savedBefore = savedDocument();
        const EContext::Code context = controller.object.context();
        witness.seen.clear();
        int changes = 0;
        const auto counting = QObject::connect(till.get(), &Till::changed, [&changes] { ++changes; });
        {
            SavingDouble saving;
            saving.failAll();
            EXPECT_FALSE(change());
            EXPECT_FALSE(saving.files.isEmpty()) << "it was tried";
        }
        QObject::disconnect(counting);
        EXPECT_EQ(till->document(), open);
        EXPECT_EQ(Current().document(), open);
        EXPECT_EQ(open ? open->toJson() : QJsonObject(), before);
        EXPECT_EQ(savedDocument(), savedBefore);
        EXPECT_EQ(controller.object.context(), context);
        EXPECT_TRUE(witness.seen.isEmpty());
        EXPECT_EQ(changes, 0);
        EXPECT_EQ(m_printed, QList<int>());
    }
    void countPrinting()
    {
        till->setPrinting([this](const Document& document) { m_printed.append(document.getNumber()); });
    }

    struct Current : DocumentWatcher {
        QSharedPointer<AbstractDocument> document() const { return getDocument(); }
    };

    QList<int> m_printed;
};

TEST_F(DocumentChanges, closed_isFinishedPrintedAndShownWhileItIsCurrent)
{
    till->add(article(amoxidar, 2));
    till->setPhase(Till::Phase::Payment);
    const auto document = till->document();
    witness.seen.clear();
    QStringList steps;
    till->setPrinting([&](const Document& printed) {
        EXPECT_EQ(&printed, document.get());
        EXPECT_EQ(archived(1)->toJson(), printed.toJson()) << "saved before it is printed";
        EXPECT_TRUE(witness.seen.isEmpty()) << "printed before it is told";
        steps.append(u"printed"_s);
    });
    QObject::connect(till.get(), &Till::changed, [&] { steps.append(u"changed"_s); });
    EXPECT_TRUE(till->close({Payment::cash(Kopecks{3000})}));
    expectEvent(12, document);
    expectNothingOpen();
    EXPECT_EQ(steps, (QStringList{u"printed"_s, u"changed"_s}));
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
    EXPECT_EQ(archived(1)->getReceived(), Kopecks{3000});
    EXPECT_EQ(archived(1)->getChange(), Kopecks{520});
    EXPECT_TRUE(archived(1)->getFinished().isValid());
}

TEST_F(DocumentChanges, clockSetBackBeforeEachSale_theLatestIsLastClosedAcrossARestart)
{
    ClockDouble clock(QDateTime({2024, 2, 29}, {12, 30}));
    for (int i = 0; i < 3; ++i) {
        sold();
        clock.now = clock.now.addDays(-1);
        EXPECT_EQ(till->archive().lastClosed()->getNumber(), i + 1);
    }
    EXPECT_EQ(archived(3)->ending().closing, 3);
    till->add(article(amoxidar));
    till->cancel();
    EXPECT_EQ(archived(4)->ending().closing, 0);

    Till again(folder.path());
    again.restore(saved());
    again.add(article(amoxidar));
    EXPECT_TRUE(again.close({Payment::cash(Kopecks{1240})}));
    const auto last = again.archive().lastClosed();
    EXPECT_EQ(last->getNumber(), 5);
    EXPECT_EQ(last->ending().closing, 4);
}

TEST_F(DocumentChanges, oldDocumentClosedLast_isLastClosedAndTheCountGoesOnAcrossARestart)
{
    till->add(article(amoxidar));
    ASSERT_TRUE(till->suspend());
    for (int number = 2; number <= 102; ++number) {
        auto cancelled = QSharedPointer<Document>::create(number, QDateTime({2024, 2, 29}, {12, 0}));
        cancelled->setEnding({.state = Document::State::Cancelled, .finished = cancelled->getOpened()});
        ASSERT_TRUE(till->archive().saveOrShow(cancelled));
    }
    ASSERT_TRUE(till->resume(archived(1)));
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
    EXPECT_EQ(archived(1)->ending().closing, 1);

    Till again(folder.path());
    again.restore(saved());
    ASSERT_TRUE(again.archive().lastClosed());
    EXPECT_EQ(again.archive().lastClosed()->getNumber(), 1);
    again.add(article(amoxidar));
    EXPECT_TRUE(again.close({Payment::cash(Kopecks{1240})}));
    EXPECT_EQ(again.archive().lastClosed()->getNumber(), 103);
    EXPECT_EQ(again.archive().lastClosed()->ending().closing, 2);
}

TEST_F(DocumentChanges, closingCouldNotBeSaved_itsCountIsLeftOutAcrossARestart)
{
    sold();
    till->add(article(amoxidar));
    {
        SavingDouble saving;
        saving.failAll();
        EXPECT_FALSE(till->close({Payment::cash(Kopecks{5000})}));
    }
    EXPECT_EQ(till->archive().lastClosed()->getNumber(), 1);
    Till again(folder.path());
    again.restore(saved());
    EXPECT_TRUE(again.close({Payment::cash(Kopecks{5000})}));
    EXPECT_EQ(again.archive().lastClosed()->getNumber(), 2);
    EXPECT_EQ(again.archive().lastClosed()->ending().closing, 3);
}

TEST_F(DocumentChanges, tooLittleMoney_doesNotClose)
{
    EXPECT_FALSE(till->close({Payment::cash(Kopecks{5000})})) << "nothing is open";
    till->add(article(amoxidar, 2));
    EXPECT_FALSE(till->close({Payment::cash(Kopecks{2479})}));
    EXPECT_TRUE(till->document());
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_TRUE(till->close({Payment::cash(Kopecks{2480})}));
    EXPECT_EQ(archived(1)->getChange(), Kopecks{0});
}

TEST_F(DocumentChanges, cancelled_isFinishedAndShownWhileItIsCurrentAndNotPrinted)
{
    EXPECT_FALSE(till->cancel()) << "nothing is open";
    countPrinting();
    till->add(article(amoxidar));
    const auto document = till->document();
    witness.seen.clear();
    EXPECT_TRUE(till->cancel());
    expectEvent(22, document);
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
    EXPECT_EQ(archived(1)->positions().size(), 1);
    EXPECT_TRUE(m_printed.isEmpty());
}

TEST_F(DocumentChanges, suspended_sendsNoEvent)
{
    EXPECT_FALSE(till->suspend()) << "nothing is open";
    till->add(article(amoxidar));
    witness.seen.clear();
    EXPECT_TRUE(till->suspend());
    EXPECT_TRUE(witness.seen.isEmpty());
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
}

TEST_F(DocumentChanges, resumed_isCurrentAndSendsItsEvent17Alone)
{
    till->add(article(amoxidar));
    till->suspend();
    witness.seen.clear();
    const auto document = archived(1);
    EXPECT_TRUE(till->resume(document));
    expectEvent(17, document);
    EXPECT_EQ(witness.seen.first().document.value<QSharedPointer<AbstractDocument>>(), document);
    EXPECT_EQ(witness.seen.first().document.metaType(), QMetaType::fromType<QSharedPointer<AbstractDocument>>());
    EXPECT_EQ(till->document(), document);
    EXPECT_EQ(document->getState(), Document::State::Open);
    EXPECT_EQ(savedDocument(), document->toJson());
    EXPECT_FALSE(till->archive().find(1));
}

TEST_F(DocumentChanges, resuming_isRefusedForWhatIsNotSuspendedAndWhileADocumentIsOpen)
{
    EXPECT_FALSE(till->resume(nullptr));
    EXPECT_FALSE(till->resume(archived(sold())));
    till->add(article(amoxidar));
    till->suspend();
    till->open();
    EXPECT_FALSE(till->resume(archived(2)));
    EXPECT_EQ(archived(2)->getState(), Document::State::Suspended);
    EXPECT_EQ(till->document()->getNumber(), 3);
}

TEST_F(DocumentChanges, returned_returnDocumentIsOpenedAndSendsItsEvent10)
{
    const int number = sold();
    witness.seen.clear();
    EXPECT_TRUE(till->returnSale(archived(number)));
    const auto document = till->document();
    ASSERT_TRUE(document);
    expectEvent(10, document);
    EXPECT_EQ(document->getType(), 25);
    EXPECT_EQ(document->getNumber(), 2);
    EXPECT_EQ(document->getReturnedSale(), number);
    EXPECT_EQ(savedDocument(), document->toJson());
    EXPECT_EQ(archived(number)->getReturnedBy(), 2);
    EXPECT_EQ(till->archive().returned(*archived(number), document), Document::Returned::Wholly);
}

TEST_F(DocumentChanges, returning_isRefusedForWhatIsNoClosedSaleOrReturnedAlready)
{
    EXPECT_FALSE(till->returnSale(nullptr));
    till->add(article(amoxidar));
    till->suspend();
    EXPECT_FALSE(till->returnSale(archived(1))) << "put aside";
    till->resume(archived(1));
    till->cancel();
    EXPECT_FALSE(till->returnSale(archived(1))) << "cancelled";
    const int number = sold();
    till->open();
    EXPECT_FALSE(till->returnSale(archived(number))) << "a receipt is open";
    till->cancel();
    const auto document = returning(number);
    EXPECT_TRUE(till->close({Payment::cash(document->getSum())}));
    EXPECT_FALSE(till->returnSale(archived(number))) << "taken back";
    EXPECT_FALSE(till->returnSale(archived(document->getNumber()))) << "a return";
    EXPECT_FALSE(till->document());
}

TEST_F(DocumentChanges, saleCouldNotBeSaved_noReturnIsOpened)
{
    const int number = sold();
    expectNothingChanged([&] { return till->returnSale(archived(number)); });
    EXPECT_EQ(archived(number)->getReturnedBy(), 0);
}

TEST_F(DocumentChanges, returnDocumentCouldNotBeSaved_saleCanStillBeReturned)
{
    const int number = sold();
    {
        SavingDouble saving;
        saving.onSave = saveAllButReturns;
        EXPECT_FALSE(till->returnSale(archived(number)));
        EXPECT_EQ(saving.files, (QStringList{u"finished/00000001.json"_s, u"receipt.json"_s}));
    }
    EXPECT_FALSE(till->document());
    EXPECT_EQ(till->archive().returned(*archived(number), nullptr), Document::Returned::Nothing);
    EXPECT_TRUE(till->returnSale(archived(number)));
    EXPECT_EQ(till->document()->getNumber(), 3) << "no number is given twice";
}

TEST_F(DocumentChanges, returnDocumentClosed_saleIsReturnedAndHasWhatPluginsDid)
{
    const int number = sold();
    const auto document = returning(number);
    countPrinting();
    setStatus(*document, "canceled");
    EXPECT_TRUE(till->close({Payment::cash(document->getSum())}));
    expectEvent(12, document);
    expectNothingOpen();
    EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_EQ(till->archive().returned(*archived(number), nullptr), Document::Returned::Wholly);
    EXPECT_EQ(archived(2)->getState(), Document::State::Closed);
    EXPECT_EQ(archived(2)->getReceived(), Kopecks{2480});
    EXPECT_EQ(m_printed, QList<int>{2});
}

TEST_F(DocumentChanges, returnCancelled_saleHasWhatPluginsDidAndCanBeReturnedAgain)
{
    const int number = sold();
    const auto document = returning(number);
    setStatus(*document, "canceled");
    EXPECT_TRUE(till->cancel());
    expectEvent(22, document);
    expectNothingOpen();
    EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_EQ(till->archive().returned(*archived(number), nullptr), Document::Returned::Nothing);
    EXPECT_EQ(archived(2)->getState(), Document::State::Cancelled);
    EXPECT_TRUE(till->returnSale(archived(number)));
    EXPECT_EQ(till->document()->getNumber(), 3);
}

TEST_F(DocumentChanges, returnDocumentStaysOpen_saleStaysReturned)
{
    const int number = sold();
    const auto document = returning(number);
    for (const auto& end : {std::function([&] { return till->cancel(); }),
                            std::function([&] { return till->close({Payment::cash(document->getSum())}); })}) {
        SavingDouble saving;
        saving.onSave = saveAllButReturns;
        EXPECT_FALSE(end());
        EXPECT_EQ(saving.files, (QStringList{u"finished/00000001.json"_s, u"finished/00000002.json"_s}));
        EXPECT_EQ(till->document(), document);
        EXPECT_EQ(till->archive().returned(*archived(number), document), Document::Returned::Wholly);
    }
}

TEST_F(DocumentChanges, returnDocument_takesNoGoodsAndIsNotSuspended)
{
    const auto document = returning(sold());
    EXPECT_EQ(till->add(article(amoxidar)), 0);
    EXPECT_FALSE(till->suspend());
    EXPECT_EQ(till->document(), document);
    EXPECT_EQ(document->positions().size(), 1);
    EXPECT_TRUE(witness.seen.isEmpty());
}

TEST_F(DocumentChanges, saleOfAReturnIsLost_itEndsAllTheSame)
{
    const auto document = returning(sold());
    ASSERT_TRUE(QFile::remove(folder.filePath(u"finished/00000001.json"_s)));
    EXPECT_TRUE(till->close({Payment::cash(document->getSum())}));
    expectNothingOpen();
}

TEST_F(DocumentChanges, voided_keepsWhenItWasClosedAndWhatWasReceived)
{
    const auto document = archived(sold());
    const QDateTime finished = document->getFinished();
    witness.seen.clear();
    EXPECT_TRUE(till->voidDocument(document));
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
    EXPECT_EQ(archived(1)->getFinished(), finished);
    EXPECT_TRUE(archived(1)->getVoided().isValid());
    EXPECT_EQ(archived(1)->getReceived(), Kopecks{5000});
}

TEST_F(DocumentChanges, voidedAfterItWasSuspended_isFinishedThen)
{
    till->add(article(amoxidar));
    till->suspend();
    EXPECT_TRUE(till->voidDocument(archived(1)));
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
    EXPECT_TRUE(archived(1)->getFinished().isValid());
    EXPECT_EQ(archived(1)->getFinished(), archived(1)->getVoided());
    EXPECT_FALSE(QFile::exists(folder.filePath(u"putaside/00000001.json"_s)));
}

TEST_F(DocumentChanges, nothingCanBeSaved_nothingChanges)
{
    countPrinting();
    till->add(article(amoxidar));
    till->suspend();
    const auto suspend = archived(1);
    expectNothingChanged([&] { return till->resume(suspend); });
    expectNothingChanged([&] { return till->voidDocument(suspend); });
    EXPECT_EQ(suspend->getState(), Document::State::Suspended);
    EXPECT_EQ(archived(1)->toJson(), suspend->toJson());

    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    expectNothingChanged([&] { return till->close({Payment::cash(Kopecks{5000})}); });
    expectNothingChanged([&] { return till->cancel(); });
    expectNothingChanged([&] { return till->suspend(); });
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_TRUE(till->close({Payment::cash(Kopecks{5000})})) << "it goes on when the disk is back";
}

TEST_F(DocumentChanges, nothingCanBeSaved_returnDocumentStaysOpen)
{
    const auto document = returning(sold());
    setStatus(*document, "canceled");
    expectNothingChanged([&] { return till->close({Payment::cash(document->getSum())}); });
    expectNothingChanged([&] { return till->cancel(); });
    EXPECT_EQ(archived(1)->getReturnedBy(), 2);
}

TEST_F(DocumentChanges, lastNumberIsLost_numbersOfSavedDocumentsAreNotGivenAgain)
{
    sold();
    till->add(article(amoxidar));
    till->suspend();
    till->add(article(amoxidar));
    for (const int next : {4, 5}) { // beside an open document, then beside the archive alone
        ASSERT_TRUE(QFile::remove(folder.filePath(u"lastreceiptnumber"_s)));
        Till again(folder.path());
        again.restore(saved());
        again.suspend();
        again.open();
        EXPECT_EQ(again.document()->getNumber(), next);
        EXPECT_TRUE(again.cancel());
    }
}

TEST_F(DocumentChanges, lastNumberCannotBeSaved_numbersOfThisRunAreNotGivenAgain)
{
    sold();
    const QString file = folder.filePath(u"lastreceiptnumber"_s);
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QDir().mkdir(file));
    EXPECT_EQ(sold(), 2);
    EXPECT_EQ(sold(), 3);
}

TEST_F(DocumentChanges, lastNumber_isReadableByItsOwnerAlone)
{
    sold();
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
    EXPECT_FALSE(QFile::permissions(folder.filePath(u"lastreceiptnumber"_s)) & others);
}

/// A sale, and an open document that is damaged, and the last number is lost.
class DamageShown : public DocumentChanges
{
protected:
    DamageShown()
    {
        Till former(folder.path());
        former.add(article(amoxidar));
        EXPECT_TRUE(former.close({Payment::cash(Kopecks{5000})}));
        EXPECT_TRUE(QFile::remove(folder.filePath(u"lastreceiptnumber"_s)));
        QFile damaged(folder.filePath(u"receipt.json"_s));
        EXPECT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write("{");
    }

    /// @param whileShown runs while the message is shown
    void restore(const std::function<void()>& whileShown)
    {
        DialogDouble dialog;
        dialog.onMessage = [&whileShown](const auto&) { whileShown(); };
        till->restore(saved());
        EXPECT_EQ(dialog.messages().size(), 1);
    }
};

TEST_F(DamageShown, documentOpenedMeanwhile_takesTheNumberOfNoOtherDocument)
{
    controller.object.enqueue(control::Action(registeraction::openSale), false);
    restore([this] { EXPECT_TRUE(QTest::qWaitFor([this] { return !controller.object.isBusy(); })); });
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 2);
    EXPECT_EQ(savedDocument(), till->document()->toJson());
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
}

TEST_F(DamageShown, copyOfAnInterruptedChange_isGoneBeforeItCouldBeResumed)
{
    const QString copy = folder.filePath(u"putaside/00000001.json"_s);
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"putaside"_s));
    ASSERT_TRUE(QFile::copy(folder.filePath(u"finished/00000001.json"_s), copy));
    restore([&copy] { EXPECT_FALSE(QFile::exists(copy)); });
}

/// The open return of a sale was damaged when the register ended: nobody knows what came back.
class DamagedReturn : public DocumentChanges
{
protected:
    DamagedReturn()
    {
        sold();
        sold();
        returning(1);
        writeOpen("{");
        startAgain();
    }
    void writeOpen(const QByteArray& content) const
    {
        QFile file(folder.filePath(u"receipt.json"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void startAgain()
    {
        const DialogDouble dialog;
        DocumentWatcher::setCurrentDocument(nullptr);
        till = std::make_unique<Till>(folder.path());
        till->restore(saved());
    }
    /// The file that was set aside; empty: there is none.
    QString setAside() const { return QDir(folder.path()).entryList({u"receipt.json.damaged-*"_s}).value(0); }
    static QString text(const std::optional<Obstacle>& obstacle) { return obstacle ? obstacle->text.ui() : QString(); }
};

TEST_F(DamagedReturn, itsSale_isNeitherReturnedNorVoidedAndTheFileIsNamed)
{
    ASSERT_FALSE(till->document());
    const auto sale = archived(1);
    const QString expected = u"Возврат № 3 по чеку № 1 повреждён: неизвестно, что вернули и выданы ли деньги.\n"
                             "Файл: %1\nПозовите администратора: он исправит файл или, если деньги не выданы, уберёт "
                             "его из папки данных."_s.arg(setAside());
    EXPECT_EQ(text(till->obstacleToReturning(*sale)), expected);
    EXPECT_EQ(text(till->obstacleToVoiding(*sale)), expected);
    EXPECT_FALSE(till->returnSale(sale));
    EXPECT_FALSE(till->voidDocument(sale));
    EXPECT_TRUE(till->returnablePositions(*sale).isEmpty());
    EXPECT_EQ(archived(1)->getReturnedBy(), 3);
}

TEST_F(DamagedReturn, otherSale_isReturned)
{
    EXPECT_TRUE(till->returnSale(archived(2)));
}

TEST_F(DamagedReturn, fileCorrected_returnGoesOn)
{
    const QString file = setAside();
    ASSERT_TRUE(QFile::remove(folder.filePath(file)));
    writeOpen(QJsonDocument(Document::returnOf(*archived(1), 3, archived(1)->getOpened())->toJson()).toJson());
    startAgain();
    ASSERT_TRUE(till->document());
    EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    EXPECT_EQ(till->returned(*archived(1)), Document::Returned::Wholly);
}

TEST_F(DamagedReturn, fileTakenAway_saleIsReturned)
{
    ASSERT_TRUE(QFile::remove(folder.filePath(setAside())));
    EXPECT_EQ(text(till->obstacleToReturning(*archived(1))), QString());
    EXPECT_TRUE(till->returnSale(archived(1)));
}

TEST_F(DamagedReturn, damagedAfterItWasClosed_itsFileIsNamed)
{
    ASSERT_TRUE(till->returnSale(archived(2)));
    ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    ASSERT_TRUE(QFile::resize(folder.filePath(u"finished/00000004.json"_s), 5));
    const QString reason = text(till->obstacleToReturning(*archived(2)));
    EXPECT_TRUE(reason.startsWith(u"Возврат № 4 по чеку № 2 повреждён"_s)) << reason.toStdString();
    EXPECT_TRUE(reason.contains(u"Файл: finished/00000004.json\n"_s)) << reason.toStdString();
}

/// The register ended between saving a document in its new place and removing the file in the old one.
class InterruptedChange : public DocumentChanges
{
protected:
    /// The files as they are then: `change` is done, and the former file is still there.
    void interrupt(const QString& formerFile, const std::function<bool()>& change)
    {
        QFile file(folder.filePath(formerFile));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(formerFile);
        const QByteArray former = file.readAll();
        file.close();
        ASSERT_TRUE(change());
        ASSERT_FALSE(file.exists());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(former);
        file.close();
        witness.seen.clear();
        DocumentWatcher::setCurrentDocument(nullptr);
        till = std::make_unique<Till>(folder.path());
        till->restore(saved());
    }
    QStringList files(const char* place) const
    {
        return QDir(folder.filePath(QLatin1StringView(place))).entryList(QDir::Files);
    }
};

TEST_F(InterruptedChange, close_isFinished)
{
    till->add(article(amoxidar));
    interrupt(u"receipt.json"_s, [this] { return till->close({Payment::cash(Kopecks{5000})}); });
    expectNothingOpen();
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
}

TEST_F(InterruptedChange, closeOfAReturn_isFinished)
{
    const auto document = returning(sold());
    interrupt(u"receipt.json"_s, [&] { return till->close({Payment::cash(document->getSum())}); });
    expectNothingOpen();
    EXPECT_EQ(till->archive().returned(*archived(1), nullptr), Document::Returned::Wholly);
}

TEST_F(InterruptedChange, suspending_isOpenAgain)
{
    till->add(article(amoxidar));
    interrupt(u"receipt.json"_s, [this] { return till->suspend(); });
    ASSERT_TRUE(till->document());
    expectEvent(17, till->document());
    EXPECT_EQ(till->document()->getState(), Document::State::Open);
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, resuming_isOpen)
{
    till->add(article(amoxidar));
    till->suspend();
    interrupt(u"putaside/00000001.json"_s, [this] { return till->resume(archived(1)); });
    ASSERT_TRUE(till->document());
    expectEvent(17, till->document());
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, voidingOfADocumentSuspended_isVoided)
{
    till->add(article(amoxidar));
    till->suspend();
    interrupt(u"putaside/00000001.json"_s, [this] { return till->voidDocument(archived(1)); });
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Document::State::Voided);
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, returningBeforeItsDocumentWasSaved_saleCanBeReturned)
{
    const int number = sold();
    {
        SavingDouble saving;
        saving.onSave = saveAllButReturns;
        EXPECT_FALSE(till->returnSale(archived(number)));
    }
    till = std::make_unique<Till>(folder.path());
    till->restore(saved());
    expectNothingOpen();
    EXPECT_TRUE(till->returnSale(archived(number)));
}

TEST_F(InterruptedChange, returnDocumentOpen_isResumedAgainAsOne)
{
    const auto before = returning(sold())->toJson();
    till = std::make_unique<Till>(folder.path());
    till->restore(saved());
    ASSERT_TRUE(till->document());
    expectEvent(17, till->document());
    EXPECT_EQ(till->document()->toJson(), before);
    EXPECT_EQ(till->archive().returned(*archived(1), till->document()), Document::Returned::Wholly);
}

TEST_F(TillTest, documentFinished_whatWasAskedForItLeavesTheJournal)
{
    Own<RequestJournal> journal;
    const auto ask = [&journal](JournalledRequest::State state) {
        const Expected<qint64> id = journal.object.begin(u"POST"_s, QUrl(u"https://registry.example/"_s), "{}");
        ASSERT_TRUE(id);
        journal.object.end(*id, state);
    };
    const auto openDocument = [this] { till->add(article(amoxidar)); };

    openDocument();
    ask(JournalledRequest::State::Answered);
    ASSERT_EQ(journal.object.requests().size(), 1);
    EXPECT_EQ(journal.object.requests().first().document, u"1"_s);
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    EXPECT_TRUE(journal.object.requests().isEmpty()) << "closed";

    till->withCurrentDocument(till->archive().find(1), [&] { ask(JournalledRequest::State::Answered); });
    EXPECT_EQ(journal.object.requests().size(), 1);
    EXPECT_TRUE(till->voidDocument(till->archive().find(1)));
    EXPECT_TRUE(journal.object.requests().isEmpty()) << "voided";

    openDocument();
    ask(JournalledRequest::State::Answered);
    ask(JournalledRequest::State::Unanswered);
    EXPECT_TRUE(till->cancel());
    ASSERT_EQ(journal.object.requests().size(), 1) << "what is undecided stays";
    EXPECT_EQ(journal.object.requests().first().state, JournalledRequest::State::Unanswered);
}
