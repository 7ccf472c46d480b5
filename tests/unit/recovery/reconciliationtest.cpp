// SPDX-License-Identifier: MIT
// The comparison with the registry: it leaves no request of the journal out.

#include "reconciliation.h"
#include "recoveringtill.h"
#include "recoveryregistry.h"

using namespace Qt::StringLiterals;

namespace
{

class ReconciliationTest : public RecoveringTill
{
protected:
    Reconciliation reconcile()
    {
        return Reconciliation::of(clock.now.date(), RecoveryRegistry(), {u"active"_s, u"completed"_s});
    }
    /// A document of another day that ended.
    QSharedPointer<DocumentDouble> ofAnotherDay(const QString& name, const QString& prescription,
                                                const QString& dispense = {})
    {
        const auto made = document(name, prescription, dispense);
        made->closed = true;
        archive.object.ofNoDay.append(made);
        return made;
    }
    void today(const QSharedPointer<AbstractDocument>& document)
    {
        archive.object.ofDays[clock.now.date()].append(document);
    }
};

TEST_F(ReconciliationTest, saleOfAnotherDayWhoseCancellationHasNoAnswer_isDecidedAndTheCashierReadsWhatToDo)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s, u"d-1"_s);
    cancellation(u"5"_s, u"d-1"_s);
    prescriptions[u"rx-1"_s] = {};

    const Reconciliation found = reconcile();
    EXPECT_EQ(optionsOf(*sale)["status"_L1].toString(), u"canceled"_s);
    EXPECT_EQ(found.lines, (QStringList{u"Документ 5. Отпуск в реестре отменён, а продажа закрыта: рецепт rx-1, "
                                        "Амоксидар. Аннулируйте продажу или оформите возврат."_s,
                                        u"Сверка закончена. Сверено документов: 1."_s}));
    EXPECT_TRUE(found.isWhole);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, saleOfAnotherDayWhoseVoidingWasConfirmed_getsTheAnswerWithoutTheNetwork)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s, u"d-1"_s);
    confirmCancellation(cancellation(u"5"_s, u"d-1"_s));
    restart();

    const Reconciliation found = reconcile();
    EXPECT_EQ(optionsOf(*sale)["status"_L1].toString(), u"canceled"_s);
    EXPECT_TRUE(found.lines.first().startsWith(u"Документ 5. Отпуск в реестре отменён, а продажа закрыта"_s));
    EXPECT_EQ(lookUps, 0);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, cancelledSaleWhoseDispenseIsBooked_isReportedUntilTheRegistryHasItNoMore)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s);
    sale->undone = true;
    registration(u"5"_s, u"rx-1"_s);
    prescriptions[u"rx-1"_s] = {{u"d-7"_s}};

    for (int time = 0; time < 2; ++time) {
        const Reconciliation found = reconcile();
        EXPECT_EQ(found.lines,
                  (QStringList{u"Документ 5. Отпуск записан в реестре, а по чеку ничего не выдано: рецепт rx-1, "
                               "Амоксидар, номер отпуска: d-7. Попросите оператора реестра отменить его и повторите "
                               "сверку."_s,
                               u"Сверка закончена. Сверено документов: 0, не решено: 1. Повторите её, когда решение "
                               "известно."_s}));
        EXPECT_FALSE(found.isWhole);
        EXPECT_EQ(openRequests(), 1);
    }
    prescriptions[u"rx-1"_s] = {};
    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(optionsOf(*sale)["status"_L1].toString(), u"canceled"_s);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, cancelledSaleWhoseRegistrationWasConfirmed_isReportedUntilTheRegistryHasItNoMore)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s);
    sale->undone = true;
    confirm(registration(u"5"_s, u"rx-1"_s), u"d-7"_s);
    prescriptions[u"rx-1"_s] = {{u"d-7"_s}};
    restart();

    for (int time = 0; time < 2; ++time) {
        const Reconciliation found = reconcile();
        ASSERT_EQ(found.lines.size(), 2) << qPrintable(found.lines.join(u'\n'));
        EXPECT_TRUE(found.lines.first().startsWith(u"Документ 5. Отпуск записан в реестре, а по чеку"_s));
        EXPECT_FALSE(found.isWhole);
    }
    prescriptions[u"rx-1"_s] = {};
    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, cancelledReturn_mayHoldWhatItsSaleHasRegistered)
{
    const auto cancelled = ofAnotherDay(u"6"_s, u"rx-1"_s, u"d-1"_s);
    cancelled->type = AbstractDocument::Return;
    cancelled->undone = true;
    refuse(cancellation(u"6"_s, u"d-1"_s));

    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(optionsOf(*cancelled)["status"_L1].toString(), u"dispensed"_s);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, cancelledSaleWhoseRequestDidNotArrive_isSettled)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s);
    sale->undone = true;
    registration(u"5"_s, u"rx-1"_s);
    prescriptions[u"rx-1"_s] = {};

    const Reconciliation found = reconcile();
    EXPECT_EQ(found.lines.first(), u"Документ 5. Отпуска в реестре нет: рецепт rx-1, Амоксидар."_s);
    EXPECT_TRUE(found.isWhole);
    EXPECT_EQ(openRequests(), 0);
    EXPECT_FALSE(isMarked(*sale));
}

