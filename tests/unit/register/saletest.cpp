// SPDX-License-Identifier: MIT
#include "registeraction.h"
#include "saves.h"
#include "shownmessages.h"
#include "till.h"

#include <QDir>
#include <QJsonArray>
#include <QTest>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

class SaleTest : public Till
{
protected:
    ReceiptStore::Loaded saved() const { return ReceiptStore(folder.path()).load(); }
};

TEST_F(SaleTest, opened_isCurrentAndSavedBeforeEvent10)
{
    sale->open();
    ASSERT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(witness.seen.first().current, sale->receipt());
    EXPECT_EQ(witness.seen.first().context, EContext::OpenReceipt);
    EXPECT_EQ(savedReceipt().value(u"number"_s).toInt(), 1);
}

TEST_F(SaleTest, openedTwice_staysTheSame)
{
    sale->open();
    const auto receipt = sale->receipt();
    sale->open();
    EXPECT_EQ(sale->receipt(), receipt);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(SaleTest, firstGoods_openTheReceipt)
{
    EXPECT_EQ(sale->add(article(amoxidar, 2)), 1);
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(sale->receipt()->getSum(), 2480);
    const QJsonObject position = savedReceipt().value(u"positions"_s).toArray().at(0).toObject();
    EXPECT_EQ(position.value(u"quantity"_s).toDouble(), 2.0);
    EXPECT_EQ(position.value(u"tmcPrice"_s).toDouble(), 12.9);
    EXPECT_EQ(position.value(u"minRetailPrice"_s).toDouble(), 1.2);
    EXPECT_EQ(position.value(u"barcode"_s).toString(), amoxidar);
}

TEST_F(SaleTest, packsOfABoundPosition_stay)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(u"rx-1"_s);
    sale->setPacks(1, 5);
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 1.0);
}

TEST_F(SaleTest, packsAndRemoval_areSaved)
{
    sale->add(article(amoxidar));
    sale->add(article(amoxidar));
    sale->setPacks(2, 5);
    EXPECT_EQ(savedReceipt().value(u"sum"_s).toDouble(), 74.4);
    sale->remove(1);
    EXPECT_EQ(savedReceipt().value(u"positions"_s).toArray().size(), 1);
    sale->remove(17);
    sale->setPacks(17, 3);
    EXPECT_EQ(savedReceipt().value(u"sum"_s).toDouble(), 62.0);
}

TEST_F(SaleTest, recalculation_tellsTheScreens)
{
    sale->add(article(amoxidar));
    int changes = 0;
    QObject::connect(sale.get(), &Sale::changed, [&changes] { ++changes; });
    loyalty.object.recalculate(sale->receipt());
    EXPECT_EQ(changes, 1);
}

TEST_F(SaleTest, restored_isCurrentAndToldByEvent17Alone)
{
    sale->add(article(amoxidar));
    sale->receipt()->setPluginValue(u"P"_s, u"card"_s, u"42"_s);
    sale->setPacks(1, 3);
    const QJsonObject before = sale->receipt()->toJson();
    DocumentWatcher::setCurrentDocument(nullptr);
    witness.seen.clear();

    Sale again(folder.path());
    again.restore(saved());
    ASSERT_EQ(witness.codes(), QList<int>{17});
    const Witness::Seen& seen = witness.seen.first();
    EXPECT_EQ(seen.context, EContext::OpenReceipt);
    EXPECT_EQ(seen.document.metaType(), QMetaType::fromType<QSharedPointer<AbstractDocument>>());
    EXPECT_EQ(seen.document.value<QSharedPointer<AbstractDocument>>(), seen.current);
    EXPECT_EQ(seen.current, again.receipt());
    EXPECT_EQ(again.receipt()->toJson(), before);
}

TEST_F(SaleTest, nothingToRestore_nothingIsTold)
{
    sale->restore(saved());
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(controller.object.context(), EContext::Idle);
}

