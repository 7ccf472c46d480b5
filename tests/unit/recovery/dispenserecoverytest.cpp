// SPDX-License-Identifier: MIT
// The plug-in's hooks, and what the cashier reads when the register starts.

#include "dispenserecovery.h"
#include "basicexception.h"
#include "recoveringtill.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{

class DispenseRecoveryTest : public RecoveringTill
{
protected:
    void takeUp(const QSharedPointer<AbstractDocument>& document)
    {
        makeCurrent(document);
        notifier.object.notify(Event(EActivityListener::DocumentRestored));
    }
    QSharedPointer<DocumentDouble> openReturn()
    {
        const auto opened = document(u"4"_s, u"rx-1"_s, u"d-1"_s);
        opened->type = AbstractDocument::Return;
        makeCurrent(opened);
        return opened;
    }
    QSharedPointer<DocumentDouble> closedSale(const QString& name)
    {
        const auto sale = document(name, u"rx-1"_s, u"d-1"_s);
        sale->closed = true;
        archive.object.ofNoDay.append(sale);
        return sale;
    }

    DispenseRecovery recovery;
};

TEST_F(DispenseRecoveryTest, journalLeavesItsRequestsOut_theCashierReadsWhyItStaysIdle)
{
    for (const QString& patterns : {u""_s, u"*/$register"_s}) {
        config.set(u"RestClient:journal"_s, patterns);
        restart();
        try {
            recovery.init();
            FAIL() << qPrintable(patterns);
        } catch (const BasicException& exception) {
            EXPECT_EQ(exception.tr().ui(), u"в настройке RestClient:journal нет */MedicationDispense/*, поэтому "
                                           "потерянные ответы реестра не сверяются"_s);
        }
    }
}

TEST_F(DispenseRecoveryTest, nothingUndecided_noWarning)
{
    closedSale(u"5"_s);
    refuse(cancellation(u"5"_s, u"d-1"_s));
    ASSERT_TRUE(recovery.init());
    EXPECT_EQ(warning.object.shown, QString());
}

TEST_F(DispenseRecoveryTest, undecidedRequestsOfDocumentsThatAreNotOpen_areNamedUntilTheyAreDecided)
{
    closedSale(u"5"_s);
    cancellation(u"5"_s, u"d-1"_s);
    registration(u"8"_s, u"rx-9"_s);
    restart();
    ASSERT_TRUE(recovery.init());
    EXPECT_EQ(warning.object.shown,
              u"Не решено, что записано в реестре. Документы: 5, 8. Дайте команду «Сверка с реестром»."_s);

    prescriptions[u"rx-1"_s] = {{u"d-1"_s}};
    recovery.reconcile();
    EXPECT_EQ(warning.object.shown,
              u"Не решено, что записано в реестре. Документы: 8. Дайте команду «Сверка с реестром»."_s);
    answer = {DispenseChoice::NoneOfThem};
    recovery.reconcile();
    EXPECT_EQ(warning.object.shown, QString());
    EXPECT_EQ(printer.object.lines.last(), u"Сверка закончена. Сверено документов: 0."_s);
}

TEST_F(DispenseRecoveryTest, saleIsCancelledWithAnOpenRequest_theStatusLineNamesItAtOnce)
{
    const auto sale = document(u"5"_s, u"rx-1"_s);
    ASSERT_TRUE(recovery.init());
    makeCurrent(sale);
    registration(u"5"_s, u"rx-1"_s);
    sale->closed = true;
    sale->undone = true;
    archive.object.ofNoDay.append(sale);
    makeCurrent(nullptr);
    notifier.object.notify(Event(EActivityListener::DocumentCancelled));
    EXPECT_TRUE(warning.object.shown.contains(u"Документы: 5."_s)) << qPrintable(warning.object.shown);

    prescriptions[u"rx-1"_s] = {{u"d-7"_s}};
    recovery.reconcile();
    EXPECT_TRUE(warning.object.shown.contains(u"Документы: 5."_s)) << "the registry holds it in vain";
}

TEST_F(DispenseRecoveryTest, answerThatAClosedSaleLacks_isUndecidedToo)
{
    closedSale(u"5"_s);
    confirmCancellation(cancellation(u"5"_s, u"d-1"_s));
    ASSERT_TRUE(recovery.init());
    EXPECT_TRUE(warning.object.shown.contains(u"Документы: 5."_s)) << qPrintable(warning.object.shown);
}

TEST_F(DispenseRecoveryTest, answersThatClosedSalesHave_areNotUndecided)
{
    closedSale(u"5"_s);
    confirm(registration(u"5"_s, u"rx-1"_s), u"d-1"_s);
    ASSERT_TRUE(recovery.init());
    EXPECT_EQ(warning.object.shown, QString());
}

TEST_F(DispenseRecoveryTest, undecidedRequestsOfOpenAndSuspendedDocuments_areLeftToTheirDocument)
{
    archive.object.ofNoDay.append(document(u"5"_s, u"rx-1"_s));
    registration(u"5"_s, u"rx-1"_s);
    const auto open = document(u"6"_s, u"rx-2"_s);
    registration(u"6"_s, u"rx-2"_s);
    prescriptions[u"rx-2"_s] = {{u"d-2"_s}};
    ASSERT_TRUE(recovery.init());
    takeUp(open);
    EXPECT_EQ(optionsOf(*open)["medicationDispenseId"_L1].toString(), u"d-2"_s);
    EXPECT_EQ(warning.object.shown, QString());
}

