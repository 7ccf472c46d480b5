// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"
#include "savingdouble.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class Commands : public CommandFixture
{
};

TEST_F(Commands, openDocument_opensOneAndSaysSoWhenItIsOpen)
{
    EXPECT_EQ(run(registeraction::openSale), EContext::GoOn);
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::openSale), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().text, u"Чек № 1 уже открыт."_s);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
}

TEST_F(Commands, selectGoods_offersThoseOfTheNameAndWritesTheResult)
{
    int rows = 0;
    QString info;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        rows = root.findChild<QAbstractItemView*>(u"goodsTable"_s)->model()->rowCount();
        info = root.findChild<QLabel*>(u"medicineInfoLabel"_s)->text();
        press(root, "okButton");
    });
    EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Амоксициллин"_s}, {u"medicineInfo"_s, u"a / b / 2.5"_s}}),
              EContext::GoOn);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(info, u"a / b / 2.5"_s);
    EXPECT_EQ(action.value(u"result"_s).value<SelectedGoods>().goods.nonProprietaryName, u"Амоксициллин"_s);
    EXPECT_TRUE(witness.seen.isEmpty()) << "choosing opens no receipt";
}

/// Picks goods for a medicine as a cashier does, and keeps what stood there at first.
class PickedGoods : public Commands
{
protected:
    /// @param packs typed into their field; empty: taken as they stand
    void pick(const QString& medicineInfo, int row = -1, const QString& packs = {})
    {
        cashier.onForm(u"goodsSelectionForm"_s, [=, this](QWidget& root) {
            auto* table = root.findChild<QAbstractItemView*>(u"goodsTable"_s);
            auto* field = root.findChild<QLineEdit*>(u"quantityLineEdit"_s);
            currentRow = table->currentIndex().row();
            packsAtFirst = field->text();
            if (row >= 0) {
                table->setCurrentIndex(table->model()->index(row, 0));
            }
            if (!packs.isEmpty()) {
                field->setText(packs);
            }
            press(root, "okButton");
        });
        EXPECT_EQ(run(control::SelectGoods, {{u"filterByInn"_s, u"Амоксициллин"_s}, {u"medicineInfo"_s, medicineInfo}}),
                  EContext::GoOn);
    }

    int currentRow = -1;
    QString packsAtFirst;
    const QString medicine = u"Амоксициллин / / 30"_s;
};

TEST_F(PickedGoods, pickedAgainForTheSameMedicine_standThereWithTheirPacks)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    const QString code = action.value(u"result"_s).value<SelectedGoods>().goods.code;
    pick(medicine);
    EXPECT_EQ(currentRow, 2);
    EXPECT_EQ(packsAtFirst, u"3"_s);
    const auto again = action.value(u"result"_s).value<SelectedGoods>();
    EXPECT_EQ(again.goods.code, code);
    EXPECT_EQ(again.packs, 3);
}

TEST_F(PickedGoods, anotherMedicine_beginsWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    pick(u"Амоксициллин / / 60"_s);
    EXPECT_EQ(currentRow, 0);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, theyAreOnTheDocument_theNextBeginWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, action.value(u"result"_s)}}), EContext::GoOn);
    pick(medicine);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, nextDocument_beginsWithOnePack)
{
    till->open();
    pick(medicine, 2, u"3"_s);
    ASSERT_TRUE(till->cancel());
    till->open();
    pick(medicine);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(Commands, selectGoodsCancelled_stopsWithoutAResult)
{
    cashier.onForm(u"goodsSelectionForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    EXPECT_FALSE(action.value(u"result"_s).isValid());
}

TEST_F(Commands, selectGoodsClosedByTheRegister_stopsWithoutAResult)
{
    cashier.onForm(u"goodsSelectionForm"_s, [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
}

TEST_F(Commands, selectGoodsWithoutADatabase_isShownAndStops)
{
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    const DialogDouble dialog;
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Справочник товаров недоступен"_s));
}

TEST_F(Commands, addSelectedGoods_writesThePositionNumberThatCanBeFoundAtOnce)
{
    till->open();
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar, 2))}}),
              EContext::GoOn);
    const int number = action.value(u"positionNumber"_s).toInt();
    ASSERT_TRUE(till->document()->getPosition(number));
    EXPECT_EQ(till->document()->getPosition(number)->getQuantity(), 2.0);
}

