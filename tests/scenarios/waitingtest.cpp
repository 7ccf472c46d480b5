// SPDX-License-Identifier: MIT
// What the cashier reads and may do while the registry is asked, and when it does not answer.
#include "cashiersteps.h"
#include "pharmacy.h"

using namespace Qt::StringLiterals;

namespace
{

const QByteArray readsTheMessage = R"({"wait": "messageForm"}, {"print": "messageLabel"}, {"print": "titleLabel"},
    {"key": "Return"}, {"visible": false, "in": "messageForm"})";

/// A card is looked up without an open document, and the registry is silent.
class SilentLookUp : public Pharmacy
{
protected:
    void orderSilence(const char* endpoint)
    {
        configure("ElectronicPrescription:timeout", "60");
        registry.orderFault({{"endpoint", endpoint}, {"fault", "never"}});
    }
};

/// The document of three prescriptions is taken to the subtotal.
class SilentRegistration : public SilentLookUp
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }
};

const QByteArray asksForACard = R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"scan": "1100000000000001"})";

TEST_F(SilentLookUp, escape_stopsAtOnceAndReadsAsStoppedWithoutAnError)
{
    orderSilence("by-card");
    const Outcome outcome = playSteps({asksForACard, R"({"visible": true, "in": "busyScreen"},
        {"expect": "Поиск рецептов по карте", "in": "busyStepLabel", "seconds": 30},
        {"contains": "самое большее 60 с", "in": "busyTimeLabel"},
        {"contains": "Esc — прекратить", "in": "busyHintLabel"}, {"screenshot": "look-up"}, {"key": "Esc"})",
                                       readsTheMessage, R"({"visible": false, "in": "busyScreen"},
        {"expect": "Чек не открыт", "in": "receiptNumberLabel"}, {"expect": "Чек № 1 отменён", "in": "statusMessageLabel"})"});
    expectPlayed(outcome);
    EXPECT_TRUE(outcome.output.contains(u"Поиск рецептов прекращён кассиром"_s)) << qPrintable(outcome.output);
    EXPECT_TRUE(outcome.output.contains(u"Сообщение"_s)) << qPrintable(outcome.output);
    EXPECT_FALSE(outcome.output.contains(u"Ошибка"_s)) << qPrintable(outcome.output);
    EXPECT_FALSE(outcome.output.contains(u"мог быть выполнен"_s)) << qPrintable(outcome.output);
}