TEST_F(SaleTest, damagedReceipt_isToldAndANewOneTakesAnotherNumber)
{
    sale->open();
    QFile file(folder.filePath(u"receipt.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": 1, ");
    file.close();
    const ShownMessages messages;

    Sale again(folder.path());
    again.restore(saved());
    EXPECT_FALSE(again.receipt());
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().kind, Dialog::Error);
    EXPECT_TRUE(messages.all().first().text.contains(u"receipt.json.damaged-"_s));
    again.open();
    EXPECT_EQ(again.receipt()->getNumber(), 2);
    EXPECT_EQ(QDir(folder.path()).entryList({u"receipt.json.damaged-*"_s}).size(), 1);
}

/// What becomes of the open document.
class DocumentChanges : public SaleTest
{
protected:
    /// Throws, which fails the test, when there is none.
    QSharedPointer<Receipt> archived(int number) const
    {
        auto document = sale->archive().find(number);
        if (!document) {
            throw std::out_of_range("no document " + std::to_string(number));
        }
        return document;
    }
    bool isOpenSaved() const { return QFile::exists(folder.filePath(u"receipt.json"_s)); }
    /// Sells an article; the number of the sale.
    int sold() const
    {
        sale->add(article(amoxidar, 2));
        const int number = sale->receipt()->getNumber();
        EXPECT_TRUE(sale->close(5000));
        return number;
    }
    /// Opens the document that takes a sale back.
    QSharedPointer<Receipt> takingBack(int number)
    {
        EXPECT_TRUE(sale->takeBack(archived(number)));
        witness.seen.clear();
        return sale->receipt();
    }
    static void setStatus(const Receipt& document, const char* status)
    {
        document.position(1)->setExtendedOptions(u"{\"status\":\"%1\"}"_s.arg(QLatin1StringView(status)));
    }
    /// One event was told, with that document as the current one.
    void expectTold(int event, const QSharedPointer<Receipt>& current) const
    {
        ASSERT_EQ(witness.codes(), QList<int>{event});
        EXPECT_EQ(witness.seen.first().current, current);
        EXPECT_EQ(witness.seen.first().context, EContext::OpenReceipt);
    }
    void expectNothingOpen() const
    {
        EXPECT_FALSE(sale->receipt());
        EXPECT_FALSE(Current().document());
        EXPECT_EQ(controller.object.context(), EContext::Idle);
        EXPECT_EQ(sale->phase(), Sale::Phase::Positions);
        EXPECT_FALSE(isOpenSaved());
    }
    /// `change` fails when nothing can be saved, and leaves the open document as it is.
    void expectNothingChanged(const std::function<bool()>& change)
    {
        const auto open = sale->receipt();
        const QJsonObject before = open ? open->toJson() : QJsonObject();
        const QJsonObject savedBefore = savedReceipt();
        const EContext::Code context = controller.object.context();
        witness.seen.clear();
        int changes = 0;
        const auto counting = QObject::connect(sale.get(), &Sale::changed, [&changes] { ++changes; });
        {
            Saves saves;
            saves.failAll();
            EXPECT_FALSE(change());
            EXPECT_FALSE(saves.files.isEmpty()) << "it was tried";
        }
        QObject::disconnect(counting);
        EXPECT_EQ(sale->receipt(), open);
        EXPECT_EQ(Current().document(), open);
        EXPECT_EQ(open ? open->toJson() : QJsonObject(), before);
        EXPECT_EQ(savedReceipt(), savedBefore);
        EXPECT_EQ(controller.object.context(), context);
        EXPECT_TRUE(witness.seen.isEmpty());
        EXPECT_EQ(changes, 0);
        EXPECT_EQ(m_printed, QList<int>());
    }
    void countPrinting()
    {
        sale->setPrinting([this](const Receipt& receipt) { m_printed.append(receipt.getNumber()); });
    }

    struct Current : DocumentWatcher {
        QSharedPointer<AbstractDocument> document() const { return getDocument(); }
    };

    QList<int> m_printed;
};

TEST_F(DocumentChanges, closed_isFinishedPrintedAndToldWhileItIsCurrent)
{
    sale->add(article(amoxidar, 2));
    sale->setPhase(Sale::Phase::Payment);
    const auto receipt = sale->receipt();
    witness.seen.clear();
    QStringList steps;
    sale->setPrinting([&](const Receipt& printed) {
        EXPECT_EQ(&printed, receipt.get());
        EXPECT_EQ(archived(1)->toJson(), printed.toJson()) << "saved before it is printed";
        EXPECT_TRUE(witness.seen.isEmpty()) << "printed before it is told";
        steps.append(u"printed"_s);
    });
    QObject::connect(sale.get(), &Sale::changed, [&] { steps.append(u"changed"_s); });
    EXPECT_TRUE(sale->close(3000));
    expectTold(12, receipt);
    expectNothingOpen();
    EXPECT_EQ(steps, (QStringList{u"printed"_s, u"changed"_s}));
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
    EXPECT_EQ(archived(1)->getReceived(), 3000);
    EXPECT_EQ(archived(1)->getChange(), 520);
    EXPECT_TRUE(archived(1)->getFinished().isValid());
}

TEST_F(DocumentChanges, tooLittleMoney_doesNotClose)
{
    EXPECT_FALSE(sale->close(5000)) << "nothing is open";
    sale->add(article(amoxidar, 2));
    EXPECT_FALSE(sale->close(2479));
    EXPECT_TRUE(sale->receipt());
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_TRUE(sale->close(2480));
    EXPECT_EQ(archived(1)->getChange(), 0);
}

TEST_F(DocumentChanges, cancelled_isFinishedAndToldWhileItIsCurrentAndNotPrinted)
{
    EXPECT_FALSE(sale->cancel()) << "nothing is open";
    countPrinting();
    sale->add(article(amoxidar));
    const auto receipt = sale->receipt();
    witness.seen.clear();
    EXPECT_TRUE(sale->cancel());
    expectTold(22, receipt);
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Cancelled);
    EXPECT_EQ(archived(1)->positions().size(), 1);
    EXPECT_TRUE(m_printed.isEmpty());
}

