// SPDX-License-Identifier: MIT
#include "actionhost.h"
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"

#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

class OpenDocumentCommandsTest : public CommandFixture
{
};

TEST_F(OpenDocumentCommandsTest, openDocument_opensOneAndSaysSoWhenItIsOpen)
{
    EXPECT_EQ(run(registeraction::openSale), EContext::GoOn);
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::openSale), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text,
              u"Чек № 1 уже открыт.\nЗавершите или отложите его, чтобы открыть следующий."_s);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
}

TEST_F(OpenDocumentCommandsTest, changeQuantity_setsThePacksTyped)
{
    till->add(article(amoxidar));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) {
        auto* input = root.findChild<QLineEdit*>(u"inputLineEdit"_s);
        EXPECT_EQ(input->text(), u"1"_s);
        input->setText(u"7"_s);
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 7.0);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(OpenDocumentCommandsTest, changeQuantityCancelled_leavesThePacks)
{
    till->add(article(amoxidar, 3));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 3.0);
}

TEST_F(OpenDocumentCommandsTest, noPositionChosen_saysSo)
{
    till->open();
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::changeQuantity), EContext::Stop);
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(4)), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_EQ(dialog.messages().first().text, u"Сначала выберите позицию чека."_s);
}

TEST_F(OpenDocumentCommandsTest, externalPosition_keepsItsQuantity)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Позиция «Амоксидар"_s));
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 1);
}

TEST_F(OpenDocumentCommandsTest, externalPosition_isRemovedOnlyAfterTheQuestionAndByTheHooks)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    int hooks = 0;
    controller.object.host().addTrigger({EContext::OpenDocument, control::RemovePosition, ActionTrigger::Before,
                                         [&hooks](const control::Action&) {
                                             ++hooks;
                                             return EContext::GoOn;
                                         },
                                         ActionTrigger::Any, 1});
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { press(root, "noButton"); });
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(hooks, 0);
    EXPECT_EQ(till->document()->positions().size(), 1);
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { press(root, "yesButton"); });
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(hooks, 1);
    EXPECT_TRUE(till->document()->positions().isEmpty());
}

TEST_F(OpenDocumentCommandsTest, removePosition_asksTheHooksWhileThePositionStands)
{
    till->add(article(amoxidar));
    EContext::Result permission = EContext::Stop;
    QList<int> asked;
    controller.object.host().addTrigger({EContext::OpenDocument, control::RemovePosition, ActionTrigger::Before,
                                         [&](const control::Action& cancellation) {
                                             const int number = cancellation.value(u"positionNumber"_s).toInt();
                                             EXPECT_TRUE(till->document()->getPosition(number));
                                             asked.append(number);
                                             return permission;
                                         },
                                         ActionTrigger::Any, 1});
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(till->document()->positions().size(), 1);
    permission = EContext::GoOn;
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::GoOn);
    EXPECT_TRUE(till->document()->positions().isEmpty());
    EXPECT_EQ(asked, (QList<int>{1, 1}));
    EXPECT_TRUE(savedDocument().value(u"positions"_s).toArray().isEmpty());
}

class CancellationHook : public OpenDocumentCommandsTest, public ::testing::WithParamInterface<EContext::Result>
{
};

TEST_P(CancellationHook, positionIsCancelledOnlyWhenItGoesOn)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    addHook(EContext::OpenDocument, control::RemovePosition, [this](const control::Action& cancellation) {
        EXPECT_EQ(cancellation.value(u"positionNumber"_s).toInt(), 1);
        EXPECT_TRUE(till->document()->getPosition(1));
        return GetParam();
    });
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), GetParam());
    EXPECT_EQ(till->document()->positions().isEmpty(), GetParam() == EContext::GoOn);
    EXPECT_EQ(savedDocument().value(u"positions"_s).toArray().isEmpty(), GetParam() == EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
}

TEST_P(CancellationHook, documentIsCancelledOnlyWhenItGoesOn)
{
    for (const auto type : {control::CancelDocument, control::CancelDocumentFromMenu}) {
        till->add(article(amoxidar));
        witness.seen.clear();
        int asked = 0;
        addHook(EContext::OpenDocument, type, [&](const control::Action&) {
            EXPECT_EQ(till->document()->positions().size(), 1);
            EXPECT_TRUE(witness.seen.isEmpty());
            ++asked;
            return GetParam();
        });
        EXPECT_EQ(run(type), GetParam());
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(till->document().isNull(), GetParam() == EContext::GoOn);
        EXPECT_EQ(witness.codes(), GetParam() == EContext::GoOn ? QList<int>{22} : QList<int>());
        controller.object.host().removePluginEntries();
        till->cancel();
    }
}