TEST_F(Commands, addSelectedGoodsWithoutADocumentOrGoods_addsNothing)
{
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}),
              EContext::NotFound);
    till->open();
    EXPECT_EQ(run(control::AddSelectedGoods), EContext::NotFound);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, 5}}), EContext::NotFound);
    EXPECT_TRUE(till->document()->positions().isEmpty());
}

TEST_F(Commands, barcodeSearched_addsItsGoodsWithoutAsking)
{
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::GoOn);
    ASSERT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(till->document()->position(1)->getName(), u"Амоксидар, капсулы 500 мг №16"_s);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(Commands, barcodeOfGoodsOutOfStockSearched_asksBeforeTheyAreSold)
{
    const QVariantMap search{{u"search"_s, u"2990000000132"_s}};
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::addGoods, search), EContext::Stop);
    EXPECT_EQ(question, u"На остатке нет товара:\nАмлонорд Форте, таблетки 5 мг №30\nВсё равно продать?"_s);
    EXPECT_FALSE(till->document());

    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::addGoods, search), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->position(1)->getName(), u"Амлонорд Форте, таблетки 5 мг №30"_s);
}

TEST_F(Commands, nameSearched_opensTheSelectionWithItAndAddsAfterwards)
{
    QList<int> eventsWhileChoosing;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget& root) {
        EXPECT_EQ(root.findChild<QLineEdit*>(u"filterLineEdit"_s)->text(), u"бинт"_s);
        eventsWhileChoosing = witness.codes();
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, u" бинт "_s}}), EContext::GoOn);
    EXPECT_TRUE(eventsWhileChoosing.isEmpty()) << "event 10 comes after the dialog";
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(Commands, addGoodsCancelled_opensNoDocument)
{
    cashier.onForm(u"goodsSelectionForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_FALSE(till->document());
}

TEST_F(Commands, changeQuantity_setsThePacksTyped)
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

TEST_F(Commands, changeQuantityCancelled_leavesThePacks)
{
    till->add(article(amoxidar, 3));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 3.0);
}

TEST_F(Commands, noPositionChosen_saysSo)
{
    till->open();
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::changeQuantity), EContext::Stop);
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(4)), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_EQ(dialog.messages().first().text, u"Сначала выберите позицию чека."_s);
}

TEST_F(Commands, boundPosition_keepsItsQuantity)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Позиция № 1 отпускается по документу"_s));
    EXPECT_EQ(till->document()->position(1)->getQuantity(), 1);
}