TEST_F(DocumentChanges, putAside_isToldByNoEvent)
{
    EXPECT_FALSE(sale->putAside()) << "nothing is open";
    sale->add(article(amoxidar));
    witness.seen.clear();
    EXPECT_TRUE(sale->putAside());
    EXPECT_TRUE(witness.seen.isEmpty());
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Receipt::State::PutAside);
}

TEST_F(DocumentChanges, takenUp_isCurrentAndToldByEvent17Alone)
{
    sale->add(article(amoxidar));
    sale->putAside();
    witness.seen.clear();
    const auto document = archived(1);
    EXPECT_TRUE(sale->takeUp(document));
    expectTold(17, document);
    EXPECT_EQ(witness.seen.first().document.value<QSharedPointer<AbstractDocument>>(), document);
    EXPECT_EQ(witness.seen.first().document.metaType(), QMetaType::fromType<QSharedPointer<AbstractDocument>>());
    EXPECT_EQ(sale->receipt(), document);
    EXPECT_EQ(document->getState(), Receipt::State::Open);
    EXPECT_EQ(savedReceipt(), document->toJson());
    EXPECT_FALSE(sale->archive().find(1));
}

TEST_F(DocumentChanges, takingUp_isRefusedForWhatIsNotPutAsideAndWhileAReceiptIsOpen)
{
    EXPECT_FALSE(sale->takeUp(nullptr));
    EXPECT_FALSE(sale->takeUp(archived(sold())));
    sale->add(article(amoxidar));
    sale->putAside();
    sale->open();
    EXPECT_FALSE(sale->takeUp(archived(2)));
    EXPECT_EQ(archived(2)->getState(), Receipt::State::PutAside);
    EXPECT_EQ(sale->receipt()->getNumber(), 3);
}

TEST_F(DocumentChanges, takenBack_cancellingDocumentIsOpenedAndToldByEvent10)
{
    const int number = sold();
    witness.seen.clear();
    EXPECT_TRUE(sale->takeBack(archived(number)));
    const auto document = sale->receipt();
    ASSERT_TRUE(document);
    expectTold(10, document);
    EXPECT_EQ(document->getType(), 25);
    EXPECT_EQ(document->getNumber(), 2);
    EXPECT_EQ(document->getTakesBack(), number);
    EXPECT_EQ(savedReceipt(), document->toJson());
    EXPECT_EQ(archived(number)->getTakenBackBy(), 2);
    EXPECT_TRUE(sale->archive().isTakenBack(*archived(number), document));
}