TEST_F(SilentLookUp, otherKeys_stopNothing)
{
    registry.orderFault({{"endpoint", "by-card"}, {"fault", "delay"}, {"delay", 1500}});
    expectPlayed(playSteps({asksForACard, R"({"visible": true, "in": "busyScreen"}, {"key": "Return"}, {"key": "F9"},
        {"key": "Delete"}, {"wait": "electronicPrescriptionsTableView"})"}));
}

TEST_F(SilentRegistration, escape_asksFirstAndWaitingOnLosesNothing)
{
    registry.orderFault({{"endpoint", "register"}, {"fault", "delay"}, {"delay", 5000}});
    expectPlayed(playSteps({cashier::findsTheDocument, R"({"key": "F6"},
        {"contains": "Регистрация отпуска 1 из 3. Рецепт", "in": "busyStepLabel"},
        {"contains": "Esc — не ждать ответа", "in": "busyHintLabel"}, {"screenshot": "registration"}, {"key": "Esc"},
        {"wait": "questionForm"}, {"key": "Esc"}, {"visible": false, "in": "questionForm"},
        {"expect": "ПОДЫТОГ", "in": "paymentCaptionLabel", "seconds": 30})"}));
    EXPECT_EQ(registry.requestsTo("register"), 3);
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(SilentRegistration, cashierStopsWaiting_readsWhichDispenseIsUnknownAndWhatToDoNext)
{
    configure("ElectronicPrescription:timeout", "60");
    registry.orderFault({{"endpoint", "register"}, {"nth", 2}, {"fault", "never"}});
    const Outcome outcome = playSteps({cashier::findsTheDocument, R"({"key": "F6"},
        {"contains": "Регистрация отпуска 2 из 3. Рецепт", "in": "busyStepLabel", "seconds": 30},
        {"contains": "Esc — не ждать ответа", "in": "busyHintLabel"}, {"key": "Esc"}, {"click": "yesButton"})",
                                       readsTheMessage, R"({"visible": false, "in": "paymentPanel"},
        {"contains": "Подытог не выполнен. Сообщение: Регистрация отпуска 2 из 3", "in": "statusMessageLabel"},
        {"click": "statusMoreButton"})",
                                       readsTheMessage});
    expectPlayed(outcome);
    for (const QString& said :
         {u"Регистрация отпуска 2 из 3. Рецепт"_s, u"товар: "_s, u"Запрос мог быть выполнен"_s,
          u"Неизвестно, записан ли в реестре этот отпуск; чек не закрыт. Записано до него: 1 из 3."_s}) {
        EXPECT_EQ(outcome.output.count(said), 2) << qPrintable(said) << "\n" << qPrintable(outcome.output);
    }
    EXPECT_EQ(registry.requestsTo("register"), 2);
    EXPECT_EQ(registeredBy(savedDocument()).size(), 1);
}

TEST_F(SilentRegistration, tokenLost_doesNotReadAsCarriedOut)
{
    registry.orderFault({{"endpoint", "token"}, {"fault", "close"}});
    const Outcome outcome = playSteps({cashier::findsTheDocument, R"({"key": "F6"})", readsTheMessage});
    expectPlayed(outcome);
    EXPECT_TRUE(outcome.output.contains(u"Связь с сервером 127.0.0.1 прервалась."_s)) << qPrintable(outcome.output);
    EXPECT_TRUE(outcome.output.contains(u"Реестр не подтвердил этот отпуск"_s)) << qPrintable(outcome.output);
    EXPECT_FALSE(outcome.output.contains(u"мог быть выполнен"_s)) << qPrintable(outcome.output);
    EXPECT_EQ(registry.requestsTo("register"), 0);
}

TEST_F(SilentRegistration, tokenStopped_asksNothingAndRegistersNothing)
{
    orderSilence("token");
    const Outcome outcome = playSteps({cashier::findsTheDocument, R"({"key": "F6"},
        {"contains": "Вход в сервис", "in": "busyStepLabel", "seconds": 30},
        {"contains": "Esc — прекратить", "in": "busyHintLabel"}, {"key": "Esc"})",
                                       readsTheMessage});
    expectPlayed(outcome);
    EXPECT_TRUE(outcome.output.contains(u"Запрос прекращён кассиром."_s)) << qPrintable(outcome.output);
    EXPECT_EQ(registry.requestsTo("register"), 0);
}

TEST_F(SilentRegistration, answerIsHalfAJsonBody_readsTheSpecifiedTextAndThatTheDispenseMayBeRegistered)
{
    registry.orderFault({{"endpoint", "register"}, {"fault", "half-json"}});
    const Outcome outcome = playSteps({cashier::findsTheDocument, R"({"key": "F6"})", readsTheMessage});
    expectPlayed(outcome);
    EXPECT_TRUE(outcome.output.contains(u"Ошибка при отпуске лекарственного препарата по рецепту\nНеизвестно, записан "
                                        "ли в реестре этот отпуск"_s))
        << qPrintable(outcome.output);
}

using PrescriptionKey = Pharmacy;

TEST_F(PrescriptionKey, withoutADocument_opensASaleAndReturnInTheEmptyFieldSaysThatItIsEmpty)
{
    expectPlayed(playSteps({R"({"expect": "Чек не открыт", "in": "receiptNumberLabel"}, {"key": "F5"},
        {"wait": "inputLineEdit"}, {"key": "Return"}, {"contains": "Поле пустое", "in": "scanErrorLabel"},
        {"scan": "1100000000000001"}, {"wait": "electronicPrescriptionsTableView"}, {"key": "Esc"},
        {"expect": "Чек № 1", "in": "receiptNumberLabel"}, {"receipt": {"type": 1, "positions": []}})"}));
}

TEST_F(PrescriptionKey, cardInputIsLeft_noEmptySaleStaysOpen)
{
    expectPlayed(playSteps({R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"key": "Esc"},
        {"visible": false, "in": "inputLineEdit"}, {"expect": "Чек не открыт", "in": "receiptNumberLabel"})"}));
}

TEST_F(SilentRegistration, prescriptionKeyInAReturn_saysWhyNot)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays, cashier::opensTheWholeReturn,
                            cashier::findsTheDocument,
                            cashier::tries(R"({"key": "F5"})", "эта команда действует только в продаже")}));
}

} // namespace
