// SPDX-License-Identifier: MIT
// Which dispense of the registry is the lost one, and what is decided where the registry does not say everything.

#include "documentsettling.h"
#include "recoveringtill.h"
#include "recoveryregistry.h"

using namespace Qt::StringLiterals;

namespace
{

class DocumentSettlingTest : public RecoveringTill
{
protected:
    bool decide(const QSharedPointer<AbstractDocument>& document)
    {
        TillDocuments documents;
        DocumentSettling settling(registry, documents, document, {u"active"_s, u"completed"_s});
        return settling.decide(document->getPositions());
    }
    bool decideWithoutIds(const QSharedPointer<AbstractDocument>& document)
    {
        TillDocuments documents;
        DocumentSettling settling(registry, documents, document, {u"active"_s});
        return settling.decideWithoutIds(document->getPositions());
    }
    static QString dispenseOf(const AbstractDocument& document)
    {
        return optionsOf(document)["medicationDispenseId"_L1].toString();
    }
    static QString statusOf(const AbstractDocument& document) { return optionsOf(document)["status"_L1].toString(); }

    const RecoveryRegistry registry{};
    const QDate monday{2026, 3, 2};
};

TEST_F(DocumentSettlingTest, dispenseOfADocumentThatWasClosedADayLater_isNotTheLostOne)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    archive.object.ofDays[monday.addDays(1)] = {document(u"1"_s, u"rx-1"_s, u"d-1"_s)};
    clock.now = clock.now.addDays(2);

    EXPECT_TRUE(decide(lost));
    EXPECT_EQ(statusOf(*lost), QString()) << "it is sent again";
}

TEST_F(DocumentSettlingTest, dispenseThatTheJournalKnowsOfAnotherDocument_isNotTheLostOne)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    confirm(registration(u"1"_s, u"rx-1"_s), u"d-1"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};

    EXPECT_TRUE(decide(lost));
    EXPECT_EQ(statusOf(*lost), QString());
}

TEST_F(DocumentSettlingTest, dispenseWithoutIdThatAnotherDocumentHas_isNotTheLostOne)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    archive.object.ofDays[monday] = {document(u"1"_s, u"rx-1"_s, u""_s)};
    prescriptions[u"rx-1"_s] = {{}};
    EXPECT_TRUE(decide(lost));
    EXPECT_TRUE(questions.isEmpty());
    EXPECT_EQ(statusOf(*lost), QString());

    prescriptions[u"rx-1"_s] = {{}, {}};
    EXPECT_FALSE(decide(lost)) << "one of the two is left, and the cashier decides later";
    ASSERT_EQ(questions.size(), 1);
    EXPECT_EQ(questions.first().dispenses.size(), 1);
}

TEST_F(DocumentSettlingTest, dispensesWithoutIdOfOtherPrescriptionsOrDoses_doNotCount)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    const auto otherDoses = document(u"3"_s, u"rx-1"_s, u""_s);
    otherDoses->positions.first()->setExtendedOptions(
        QString(otherDoses->positions.first()->getExtendedOptions()).replace(u"10"_s, u"5"_s));
    archive.object.ofDays[monday] = {document(u"1"_s, u"rx-2"_s, u""_s), otherDoses};
    prescriptions[u"rx-1"_s] = {{}};

    EXPECT_FALSE(decide(lost));
    EXPECT_EQ(questions.size(), 1);
}

TEST_F(DocumentSettlingTest, cardThatTheRegistryDoesNotKnow_theCashierReadsItAndDecides)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    for (const int status : {404, 410}) {
        refusal = status;
        EXPECT_FALSE(decide(lost));
        EXPECT_TRUE(messages().last().startsWith(u"Карта не найдена\n\nРеестр не знает карту этого документа"_s))
            << qPrintable(messages().last());
    }
    EXPECT_EQ(lookUps, 2) << "the answer is the same for each status";
    ASSERT_EQ(questions.size(), 2);
    EXPECT_TRUE(questions.first().dispenses.isEmpty());

    answer = {DispenseChoice::HeldUnseen};
    EXPECT_TRUE(decide(lost));
    EXPECT_EQ(statusOf(*lost), u"dispensed"_s);
}