TEST_F(DocumentChanges, takingBack_isRefusedForWhatIsNoClosedSaleOrTakenBackAlready)
{
    EXPECT_FALSE(sale->takeBack(nullptr));
    sale->add(article(amoxidar));
    sale->putAside();
    EXPECT_FALSE(sale->takeBack(archived(1))) << "put aside";
    sale->takeUp(archived(1));
    sale->cancel();
    EXPECT_FALSE(sale->takeBack(archived(1))) << "cancelled";
    const int number = sold();
    sale->open();
    EXPECT_FALSE(sale->takeBack(archived(number))) << "a receipt is open";
    sale->cancel();
    const auto document = takingBack(number);
    EXPECT_TRUE(sale->close(document->getSum()));
    EXPECT_FALSE(sale->takeBack(archived(number))) << "taken back";
    EXPECT_FALSE(sale->takeBack(archived(document->getNumber()))) << "a cancelling document";
    EXPECT_FALSE(sale->receipt());
}

TEST_F(DocumentChanges, saleCouldNotBeSaved_noCancellingDocumentIsOpened)
{
    const int number = sold();
    expectNothingChanged([&] { return sale->takeBack(archived(number)); });
    EXPECT_EQ(archived(number)->getTakenBackBy(), 0);
}

TEST_F(DocumentChanges, cancellingDocumentCouldNotBeSaved_saleCanStillBeTakenBack)
{
    const int number = sold();
    {
        Saves saves;
        saves.fail([](const AbstractDocument& document) {
            return document.getType() == AbstractDocument::Cancelling ? Saves::Fault::Before : Saves::Fault::None;
        });
        EXPECT_FALSE(sale->takeBack(archived(number)));
        EXPECT_EQ(saves.files, (QStringList{u"finished/00000001.json"_s, u"receipt.json"_s}));
    }
    EXPECT_FALSE(sale->receipt());
    EXPECT_FALSE(sale->archive().isTakenBack(*archived(number), nullptr));
    EXPECT_TRUE(sale->takeBack(archived(number)));
    EXPECT_EQ(sale->receipt()->getNumber(), 3) << "no number is given twice";
}

TEST_F(DocumentChanges, cancellingDocumentClosed_saleIsTakenBackAndHasWhatPluginsDid)
{
    const int number = sold();
    const auto document = takingBack(number);
    countPrinting();
    setStatus(*document, "canceled");
    EXPECT_TRUE(sale->close(document->getSum()));
    expectTold(12, document);
    expectNothingOpen();
    EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_TRUE(sale->archive().isTakenBack(*archived(number), nullptr));
    EXPECT_EQ(archived(2)->getState(), Receipt::State::Closed);
    EXPECT_EQ(archived(2)->getReceived(), 2480);
    EXPECT_EQ(m_printed, QList<int>{2});
}

TEST_F(DocumentChanges, cancellingDocumentGivenUp_saleHasWhatPluginsDidAndCanBeTakenBackAgain)
{
    const int number = sold();
    const auto document = takingBack(number);
    setStatus(*document, "canceled");
    EXPECT_TRUE(sale->cancel());
    expectTold(22, document);
    expectNothingOpen();
    EXPECT_EQ(archived(number)->position(1)->getExtendedOptions(), u"{\"status\":\"canceled\"}"_s);
    EXPECT_FALSE(sale->archive().isTakenBack(*archived(number), nullptr));
    EXPECT_EQ(archived(2)->getState(), Receipt::State::Cancelled);
    EXPECT_TRUE(sale->takeBack(archived(number)));
    EXPECT_EQ(sale->receipt()->getNumber(), 3);
}

TEST_F(DocumentChanges, cancellingDocumentStaysOpen_saleStaysTakenBack)
{
    const int number = sold();
    const auto document = takingBack(number);
    for (const auto& end : {std::function([&] { return sale->cancel(); }),
                            std::function([&] { return sale->close(document->getSum()); })}) {
        Saves saves;
        saves.fail([](const AbstractDocument& saved) {
            return saved.getType() == AbstractDocument::Cancelling ? Saves::Fault::Before : Saves::Fault::None;
        });
        EXPECT_FALSE(end());
        EXPECT_EQ(saves.files, (QStringList{u"finished/00000001.json"_s, u"finished/00000002.json"_s}));
        EXPECT_EQ(sale->receipt(), document);
        EXPECT_TRUE(sale->archive().isTakenBack(*archived(number), document));
    }
}

TEST_F(DocumentChanges, cancellingDocument_takesNoGoodsAndIsNotPutAside)
{
    const auto document = takingBack(sold());
    EXPECT_EQ(sale->add(article(amoxidar)), 0);
    EXPECT_FALSE(sale->putAside());
    EXPECT_EQ(sale->receipt(), document);
    EXPECT_EQ(document->positions().size(), 1);
    EXPECT_TRUE(witness.seen.isEmpty());
}