TEST_F(ReconciliationTest, documentThatTheTillDoesNotHave_isALineOfItsOwnUntilTheCashierDecides)
{
    registration(u"8"_s, u"rx-9"_s, 7.5);
    cancellation(u"8"_s, u"d-3"_s);
    clock.now = clock.now.addDays(1);

    const Reconciliation found = reconcile();
    ASSERT_EQ(found.lines.size(), 3) << qPrintable(found.lines.join(u'\n'));
    const QString sent = journal->object.requests().first().sent.toLocalTime().toString(u"dd.MM.yyyy HH:mm"_s);
    EXPECT_EQ(found.lines[0], u"Документа 8 на кассе нет. Запрос не решён: рецепт rx-9, доз: 7,5, отправлено %1. "
                              "Спросите оператора реестра, записан ли этот отпуск, и повторите сверку."_s.arg(sent));
    EXPECT_TRUE(found.lines[1].startsWith(u"Документа 8 на кассе нет. Запрос не решён: отмена отпуска d-3"_s));
    EXPECT_FALSE(found.isWhole);
    EXPECT_EQ(lookUps, 0) << "no card is known";
    ASSERT_EQ(questions.size(), 2);
    EXPECT_EQ(questions.first().prescription, u"rx-9"_s);
    EXPECT_EQ(questions.first().doses, u"7,5"_s);
    EXPECT_EQ(openRequests(), 2);

    answer = {DispenseChoice::NoneOfThem};
    const Reconciliation decided = reconcile();
    EXPECT_TRUE(decided.lines.first().startsWith(u"Документа 8 на кассе нет. Отпуск d-3 отменён в реестре."_s))
        << "the registration is settled, the cancellation needs somebody";
    EXPECT_EQ(decided.told.size(), 1);
    EXPECT_EQ(openRequests(), 1);
}

TEST_F(ReconciliationTest, registrationOfAMissingDocumentThatTheRegistryHolds_isReported)
{
    registration(u"8"_s, u"rx-9"_s);
    answer = {DispenseChoice::HeldUnseen};
    const Reconciliation found = reconcile();
    EXPECT_TRUE(found.lines.first().startsWith(u"Документа 8 на кассе нет. Отпуск записан в реестре: рецепт rx-9"_s))
        << qPrintable(found.lines.first());
    EXPECT_EQ(found.told.size(), 1);
}