TEST_P(CancellationHook, refusedAtThePayment_theWayToItLeadsThroughTheSubtotalAgain)
{
    for (const auto type : {control::RemovePosition, control::CancelDocument, control::CancelDocumentFromMenu}) {
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
        addHook(EContext::OpenDocument, type, [](const control::Action&) { return GetParam(); });
        EXPECT_EQ(run(type, positionNumber(till->document()->positions().first()->getNumber())), GetParam());
        EXPECT_EQ(till->phase(), Till::Phase::Positions);
        EXPECT_EQ(run(registeraction::pay), till->document() ? EContext::Stop : EContext::NotFound);
        controller.object.host().removePluginEntries();
        till->cancel();
    }
}

INSTANTIATE_TEST_SUITE_P(Results, CancellationHook,
                         ::testing::Values(EContext::Stop, EContext::NotFound, EContext::GoOn),
                         [](const auto& tested) { return "result" + std::to_string(tested.param); });

TEST_F(OpenDocumentCommandsTest, positionThatIsNotThere_isNotCancelled)
{
    till->add(article(amoxidar));
    const DialogDouble dialog;
    EXPECT_EQ(run(control::RemovePosition, positionNumber(2)), EContext::NotFound);
    EXPECT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(OpenDocumentCommandsTest, cancelDocument_asksFirstAndNamesTheSum)
{
    till->add(article(amoxidar, 2));
    int hooks = 0;
    for (const auto type : {control::CancelDocument, control::CancelDocumentFromMenu}) {
        addHook(EContext::OpenDocument, type, [&hooks](const control::Action&) {
            ++hooks;
            return EContext::GoOn;
        });
    }
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    EXPECT_EQ(question, u"Отменить чек № 1 на сумму 24,80?"_s);
    EXPECT_EQ(hooks, 0);
    EXPECT_TRUE(till->document());
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::GoOn);
    EXPECT_EQ(hooks, 1);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(archived(1)->getState(), Document::State::Cancelled);
}

TEST_F(OpenDocumentCommandsTest, cancelDocument_isDoneByTheActionOfTheKey)
{
    QList<int> done;
    for (const auto type : {control::CancelDocument, control::CancelDocumentFromMenu}) {
        addHook(EContext::OpenDocument, type, [&done](const control::Action& cancellation) {
            done.append(cancellation.getType());
            return EContext::GoOn;
        });
    }
    const QVariantMap keys[] = {{}, {{u"by"_s, u"206"_s}}, {{u"by"_s, 131}}};
    for (const QVariantMap& arguments : keys) {
        till->add(article(amoxidar));
        answerQuestion("yesButton");
        EXPECT_EQ(run(registeraction::askToCancelDocument, arguments), EContext::GoOn);
        EXPECT_FALSE(till->document());
    }
    EXPECT_EQ(done, (QList<int>{131, 206, 131}));
}

TEST_F(OpenDocumentCommandsTest, questionClosedByTheRegister_leavesTheDocument)
{
    till->add(article(amoxidar));
    cashier.onForm(u"questionForm"_s, [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    EXPECT_TRUE(till->document());
}

TEST_F(OpenDocumentCommandsTest, returnDocument_takesNoGoodsAndIsCancelledOnlyWhole)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    const QJsonObject before = till->document()->toJson();
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::Stop);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}), EContext::Stop);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(control::RemovePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(till->document()->toJson(), before);
    ASSERT_EQ(dialog.messages().size(), 5);
    for (const auto& message : dialog.messages().mid(0, 2)) {
        EXPECT_TRUE(message.text.startsWith(u"Открыт возврат: товары в него не добавляются"_s));
    }
    for (const auto& message : dialog.messages().mid(2)) {
        EXPECT_EQ(message.text,
                  u"Позиции возврата не меняются.\nЧтобы вернуть другие, отмените возврат и начните его заново."_s);
    }
}