TEST_F(DispenseRecoveryTest, requestWithoutADocument_isUndecided)
{
    registration({}, u"rx-9"_s);
    ASSERT_TRUE(recovery.init());
    EXPECT_EQ(warning.object.shown, u"Не решено, что записано в реестре по запросам без документа. Дайте команду "
                                    "«Сверка с реестром»."_s);
}

TEST_F(DispenseRecoveryTest, journalWasDamaged_theCashierReadsItUntilAWholeComparison)
{
    QFile file(folder.filePath(u"requests.journal"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no json\n");
    file.close();
    restart();
    ASSERT_TRUE(recovery.init());
    EXPECT_EQ(warning.object.shown, u"Журнал запросов был повреждён: касса могла забыть запросы без ответа. Дайте "
                                    "команду «Сверка с реестром» и сообщите администратору."_s);
    recovery.reconcile();
    EXPECT_EQ(warning.object.shown, QString());
}

TEST_F(DispenseRecoveryTest, confirmedRequestOfAMissingDocument_isForgottenOnceItIsPrinted)
{
    confirm(registration(u"8"_s, u"rx-9"_s), u"d-9"_s);
    ASSERT_TRUE(recovery.init());
    recovery.reconcile();
    EXPECT_TRUE(printer.object.lines.first().contains(u"номер отпуска: d-9"_s))
        << qPrintable(printer.object.lines.first());
    EXPECT_EQ(openRequests(), 0);
    EXPECT_EQ(warning.object.shown, QString());
}

TEST_F(DispenseRecoveryTest, undecidedReturn_canBeSuspendedAndTheMessageSaysSo)
{
    ASSERT_TRUE(recovery.init());
    const auto opened = openReturn();
    cancellation(u"4"_s, u"d-1"_s);
    isDown = true;
    EXPECT_EQ(recovery.beforeSubtotal(), EContext::Stop);
    EXPECT_TRUE(isMarked(*opened));
    EXPECT_TRUE(messages().last().endsWith(u"Возврат можно отложить и обслужить следующего покупателя; когда возврат "
                                           "возобновят, касса спросит реестр снова."_s))
        << qPrintable(messages().last());
}

TEST_F(DispenseRecoveryTest, undecidedReturn_isCancelledOnceItIsDecided)
{
    ASSERT_TRUE(recovery.init());
    const auto opened = openReturn();
    cancellation(u"4"_s, u"d-1"_s);
    isDown = true;
    EXPECT_EQ(recovery.beforeCancelling(), EContext::Stop);
    isDown = false;
    prescriptions[u"rx-1"_s] = {};
    EXPECT_EQ(recovery.beforeCancelling(), EContext::GoOn);
    EXPECT_FALSE(isMarked(*opened));
    EXPECT_EQ(optionsOf(*opened)["status"_L1].toString(), u"canceled"_s);
}

TEST_F(DispenseRecoveryTest, messageOfWhatWasFound_comesAfterTheScreenShowsIt)
{
    ASSERT_TRUE(recovery.init());
    const auto open = document(u"6"_s, u"rx-2"_s);
    registration(u"6"_s, u"rx-2"_s);
    prescriptions[u"rx-2"_s] = {{u"d-2"_s}};
    QString shown;
    totals.object.onRecalculated = [&](const AbstractDocument& document) {
        EXPECT_TRUE(messages().isEmpty());
        shown = optionsOf(document)["status"_L1].toString();
    };
    takeUp(open);
    EXPECT_EQ(messages().size(), 1);
    EXPECT_EQ(shown, u"dispensed"_s);
}

/// A document whose dispense has no id.
class WithoutId : public DispenseRecoveryTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(recovery.init());
        prescriptions[u"rx-1"_s] = {{}};
        made = document(u"6"_s, u"rx-1"_s, u""_s);
        makeCurrent(made);
    }
    control::Action action(const QString& key, const QVariant& value) const
    {
        control::Action given(control::RemovePosition);
        given.insert(key, value);
        return given;
    }

    QSharedPointer<DocumentDouble> made;
};

TEST_F(WithoutId, sale_isSoldAndNeitherCancelledNorVoidedNorIsThePositionRemoved)
{
    EXPECT_EQ(recovery.beforeSubtotal(), EContext::GoOn);
    EXPECT_EQ(recovery.beforeCancelling(), EContext::Stop);
    EXPECT_EQ(recovery.beforeVoiding(action(u"document"_s, QVariant::fromValue(made.staticCast<AbstractDocument>()))),
              EContext::Stop);
    const int number = made->positions.first()->getNumber();
    EXPECT_EQ(recovery.beforeRemoving(action(u"positionNumber"_s, number)), EContext::Stop);
    EXPECT_EQ(messages().size(), 3);
}

TEST_F(WithoutId, returned_itsSubtotalStopsAndItCanBeCancelled)
{
    made->type = AbstractDocument::Return;
    EXPECT_EQ(recovery.beforeSubtotal(), EContext::Stop);
    ASSERT_EQ(messages().size(), 1);
    EXPECT_TRUE(messages().last().endsWith(u"До тех пор документ остаётся как был."_s));
    EXPECT_EQ(recovery.beforeCancelling(), EContext::GoOn);
}

} // namespace
