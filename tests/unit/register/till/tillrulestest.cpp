// SPDX-License-Identifier: MIT
// The till's rules by themselves: who asks them is tested with the commands and forms.
#include "tillfixture.h"

using namespace Qt::StringLiterals;

class TillRules : public TillFixture
{
protected:
    /// A sale of one article, closed.
    QSharedPointer<Document> sold()
    {
        till->add(article(amoxidar));
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
        return till->archive().find(number);
    }
    static QString text(const std::optional<Obstacle>& obstacle) { return obstacle ? obstacle->text.ui() : QString(); }
};

TEST_F(TillRules, noDocumentOpen_onlyThePaymentIsInTheWay)
{
    EXPECT_FALSE(till->obstacleToOpening());
    EXPECT_FALSE(till->obstacleToAnotherDocument());
    EXPECT_FALSE(till->obstacleToAddingGoods());
    EXPECT_FALSE(till->obstacleToSuspending());
    EXPECT_TRUE(till->obstacleToPayment());
}

TEST_F(TillRules, emptySale_cannotBePaid)
{
    till->open();
    EXPECT_EQ(text(till->obstacleToPayment()), u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s);
    till->add(article(amoxidar));
    EXPECT_FALSE(till->obstacleToPayment());
}

TEST_F(TillRules, saleOpen_noOtherDocumentAndEachReasonNamesIt)
{
    const auto sale = sold();
    till->open();
    EXPECT_EQ(text(till->obstacleToOpening()),
              u"Чек № 2 уже открыт.\nЗавершите или отложите его, чтобы открыть следующий."_s);
    EXPECT_EQ(text(till->obstacleToReturning(*sale)), u"Сначала завершите или отложите открытый чек № 2."_s);
    EXPECT_EQ(till->obstacleToReturning(*sale)->brief.ui(), u"сначала завершите чек № 2"_s);
    EXPECT_FALSE(till->obstacleToVoiding(*sale)) << "voiding opens no document";
}

TEST_F(TillRules, returnOpen_isWholeAndStays)
{
    const auto sale = sold();
    EXPECT_FALSE(till->obstacleToReturning(*sale));
    ASSERT_TRUE(till->returnSale(sale));
    EXPECT_EQ(till->returned(*sale), Document::Returned::Wholly);
    EXPECT_TRUE(till->obstacleToAddingGoods());
    EXPECT_TRUE(till->obstacleToChangingPositions());
    EXPECT_EQ(till->obstacleToSuspending()->brief.ui(), u"возврат не откладывают"_s);
    EXPECT_TRUE(till->obstacleToVoiding(*sale)) << "it is being returned";
    EXPECT_EQ(text(till->obstacleToOpening()), u"Документ № 2 уже открыт, отложить его нельзя.\n"
                                               "Завершите его, чтобы открыть следующий чек."_s);
    EXPECT_EQ(text(till->obstacleToAnotherDocument()),
              u"Сначала завершите открытый документ № 2: отложить его нельзя."_s);
}

/// A till whose positions may wait for an external system to say what it holds.
class UndecidedPosition : public TillRules
{
protected:
    UndecidedPosition()
    {
        EXPECT_TRUE(QDir(folder.path()).mkdir(u"testplugin"_s));
        QFile file(folder.filePath(u"testplugin/positionmarks.json"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [{"tag": "paper", "states": [
            {"option": "outcome", "value": "unknown", "undecided": true}]}]})");
        file.close();
        undecidedMarks.load(file.fileName());
        till->setMarks(undecidedMarks);
    }
    void setUndecided(bool isUndecided)
    {
        const auto position = till->document()->position(1);
        position->setTag(u"paper"_s);
        position->setExtendedOptions(isUndecided ? uR"({"outcome": "unknown"})"_s : u"{}"_s);
    }

    PositionMarks undecidedMarks;
};