TEST_F(OpenDocumentCommandsTest, returnDocumentCancelled_asksForTheReturn)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"titleLabel"_s)->text(), u"Отмена возврата"_s);
        EXPECT_EQ(root.findChild<QPushButton*>(u"yesButton"_s)->text(), u"Отменить возврат"_s);
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::GoOn);
    EXPECT_EQ(question, u"Отменить возврат № 2 на сумму 24,80?"_s);
    EXPECT_EQ(till->archive().returned(*archived(1), nullptr), Document::Returned::Nothing);
}

TEST_F(OpenDocumentCommandsTest, returnDocumentBegunByAPlugin_theQuestionAdvisesToFinishIt)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    till->document()->position(1)->setExtendedOptions(uR"({"status":"canceled"})"_s);
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    EXPECT_TRUE(question.startsWith(u"Возврат № 2 на сумму 24,80 уже выполнен частично"_s)) << qPrintable(question);
    EXPECT_TRUE(question.contains(u"ответьте «Нет» и перейдите к оплате"_s)) << "whatever its key is called";
    EXPECT_TRUE(till->document());
}

/// Commands whose document a plug-in's trigger ends before their own part.
class DocumentEndedByAHook : public OpenDocumentCommandsTest, public ::testing::WithParamInterface<control::EActionType>
{
};

TEST_P(DocumentEndedByAHook, commandSaysSoAndStops)
{
    for (const auto end : {control::CancelDocument, registeraction::suspend}) {
        till->add(article(amoxidar));
        addHook(EContext::OpenDocument, GetParam(), [this, end](const control::Action&) {
            if (till->document()) {
                control::Action ending(end);
                controller.object.execute(ending);
            }
            return EContext::GoOn;
        });
        const DialogDouble dialog;
        EXPECT_NE(run(GetParam(), {{u"positionNumber"_s, 1}, {u"result"_s, QVariant::fromValue(article(amoxidar))}}),
                  EContext::GoOn);
        EXPECT_FALSE(till->document());
        ASSERT_EQ(dialog.messages().size(), 1);
        EXPECT_EQ(dialog.messages().first().text,
                  u"Чек уже не открыт: модуль закрыл его во время действия.\nПроверьте чек в списке документов."_s);
        controller.object.host().removePluginEntries();
    }
}

INSTANTIATE_TEST_SUITE_P(, DocumentEndedByAHook,
                         ::testing::Values(control::Subtotal, control::SubtotalAndPayment, control::RemovePosition,
                                           control::AddSelectedGoods, registeraction::changeQuantity,
                                           registeraction::askToRemovePosition, registeraction::askToCancelDocument),
                         [](const auto& row) { return "action" + std::to_string(row.param); });

TEST_F(OpenDocumentCommandsTest, hookEndsTheDocument_whatOnlyEndsItStopsQuietly)
{
    for (const auto type : {control::CancelDocument, control::CancelDocumentFromMenu, registeraction::suspend,
                            registeraction::pay, registeraction::backToPositions}) {
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
        bool isEnded = false;
        addHook(EContext::OpenDocument, type, [&](const control::Action&) {
            isEnded = isEnded || till->cancel();
            return EContext::GoOn;
        });
        const DialogDouble dialog;
        run(type);
        EXPECT_FALSE(till->document()) << type;
        EXPECT_TRUE(dialog.messages().isEmpty()) << type;
        EXPECT_EQ(controller.object.context(), EContext::Idle) << type;
        controller.object.host().removePluginEntries();
    }
}

TEST_F(OpenDocumentCommandsTest, positionRemovedDuringTheQuestion_anotherOneOfItsNumberStays)
{
    till->add(article(amoxidar));
    cashier.onForm(u"textInputForm"_s, [this](QWidget& root) {
        till->cancel();
        till->add(article(amoxidar));
        root.findChild<QLineEdit*>(u"inputLineEdit"_s)->setText(u"7"_s);
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 1.0);
}

TEST_F(OpenDocumentCommandsTest, positionReplacedDuringTheQuestionAboutItsPacks_theOtherOneStays)
{
    till->add(article(amoxidar));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) {
        root.findChild<QLineEdit*>(u"inputLineEdit"_s)->setText(u"77"_s);
        press(root, "okButton");
    });
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        till->cancel();
        till->add(article(amoxidar));
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 1.0);
}

TEST_F(OpenDocumentCommandsTest, documentChangesDuringTheQuestion_theNextOneIsNotCancelled)
{
    till->add(article(amoxidar));
    cashier.onForm(u"questionForm"_s, [this](QWidget& root) {
        till->suspend();
        till->add(article(amoxidar));
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 2);
}