TEST_F(ReconciliationTest, positionWasRemovedAndTheRegistryDoesNotShowItsPrescription_theCashierDecides)
{
    const auto sale = document(u"5"_s, u"rx-1"_s, u"d-1"_s);
    today(sale);
    registration(u"5"_s, u"rx-2"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    EXPECT_FALSE(reconcile().isWhole);
    ASSERT_EQ(questions.size(), 1);
    EXPECT_EQ(questions.first().prescription, u"rx-2"_s);
    answer = {DispenseChoice::NoneOfThem};
    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, positionWasRemovedAndItsPrescriptionIsCompletedWithoutAWordOfWho_theCashierDecides)
{
    today(document(u"5"_s, u"rx-1"_s, u"d-1"_s));
    registration(u"5"_s, u"rx-2"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    prescriptions[u"rx-2"_s] = {};
    completed = {u"rx-2"_s};
    EXPECT_FALSE(reconcile().isWhole);
    EXPECT_EQ(questions.size(), 1);
    EXPECT_EQ(openRequests(), 1);
}

TEST_F(ReconciliationTest, positionWasRemovedAndAnotherPharmacyDispensed_theCashierSaysThatItIsNotOurs)
{
    today(document(u"5"_s, u"rx-1"_s, u"d-1"_s));
    registration(u"5"_s, u"rx-2"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    prescriptions[u"rx-2"_s] = {{u"d-8"_s, 10, u"2026-03-02"_s, u"Аптека № 18"_s}};

    EXPECT_FALSE(reconcile().isWhole);
    EXPECT_EQ(questions.size(), 1);
    EXPECT_EQ(openRequests(), 1);

    answer = {DispenseChoice::NoneOfThem};
    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, pharmacyIsWrittenInCapitals_itsDispenseWithoutADocumentIsReported)
{
    today(document(u"5"_s, u"rx-1"_s, u"d-1"_s));
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}, {u"d-8"_s, 5, u"2026-03-02"_s, u"АПТЕКА  № 17"_s}};
    const QString lines = reconcile().lines.join(u'\n');
    EXPECT_TRUE(lines.contains(u"номер отпуска d-8"_s)) << qPrintable(lines);
}

TEST_F(ReconciliationTest, twoDispensesOfACancelledSale_areBothReported)
{
    const auto sale = ofAnotherDay(u"5"_s, u"rx-1"_s);
    sale->undone = true;
    addPosition(*sale, u"rx-2"_s);
    registration(u"5"_s, u"rx-1"_s);
    registration(u"5"_s, u"rx-2"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    prescriptions[u"rx-2"_s] = {{u"d-2"_s}};
    const QString lines = reconcile().lines.join(u'\n');
    EXPECT_TRUE(lines.contains(u"номер отпуска: d-1"_s) && lines.contains(u"номер отпуска: d-2"_s))
        << qPrintable(lines);
}

TEST_F(ReconciliationTest, requestWithoutADocument_isALineOfItsOwn)
{
    registration({}, u"rx-9"_s);
    const Reconciliation found = reconcile();
    EXPECT_TRUE(found.lines.first().startsWith(u"Запрос был без документа. Запрос не решён: рецепт rx-9, доз: 10"_s))
        << qPrintable(found.lines.first());
    EXPECT_FALSE(found.isWhole);
}

TEST_F(ReconciliationTest, confirmedRequestsOfAMissingDocument_areReportedAndToldOnce)
{
    confirm(registration(u"8"_s, u"rx-1"_s), u"d-1"_s);
    confirmCancellation(cancellation(u"8"_s, u"d-1"_s));
    const qint64 left = registration(u"8"_s, u"rx-2"_s);
    confirm(left, u"d-2"_s);
    refuse(registration(u"8"_s, u"rx-3"_s));

    const Reconciliation found = reconcile();
    ASSERT_EQ(found.lines.size(), 2) << qPrintable(found.lines.join(u'\n'));
    EXPECT_TRUE(found.lines.first().contains(u"номер отпуска: d-2"_s)) << qPrintable(found.lines.first());
    EXPECT_FALSE(found.isWhole);
    EXPECT_EQ(found.told, QList<qint64>{left});
    EXPECT_EQ(openRequests(), 1);
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(ReconciliationTest, registryIsDown_whatNeedsNoNetworkIsReportedAllTheSame)
{
    today(document(u"5"_s, u"rx-1"_s));
    registration(u"5"_s, u"rx-1"_s);
    ofAnotherDay(u"3"_s, u"rx-2"_s, u"d-1"_s);
    cancellation(u"3"_s, u"d-1"_s);
    ofAnotherDay(u"4"_s, u"rx-3"_s, u"d-3"_s);
    cancellation(u"4"_s, u"d-3"_s);
    registration(u"8"_s, u"rx-9"_s);
    isDown = true;

    const Reconciliation found = reconcile();
    EXPECT_EQ(messages().size(), 2) << "the first one's card may be the reason; the third is not asked about";
    EXPECT_EQ(found.lines.mid(0, 2), (QStringList{u"Документ 5. Не решено: рецепт rx-1, Амоксидар."_s,
                                                  u"Документ 3. Не решено: рецепт rx-2, Амоксидар."_s}));
    ASSERT_EQ(found.lines.size(), 4) << qPrintable(found.lines.join(u'\n'));
    EXPECT_TRUE(found.lines[2].startsWith(u"Документа 8 на кассе нет."_s));
    EXPECT_TRUE(found.lines[3].startsWith(u"Сверка прервана."_s));
    EXPECT_FALSE(found.isWhole);
    EXPECT_EQ(openRequests(), 4);
}

TEST_F(ReconciliationTest, positionWasRemoved_itsRegistrationIsLookedFor)
{
    const auto sale = document(u"5"_s, u"rx-1"_s, u"d-1"_s);
    today(sale);
    registration(u"5"_s, u"rx-2"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    prescriptions[u"rx-2"_s] = {{u"d-8"_s}};

    const Reconciliation found = reconcile();
    ASSERT_EQ(found.lines.size(), 2) << qPrintable(found.lines.join(u'\n'));
    EXPECT_TRUE(found.lines.first().contains(u"по чеку ничего не выдано: рецепт rx-2, доз: 10"_s));
    EXPECT_TRUE(found.lines.first().contains(u"номер отпуска: d-8"_s));
    EXPECT_FALSE(found.isWhole);

    prescriptions[u"rx-2"_s] = {};
    const Reconciliation later = reconcile();
    EXPECT_TRUE(later.isWhole) << qPrintable(later.lines.join(u'\n'));
    EXPECT_EQ(openRequests(), 0);
}

TEST_F(ReconciliationTest, severalDocuments_theArchiveIsReadOnceForTheDay)
{
    for (const QString& number : {u"1"_s, u"2"_s, u"3"_s}) {
        today(document(number, u"rx-"_s + number, u"d-"_s + number));
        prescriptions[u"rx-"_s + number] = {{u"d-"_s + number}};
    }
    EXPECT_TRUE(reconcile().isWhole);
    EXPECT_EQ(archive.object.readings, 1);
}

TEST_F(ReconciliationTest, twoDocumentsLostTheirAnswers_eachGetsADispenseOfItsOwn)
{
    const auto first = document(u"1"_s, u"rx-1"_s);
    const auto second = document(u"2"_s, u"rx-1"_s);
    today(first);
    today(second);
    registration(u"1"_s, u"rx-1"_s);
    registration(u"2"_s, u"rx-1"_s);
    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};

    const Reconciliation found = reconcile();
    EXPECT_EQ(optionsOf(*first)["medicationDispenseId"_L1].toString(), u"d-1"_s);
    EXPECT_EQ(optionsOf(*second)["status"_L1].toString(), QString());
    EXPECT_TRUE(found.lines.contains(u"Документ 2. Отпуска в реестре нет: рецепт rx-1, Амоксидар."_s))
        << qPrintable(found.lines.join(u'\n'));
}

TEST_F(ReconciliationTest, cardThatTheRegistryDoesNotKnow_doesNotEndTheComparison)
{
    today(document(u"1"_s, u"rx-1"_s, u"d-1"_s));
    today(document(u"2"_s, u"rx-2"_s, u"d-2"_s));
    refusal = 404;

    const Reconciliation found = reconcile();
    EXPECT_EQ(found.lines.last(), u"Сверка закончена. Сверено документов: 2."_s);
    EXPECT_EQ(found.lines.first(), u"Документ 1. Реестр не знает карту этого документа (Карта не найдена): другие "
                                   "отпуска по ней не сверены."_s);
}

} // namespace