TEST_F(Commands, boundPosition_isRemovedOnlyAfterTheQuestionAndByTheHooks)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    int hooks = 0;
    controller.object.addTrigger({EContext::OpenDocument, control::RemovePosition, ActionTrigger::Before,
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

TEST_F(Commands, removePosition_asksTheHooksWhileThePositionStands)
{
    till->add(article(amoxidar));
    EContext::Result permission = EContext::Stop;
    QList<int> asked;
    controller.object.addTrigger({EContext::OpenDocument, control::RemovePosition, ActionTrigger::Before,
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

TEST_F(Commands, keyExplained_namesTheKeyAndWhatIsMissing)
{
    const QVariantMap key{{u"text"_s, u"Рецепт %1"_s}};
    const DialogDouble dialog;
    run(registeraction::explainKey, key);
    till->open();
    run(registeraction::explainKey, key);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_TRUE(dialog.messages().at(0).text.startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
    EXPECT_TRUE(dialog.messages().at(1).text.startsWith(u"«Рецепт %1» сейчас недоступно"_s));
}

class SubtotalCommand : public Commands, public ::testing::WithParamInterface<control::EActionType>
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

TEST_P(SubtotalCommand, hookStops_positionsStayShown)
{
    till->add(article(amoxidar));
    addHook(EContext::OpenDocument, GetParam(), [](const control::Action&) { return EContext::Stop; });
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
}

TEST_P(SubtotalCommand, cancellingDocument_leadsOnToo)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_EQ(run(GetParam()), EContext::GoOn);
    EXPECT_EQ(till->phase(), phase());
}

INSTANTIATE_TEST_SUITE_P(Actions, SubtotalCommand, ::testing::Values(control::Subtotal, control::SubtotalAndPayment),
                         [](const auto& tested) { return "action" + std::to_string(tested.param); });

class PayCommand : public Commands
{
protected:
    EContext::Result pay(const QString& received) { return run(registeraction::pay, {{u"received"_s, received}}); }
    /// A receipt over 24,80 that stands at its payment.
    void standAtPayment()
    {
        till->add(article(amoxidar, 2));
        till->setPhase(Till::Phase::Payment);
    }
};

TEST_F(PayCommand, receivedInAnyForm_closesWithTheChange)
{
    const std::pair<const char*, Kopecks> forms[] = {
        {"50", 5000}, {" 24,80 ", 2480}, {"24.8", 2480}, {"99999999", 9'999'999'900}, {"", 2480}, {"  ", 2480},
    };
    for (const auto& [typed, received] : forms) {
        standAtPayment();
        const int number = till->document()->getNumber();
        EXPECT_EQ(pay(QLatin1StringView(typed)), EContext::GoOn) << typed;
        EXPECT_FALSE(till->document()) << typed;
        EXPECT_EQ(archived(number)->getReceived(), received) << typed;
        EXPECT_EQ(archived(number)->getChange(), received - 2480) << typed;
    }
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

TEST_F(PayCommand, cancellingDocument_paysItsSumOutWhateverIsTyped)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    till->setPhase(Till::Phase::Payment);
    EXPECT_EQ(pay(u"1"_s), EContext::GoOn);
    EXPECT_EQ(archived(2)->getReceived(), 2480);
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

class CancellationHook : public Commands, public ::testing::WithParamInterface<EContext::Result>
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
        controller.object.removePluginEntries();
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
        controller.object.removePluginEntries();
        till->cancel();
    }
}

INSTANTIATE_TEST_SUITE_P(Results, CancellationHook,
                         ::testing::Values(EContext::Stop, EContext::NotFound, EContext::GoOn),
                         [](const auto& tested) { return "result" + std::to_string(tested.param); });

TEST_F(Commands, positionThatIsNotThere_isNotCancelled)
{
    till->add(article(amoxidar));
    const DialogDouble dialog;
    EXPECT_EQ(run(control::RemovePosition, positionNumber(2)), EContext::NotFound);
    EXPECT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(Commands, cancelDocument_asksFirstAndNamesTheSum)
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

TEST_F(Commands, cancelDocument_isDoneByTheActionOfTheKey)
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

TEST_F(Commands, questionClosedByTheRegister_leavesTheDocument)
{
    till->add(article(amoxidar));
    cashier.onForm(u"questionForm"_s, [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(registeraction::askToCancelDocument), EContext::Stop);
    EXPECT_TRUE(till->document());
}

TEST_F(Commands, cancellingDocument_takesNoGoodsAndIsCancelledOnlyWhole)
{
    ASSERT_TRUE(till->returnSale(archived(sold())));
    const QJsonObject before = till->document()->toJson();
    const DialogDouble dialog;
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::Stop);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}), EContext::Stop);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(registeraction::askToRemovePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(control::RemovePosition, positionNumber(1)), EContext::NotFound);
    EXPECT_EQ(till->document()->toJson(), before);
    ASSERT_EQ(dialog.messages().size(), 4);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Открыт возврат: товары в него не добавляются"_s));
    for (const auto& message : dialog.messages().mid(1)) {
        EXPECT_EQ(message.text, u"Продажа возвращается целиком: позиции возврата не меняются."_s);
    }
}

TEST_F(Commands, cancellingDocumentCancelled_asksForTheReturn)
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
    EXPECT_FALSE(till->archive().isReturned(*archived(1), nullptr));
}

TEST_F(Commands, cancellingDocumentBegunByAPlugin_theQuestionAdvisesToFinishIt)
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
    EXPECT_TRUE(question.contains(u"«Оплата»"_s));
    EXPECT_TRUE(till->document());
}