TEST_F(DocumentChanges, saleOfACancellingDocumentIsLost_itEndsAllTheSame)
{
    const auto document = takingBack(sold());
    ASSERT_TRUE(QFile::remove(folder.filePath(u"finished/00000001.json"_s)));
    EXPECT_TRUE(sale->close(document->getSum()));
    expectNothingOpen();
}

TEST_F(DocumentChanges, annulled_keepsWhenItWasClosedAndWhatWasReceived)
{
    const auto document = archived(sold());
    const QDateTime finished = document->getFinished();
    witness.seen.clear();
    EXPECT_TRUE(sale->annul(document));
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Annulled);
    EXPECT_EQ(archived(1)->getFinished(), finished);
    EXPECT_TRUE(archived(1)->getAnnulled().isValid());
    EXPECT_EQ(archived(1)->getReceived(), 5000);
}

TEST_F(DocumentChanges, annulledAfterItWasPutAside_isFinishedThen)
{
    sale->add(article(amoxidar));
    sale->putAside();
    EXPECT_TRUE(sale->annul(archived(1)));
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Annulled);
    EXPECT_TRUE(archived(1)->getFinished().isValid());
    EXPECT_EQ(archived(1)->getFinished(), archived(1)->getAnnulled());
    EXPECT_FALSE(QFile::exists(folder.filePath(u"putaside/00000001.json"_s)));
}

TEST_F(DocumentChanges, nothingCanBeSaved_nothingChanges)
{
    countPrinting();
    sale->add(article(amoxidar));
    sale->putAside();
    const auto putAside = archived(1);
    expectNothingChanged([&] { return sale->takeUp(putAside); });
    expectNothingChanged([&] { return sale->annul(putAside); });
    EXPECT_EQ(putAside->getState(), Receipt::State::PutAside);
    EXPECT_EQ(archived(1)->toJson(), putAside->toJson());

    sale->add(article(amoxidar));
    sale->setPhase(Sale::Phase::Payment);
    expectNothingChanged([&] { return sale->close(5000); });
    expectNothingChanged([&] { return sale->cancel(); });
    expectNothingChanged([&] { return sale->putAside(); });
    EXPECT_EQ(sale->phase(), Sale::Phase::Payment);
    EXPECT_TRUE(sale->close(5000)) << "it goes on when the disk is back";
}

TEST_F(DocumentChanges, nothingCanBeSaved_cancellingDocumentStaysOpen)
{
    const auto document = takingBack(sold());
    setStatus(*document, "canceled");
    expectNothingChanged([&] { return sale->close(document->getSum()); });
    expectNothingChanged([&] { return sale->cancel(); });
    EXPECT_EQ(archived(1)->getTakenBackBy(), 2);
}