TEST_F(UndecidedPosition, ofAReturn_itCanBeSuspendedAndGoesOnWhenItIsResumed)
{
    const auto sale = sold();
    ASSERT_TRUE(till->returnSale(sale));
    EXPECT_FALSE(till->suspend());
    setUndecided(true);
    EXPECT_FALSE(till->obstacleToSuspending());
    EXPECT_TRUE(text(till->obstacleToOpening()).contains(u"Завершите или отложите его"_s));
    ASSERT_TRUE(till->suspend());

    EXPECT_FALSE(till->obstacleToOpening()) << "the next customer is served";
    EXPECT_TRUE(text(till->obstacleToReturning(*sale)).startsWith(u"Возврат продажи № 1 начат и отложен"_s));
    EXPECT_TRUE(till->obstacleToVoiding(*sale));
    ASSERT_TRUE(till->resume(till->archive().find(2)));
    EXPECT_TRUE(till->document()->isReturn());
    setUndecided(false);
    EXPECT_TRUE(till->obstacleToSuspending()) << "it is decided";
    EXPECT_TRUE(till->close({Payment::cash(till->due())}));
}

TEST_F(UndecidedPosition, ofASaleWithMoneyFromACard_itCanBeSuspendedWithTheMoney)
{
    till->add(article(amoxidar));
    CardOperation paid;
    paid.reference = u"1-1"_s;
    paid.amount = till->document()->getSum();
    paid.state = CardOperation::State::Approved;
    ASSERT_TRUE(till->recordOrShow(till->document(), paid));
    ASSERT_TRUE(till->obstacleToSuspending());
    setUndecided(true);
    ASSERT_TRUE(till->suspend());
    EXPECT_GT(till->archive().find(1)->getCharged(), Kopecks{0});
}

