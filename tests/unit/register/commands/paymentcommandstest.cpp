// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"
#include "savingdouble.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class PaymentCommandsTest : public CommandFixture
{
};

class SubtotalCommand : public PaymentCommandsTest, public ::testing::WithParamInterface<control::EActionType>
{
protected:
    /// The phase that the action leads to.
    static Till::Phase phase()
    {
        return GetParam() == control::Subtotal ? Till::Phase::Subtotal : Till::Phase::Payment;
    }
};

TEST_P(SubtotalCommand, documentWithoutPositions_saysSoAndStops)
{
    till->open();
    const DialogDouble dialog;
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_P(SubtotalCommand, documentWithPositions_leadsOnAndBack)
{
    EXPECT_EQ(run(GetParam()), EContext::NotFound) << "no receipt is open";
    till->add(article(amoxidar));
    EXPECT_EQ(run(GetParam()), EContext::GoOn);
    EXPECT_EQ(till->phase(), phase());
    EXPECT_EQ(controller.object.context(), EContext::OpenDocument);
    EXPECT_EQ(run(registeraction::backToPositions), EContext::GoOn);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_P(SubtotalCommand, totalBelowZero_isRefusedWithWordsBeforeTheHooks)
{
    till->add(article(amoxidar));
    till->document()->positions().first()->setPrice(-0.01);
    int heard = 0;
    addHook(EContext::OpenDocument, GetParam(), [&heard](const control::Action&) {
        ++heard;
        return EContext::GoOn;
    });
    const DialogDouble dialog;
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text,
              u"Сумма чека меньше нуля: −0,01.\nУдалите позицию с отрицательной ценой или позовите администратора."_s);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);

    till->document()->positions().first()->setPrice(0.0);
    EXPECT_EQ(run(GetParam()), EContext::GoOn) << "a benefit may pay all";
}

TEST_P(SubtotalCommand, hookStops_positionsStayShown)
{
    till->add(article(amoxidar));
    addHook(EContext::OpenDocument, GetParam(), [](const control::Action&) { return EContext::Stop; });
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_P(SubtotalCommand, returnDocument_leadsOnToo)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_EQ(run(GetParam()), EContext::GoOn);
    EXPECT_EQ(till->phase(), phase());
}

INSTANTIATE_TEST_SUITE_P(Actions, SubtotalCommand, ::testing::Values(control::Subtotal, control::SubtotalAndPayment),
                         [](const auto& tested) { return "action" + std::to_string(tested.param); });

class PayCommand : public PaymentCommandsTest
{
protected:
    EContext::Result pay(const QString& received) { return run(registeraction::pay, {{u"received"_s, received}}); }
    /// A document over 24,80 that is at its payment.
    void standAtPayment()
    {
        till->add(article(amoxidar, 2));
        till->setPhase(Till::Phase::Payment);
    }
};

TEST_F(PayCommand, receivedInAnyForm_closesWithTheChange)
{
    const std::pair<const char*, Kopecks> forms[] = {
        {"50", Kopecks{5000}},         {" 24,80 ", Kopecks{2480}}, {"24.8", Kopecks{2480}},
        {"5024,79", Kopecks{502'479}}, {"", Kopecks{2480}},        {"  ", Kopecks{2480}},
    };
    for (const auto& [typed, received] : forms) {
        standAtPayment();
        const int number = till->document()->getNumber();
        EXPECT_EQ(pay(QLatin1StringView(typed)), EContext::GoOn) << typed;
        EXPECT_FALSE(till->document()) << typed;
        EXPECT_EQ(archived(number)->getReceived(), received) << typed;
        EXPECT_EQ(archived(number)->getChange(), received - Kopecks{2480}) << typed;
    }
}

TEST_F(PayCommand, absurdAmount_isAskedAboutBeforeTheChangeIsPaidOut)
{
    standAtPayment();
    cashier.onForm(u"questionForm"_s, [](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"messageLabel"_s)->text().remove(QChar::Nbsp),
                  u"Получено 99999999,00, к оплате 24,80.\nВыдать сдачу 99999974,20?"_s);
        press(root, "noButton");
    });
    EXPECT_EQ(pay(u"99999999"_s), EContext::Stop);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    answerQuestion("yesButton");
    EXPECT_EQ(pay(u"99999999"_s), EContext::GoOn);
    EXPECT_EQ(archived(1)->getReceived(), Kopecks{9'999'999'900});
}

TEST_F(PayCommand, receivedUnreadable_saysWhatWasTypedAndHowToTypeIt)
{
    standAtPayment();
    const DialogDouble dialog;
    const char* const typed[] = {"abc %1", "-50", "1 000", "24,801", "1e3", "999999999", "50 руб"};
    for (const char* text : typed) {
        EXPECT_EQ(pay(QString::fromUtf8(text)), EContext::Stop) << text;
    }
    ASSERT_EQ(dialog.messages().size(), std::ssize(typed));
    EXPECT_EQ(dialog.messages().first().text,
              u"«abc %1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(PayCommand, receivedTooLittle_saysWhatIsMissing)
{
    standAtPayment();
    const DialogDouble dialog;
    EXPECT_EQ(pay(u"24,79"_s), EContext::Stop);
    EXPECT_EQ(pay(u"0"_s), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_EQ(dialog.messages().first().text, u"Получено 24,79, а к оплате 24,80.\nНе хватает 0,01."_s);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(PayCommand, documentNotAtItsPayment_isNotClosed)
{
    EXPECT_EQ(pay(u"50"_s), EContext::NotFound) << "no receipt is open";
    till->add(article(amoxidar));
    EXPECT_EQ(pay(u"50"_s), EContext::Stop);
    till->setPhase(Till::Phase::Subtotal);
    EXPECT_EQ(pay(u"50"_s), EContext::Stop);
    EXPECT_TRUE(till->document());
}

TEST_F(PayCommand, returnDocument_paysItsSumOutWhateverIsTyped)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(pay(u"1"_s), EContext::GoOn);
    EXPECT_EQ(archived(2)->getReceived(), Kopecks{2480});
    EXPECT_EQ(archived(2)->getState(), Document::State::Closed);
}

TEST_F(PayCommand, documentCannotBeSaved_staysAtItsPayment)
{
    standAtPayment();
    {
        SavingDouble saving;
        saving.failAll();
        EXPECT_EQ(pay({}), EContext::Stop);
    }
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
    EXPECT_EQ(pay({}), EContext::GoOn);
}