TEST_F(DocumentSettlingTest, lookUpRefusedForAnotherReason_isNoAnswer)
{
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    for (const int status : {400, 401, 403, 429, 503}) {
        refusal = status;
        EXPECT_FALSE(decide(lost)) << status;
        EXPECT_TRUE(messages().last().contains(u"Касса не знает, что записано в реестре"_s)) << status;
    }
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(DocumentSettlingTest, dispenseWithoutId_theCashierReadsThatTheTillCannotCancelIt)
{
    const auto sale = document(u"2"_s, u"rx-1"_s, u""_s);
    prescriptions[u"rx-1"_s] = {{}};

    EXPECT_FALSE(decideWithoutIds(sale));
    ASSERT_EQ(messages().size(), 1);
    EXPECT_EQ(messages().first(),
              u"Касса не может отменить отпуск, номер которого реестр не сообщил: рецепт rx-1, Амоксидар.\n"
              "Ничего не отправлено. Попросите оператора реестра отменить этот отпуск. Когда он отменён, повторите "
              "команду и выберите последнюю строку списка. "
              "До тех пор документ можно отложить и обслужить следующего покупателя."_s);
    EXPECT_EQ(questions.size(), 1);
    EXPECT_EQ(statusOf(*sale), u"dispensed"_s);

    answer = {DispenseChoice::Chosen, 0};
    EXPECT_FALSE(decideWithoutIds(sale)) << "it is there, and has no id";

    answer = {DispenseChoice::NoneOfThem};
    EXPECT_TRUE(decideWithoutIds(sale));
    EXPECT_EQ(statusOf(*sale), u"canceled"_s);
}

TEST_F(DocumentSettlingTest, dispenseWithoutIdThatTheOperatorHasCancelled_isCancelledWithoutAQuestion)
{
    const auto sale = document(u"2"_s, u"rx-1"_s, u""_s);
    prescriptions[u"rx-1"_s] = {{u"d-4"_s, 5}};
    EXPECT_TRUE(decideWithoutIds(sale));
    EXPECT_EQ(statusOf(*sale), u"canceled"_s);
    EXPECT_TRUE(messages().isEmpty());
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(DocumentSettlingTest, completedPrescriptionIsShownWithoutDispenses_noDispenseCountsAsCancelled)
{
    prescriptions[u"rx-1"_s] = {};
    completed = QStringList{u"rx-1"_s};
    const auto sale = document(u"2"_s, u"rx-1"_s, u"d-1"_s);
    cancellation(u"2"_s, u"d-1"_s);
    EXPECT_FALSE(decide(sale));
    EXPECT_EQ(questions.size(), 1);
    EXPECT_EQ(statusOf(*sale), u"dispensed"_s);

    const auto withoutId = document(u"3"_s, u"rx-1"_s, u""_s);
    EXPECT_FALSE(decideWithoutIds(withoutId));
    EXPECT_EQ(questions.size(), 2);
    EXPECT_EQ(statusOf(*withoutId), u"dispensed"_s);
}

TEST_F(DocumentSettlingTest, clockWasWrongByYears_onlyTheLastMonthsAreRead)
{
    const QDateTime now = clock.now;
    clock.now = QDateTime({2000, 1, 1}, {12, 0});
    const auto lost = document(u"2"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    clock.now = now;
    prescriptions[u"rx-1"_s] = {{u"d-1"_s, 10, u"2000-01-01"_s}};
    EXPECT_TRUE(decide(lost));
    EXPECT_EQ(dispenseOf(*lost), u"d-1"_s);
    EXPECT_LT(archive.object.readings, 70);
}

TEST_F(DocumentSettlingTest, dispenseWhoseIdTheRegistryShowsByNow_canBeCancelled)
{
    const auto sale = document(u"2"_s, u"rx-1"_s, u""_s);
    prescriptions[u"rx-1"_s] = {{u"d-4"_s}};
    answer = {DispenseChoice::Chosen, 0};
    EXPECT_TRUE(decideWithoutIds(sale));
    EXPECT_EQ(dispenseOf(*sale), u"d-4"_s);
    EXPECT_EQ(statusOf(*sale), u"dispensed"_s);
}

TEST_F(DocumentSettlingTest, dispensesWithIds_areNotAskedAbout)
{
    EXPECT_TRUE(decideWithoutIds(document(u"2"_s, u"rx-1"_s, u"d-1"_s)));
    EXPECT_TRUE(decideWithoutIds(document(u"2"_s, u"rx-1"_s)));
    EXPECT_EQ(lookUps, 0);
}

} // namespace