TEST_F(TillRules, sumThatCouldNotBeReadAgain_isNotPaid)
{
    till->add(article(amoxidar, 100'000));
    till->document()->position(1)->setPrice(1e8);
    EXPECT_FALSE(till->obstacleToPayment()) << "the greatest sum";
    till->add(article(amoxidar));
    const std::optional<Obstacle> obstacle = till->obstacleToPayment();
    EXPECT_EQ(text(obstacle), u"Сумма чека слишком велика: 10\u00a0000\u00a0000\u00a0000\u00a0012,40.\n"
                              "Проверьте цены и количество или разделите покупку на несколько чеков."_s);
    ASSERT_TRUE(obstacle);
    EXPECT_EQ(obstacle->brief.ui(), u"сумма слишком велика"_s);
    EXPECT_FALSE(till->close({Payment::cash(till->document()->getSum())}));
    till->remove(2);
    ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    ASSERT_TRUE(till->archive().find(1)) << "it can be read again";
    EXPECT_EQ(till->archive().find(1)->getReceived().count(), 1'000'000'000'000'000);
}

TEST_F(TillRules, returnBelowZero_isNotPaidOutButCancelled)
{
    till->add(article(amoxidar));
    till->add(article(amoxidar));
    till->document()->position(2)->setPrice(-5);
    ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {2}));
    EXPECT_TRUE(text(till->obstacleToPayment()).startsWith(u"Сумма возврата меньше нуля"_s));
    EXPECT_FALSE(till->close({Payment::cash(Kopecks{0})}));
    ASSERT_TRUE(till->cancel());
    ASSERT_TRUE(till->returnPositions(till->archive().find(1), {1, 2}));
    EXPECT_TRUE(till->close({Payment::cash(Kopecks{740})}));
}

TEST_F(TillRules, saleReturned_namesTheReturn)
{
    const auto sale = sold();
    ASSERT_TRUE(till->returnSale(sale));
    ASSERT_TRUE(till->close({Payment::cash(sale->getSum())}));
    EXPECT_EQ(text(till->obstacleToReturning(*sale)),
              u"Продажа № 1 уже возвращена документом № 2.\nПроверьте номер чека."_s);
    EXPECT_TRUE(till->obstacleToVoiding(*sale));
    EXPECT_FALSE(till->obstacleToPrinting(*sale));
}

TEST_F(TillRules, suspendedSale_canBeResumedAndVoidedAndNothingElse)
{
    till->add(article(amoxidar));
    ASSERT_TRUE(till->suspend());
    const auto document = till->archive().find(1);
    EXPECT_FALSE(till->obstacleToResuming(*document));
    EXPECT_FALSE(till->obstacleToVoiding(*document));
    EXPECT_EQ(text(till->obstacleToReturning(*document)),
              u"Документ № 1 — не закрытая продажа, его нельзя вернуть.\nПроверьте номер чека."_s);
    EXPECT_TRUE(till->obstacleToPrinting(*document));
}

TEST_F(TillRules, closedSale_cannotBeResumed)
{
    EXPECT_EQ(text(till->obstacleToResuming(*sold())),
              u"Документ № 1 не отложен, его нельзя взять в работу.\nВыберите отложенный."_s);
}

TEST_F(TillRules, externalPosition_keepsItsQuantity)
{
    till->add(article(amoxidar));
    const auto position = till->document()->position(1);
    EXPECT_FALSE(till->obstacleToChangingQuantity(*position));
    position->setSoftCheckId(u"rx-1"_s);
    const QString refused = text(till->obstacleToChangingQuantity(*position));
    EXPECT_TRUE(refused.startsWith(u"Позиция «Амоксидар"_s));
    EXPECT_TRUE(refused.contains(u"» отпускается по документу, её количество"_s)) << qPrintable(refused);
}

TEST_F(TillRules, positionWhosePluginNamesItsOrigin_isSpokenOfByThatName)
{
    PositionMarks marks;
    QFile file(folder.filePath(u"marks.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"positions": [{"tag": "paper", "origin": "по накладной"}]})");
    file.close();
    marks.load(file.fileName());
    till->setMarks(marks);
    till->add(article(amoxidar));
    const auto position = till->document()->position(1);
    position->setSoftCheckId(u"rx-1"_s);
    position->setTag(u"paper"_s);
    const QString refused = text(till->obstacleToChangingQuantity(*position));
    EXPECT_TRUE(refused.contains(u"» отпускается по накладной, её количество"_s)) << qPrintable(refused);
}

TEST_F(TillRules, positionRemovedBefore_theMessageCountsFromOne)
{
    till->add(article(amoxidar));
    till->add(article(amoxidar));
    till->document()->position(2)->setSoftCheckId(u"rx-1"_s);
    till->remove(1);
    ASSERT_TRUE(till->document()->position(2)) << "plug-ins know it by this number";
    activePlugins.clear();
    const QString idle = text(till->obstacleToPayment());
    EXPECT_TRUE(idle.startsWith(u"Документ № 1: позиция № 1 отпускается по документу, а ни один модуль"_s))
        << qPrintable(idle);
}

TEST_F(TillRules, obstacleWithoutABriefForm_isShownInFull)
{
    EXPECT_EQ((Obstacle{{u"long"_s, u"Долго"_s}, {u"brief"_s, u"Кратко"_s}}).shortest().ui(), u"Кратко"_s);
    EXPECT_EQ((Obstacle{{u"long"_s, u"Долго"_s}}).shortest().ui(), u"Долго"_s);
}

TEST_F(TillRules, operationsThatARuleForbids_changeNothing)
{
    const auto sale = sold();
    till->open();
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(till->phase(), Till::Phase::Positions) << "no positions";
    ASSERT_TRUE(till->cancel());

    ASSERT_TRUE(till->returnSale(sale));
    const QJsonObject before = till->document()->toJson();
    till->remove(1);
    till->setPacks(1, 5);
    EXPECT_EQ(till->add(article(amoxidar)), 0);
    EXPECT_FALSE(till->suspend());
    EXPECT_EQ(till->document()->toJson(), before);
    EXPECT_FALSE(till->voidDocument(sale)) << "it is being returned";
    EXPECT_FALSE(till->voidDocument(nullptr));
}