TEST_F(DocumentChanges, lastNumberIsLost_numbersOfSavedDocumentsAreNotGivenAgain)
{
    sold();
    sale->add(article(amoxidar));
    sale->putAside();
    sale->add(article(amoxidar));
    for (const int next : {4, 5}) { // beside an open receipt, then beside the archive alone
        ASSERT_TRUE(QFile::remove(folder.filePath(u"lastreceiptnumber"_s)));
        Sale again(folder.path());
        again.restore(saved());
        again.putAside();
        again.open();
        EXPECT_EQ(again.receipt()->getNumber(), next);
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

/// Beside a sale lies an open receipt that is damaged, and the last number is lost.
class DamageTold : public DocumentChanges
{
protected:
    DamageTold()
    {
        Sale former(folder.path());
        former.add(article(amoxidar));
        EXPECT_TRUE(former.close(5000));
        EXPECT_TRUE(QFile::remove(folder.filePath(u"lastreceiptnumber"_s)));
        QFile damaged(folder.filePath(u"receipt.json"_s));
        EXPECT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write("{");
    }
    ~DamageTold() override { MockFactory<Dialog>::mocked = nullptr; }

    /// @param whileTold runs while the message stands
    void restore(const std::function<void()>& whileTold)
    {
        class Standing : public Dialog
        {
        public:
            explicit Standing(std::function<void()> meanwhile)
                : m_meanwhile(std::move(meanwhile))
            {
            }
            void showMessage(const tr::Tr& /*text*/, int /*kind*/, int /*sound*/, int /*seconds*/) override
            {
                m_meanwhile();
            }

        private:
            std::function<void()> m_meanwhile;
        };
        int told = 0;
        MockFactory<Dialog>::mocked = [&] {
            ++told;
            return QSharedPointer<Standing>::create(whileTold);
        };
        sale->restore(saved());
        EXPECT_EQ(told, 1);
    }
};

TEST_F(DamageTold, receiptOpenedMeanwhile_takesTheNumberOfNoOtherDocument)
{
    controller.object.enqueue(control::Action(registeraction::openReceipt), false);
    restore([this] { EXPECT_TRUE(QTest::qWaitFor([this] { return !controller.object.isBusy(); })); });
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getNumber(), 2);
    EXPECT_EQ(savedReceipt(), sale->receipt()->toJson());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
}

TEST_F(DamageTold, copyOfAnInterruptedChange_isGoneBeforeItCouldBeTakenUp)
{
    const QString copy = folder.filePath(u"putaside/00000001.json"_s);
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"putaside"_s));
    ASSERT_TRUE(QFile::copy(folder.filePath(u"finished/00000001.json"_s), copy));
    restore([&copy] { EXPECT_FALSE(QFile::exists(copy)); });
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
        sale = std::make_unique<Sale>(folder.path());
        sale->restore(saved());
    }
    QStringList files(const char* place) const
    {
        return QDir(folder.filePath(QLatin1StringView(place))).entryList(QDir::Files);
    }
};

TEST_F(InterruptedChange, close_isFinished)
{
    sale->add(article(amoxidar));
    interrupt(u"receipt.json"_s, [this] { return sale->close(5000); });
    expectNothingOpen();
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Closed);
}

TEST_F(InterruptedChange, closeOfACancellingDocument_isFinished)
{
    const auto document = takingBack(sold());
    interrupt(u"receipt.json"_s, [&] { return sale->close(document->getSum()); });
    expectNothingOpen();
    EXPECT_TRUE(sale->archive().isTakenBack(*archived(1), nullptr));
}

TEST_F(InterruptedChange, puttingAside_isOpenAgain)
{
    sale->add(article(amoxidar));
    interrupt(u"receipt.json"_s, [this] { return sale->putAside(); });
    ASSERT_TRUE(sale->receipt());
    expectTold(17, sale->receipt());
    EXPECT_EQ(sale->receipt()->getState(), Receipt::State::Open);
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, takingUp_isOpen)
{
    sale->add(article(amoxidar));
    sale->putAside();
    interrupt(u"putaside/00000001.json"_s, [this] { return sale->takeUp(archived(1)); });
    ASSERT_TRUE(sale->receipt());
    expectTold(17, sale->receipt());
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, annulmentOfADocumentPutAside_isAnnulled)
{
    sale->add(article(amoxidar));
    sale->putAside();
    interrupt(u"putaside/00000001.json"_s, [this] { return sale->annul(archived(1)); });
    expectNothingOpen();
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Annulled);
    EXPECT_TRUE(files("putaside").isEmpty());
}

TEST_F(InterruptedChange, takingBackBeforeItsDocumentWasSaved_saleCanBeTakenBack)
{
    const int number = sold();
    {
        Saves saves;
        saves.fail([](const AbstractDocument& document) {
            return document.getType() == AbstractDocument::Cancelling ? Saves::Fault::Before : Saves::Fault::None;
        });
        EXPECT_FALSE(sale->takeBack(archived(number)));
    }
    sale = std::make_unique<Sale>(folder.path());
    sale->restore(saved());
    expectNothingOpen();
    EXPECT_TRUE(sale->takeBack(archived(number)));
}

TEST_F(InterruptedChange, cancellingDocumentOpen_isTakenUpAgainAsOne)
{
    const auto before = takingBack(sold())->toJson();
    sale = std::make_unique<Sale>(folder.path());
    sale->restore(saved());
    ASSERT_TRUE(sale->receipt());
    expectTold(17, sale->receipt());
    EXPECT_EQ(sale->receipt()->toJson(), before);
    EXPECT_TRUE(sale->archive().isTakenBack(*archived(1), sale->receipt()));
}
