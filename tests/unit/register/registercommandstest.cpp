// SPDX-License-Identifier: MIT
#include "commandtill.h"
#include "registeraction.h"
#include "saves.h"
#include "shownmessages.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class Commands : public CommandTill
{
};

TEST_F(Commands, openReceipt_opensOneAndSaysSoWhenItIsOpen)
{
    EXPECT_EQ(run(registeraction::openReceipt), EContext::GoOn);
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::openReceipt), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().text, u"Чек № 1 уже открыт."_s);
    EXPECT_EQ(messages.all().first().kind, Dialog::Notice);
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
    sale->open();
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
    sale->open();
    pick(medicine, 2, u"3"_s);
    pick(u"Амоксициллин / / 60"_s);
    EXPECT_EQ(currentRow, 0);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, theyAreOnTheReceipt_theNextBeginWithOnePack)
{
    sale->open();
    pick(medicine, 2, u"3"_s);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, action.value(u"result"_s)}}), EContext::GoOn);
    pick(medicine);
    EXPECT_EQ(packsAtFirst, u"1"_s);
}

TEST_F(PickedGoods, nextReceipt_beginsWithOnePack)
{
    sale->open();
    pick(medicine, 2, u"3"_s);
    ASSERT_TRUE(sale->cancel());
    sale->open();
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

TEST_F(Commands, selectGoodsWithoutADatabase_isToldAndStops)
{
    config.set(u"Database:name"_s, folder.filePath(u"absent.sqlite"_s));
    const ShownMessages messages;
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_TRUE(messages.all().first().text.startsWith(u"Справочник товаров недоступен"_s));
}

TEST_F(Commands, addSelectedGoods_writesThePositionNumberThatCanBeFoundAtOnce)
{
    sale->open();
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar, 2))}}),
              EContext::GoOn);
    const int number = action.value(u"positionNumber"_s).toInt();
    ASSERT_TRUE(sale->receipt()->getPosition(number));
    EXPECT_EQ(sale->receipt()->getPosition(number)->getQuantity(), 2.0);
}

TEST_F(Commands, addSelectedGoodsWithoutAReceiptOrGoods_addsNothing)
{
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}),
              EContext::NotFound);
    sale->open();
    EXPECT_EQ(run(control::AddSelectedGoods), EContext::NotFound);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, 5}}), EContext::NotFound);
    EXPECT_TRUE(sale->receipt()->positions().isEmpty());
}

TEST_F(Commands, barcodeSearched_addsItsGoodsWithoutAsking)
{
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::GoOn);
    ASSERT_EQ(sale->receipt()->positions().size(), 1);
    EXPECT_EQ(sale->receipt()->position(1)->getName(), u"Амоксидар, капсулы 500 мг №16"_s);
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
    EXPECT_FALSE(sale->receipt());

    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::addGoods, search), EContext::GoOn);
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->position(1)->getName(), u"Амлонорд Форте, таблетки 5 мг №30"_s);
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
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
}

TEST_F(Commands, addGoodsCancelled_opensNoReceipt)
{
    cashier.onForm(u"goodsSelectionForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_FALSE(sale->receipt());
}

TEST_F(Commands, changeQuantity_setsThePacksTyped)
{
    sale->add(article(amoxidar));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) {
        auto* input = root.findChild<QLineEdit*>(u"inputLineEdit"_s);
        EXPECT_EQ(input->text(), u"1"_s);
        input->setText(u"7"_s);
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 7.0);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(Commands, changeQuantityCancelled_leavesThePacks)
{
    sale->add(article(amoxidar, 3));
    cashier.onForm(u"textInputForm"_s, [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 3.0);
}

TEST_F(Commands, noPositionChosen_saysSo)
{
    sale->open();
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::changeQuantity), EContext::Stop);
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(4)), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_EQ(messages.all().first().text, u"Сначала выберите позицию чека."_s);
}

TEST_F(Commands, boundPosition_keepsItsQuantity)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(u"rx-1"_s);
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_TRUE(messages.all().first().text.startsWith(u"Позиция № 1 отпускается по документу"_s));
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 1);
}

TEST_F(Commands, boundPosition_isRemovedOnlyAfterTheQuestionAndByTheHooks)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(u"rx-1"_s);
    int hooks = 0;
    controller.object.addTrigger({EContext::OpenReceipt, control::StornoPosition, ActionTrigger::Before,
                                  [&hooks](const control::Action&) {
                                      ++hooks;
                                      return EContext::GoOn;
                                  },
                                  ActionTrigger::Any, 1});
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { press(root, "noButton"); });
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(hooks, 0);
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
    cashier.onForm(u"questionForm"_s, [](QWidget& root) { press(root, "yesButton"); });
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(hooks, 1);
    EXPECT_TRUE(sale->receipt()->positions().isEmpty());
}

TEST_F(Commands, removePosition_asksTheHooksWhileThePositionStands)
{
    sale->add(article(amoxidar));
    EContext::Result permission = EContext::Stop;
    QList<int> asked;
    controller.object.addTrigger({EContext::OpenReceipt, control::StornoPosition, ActionTrigger::Before,
                                  [&](const control::Action& storno) {
                                      const int number = storno.value(u"positionNumber"_s).toInt();
                                      EXPECT_TRUE(sale->receipt()->getPosition(number));
                                      asked.append(number);
                                      return permission;
                                  },
                                  ActionTrigger::Any, 1});
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
    permission = EContext::GoOn;
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::GoOn);
    EXPECT_TRUE(sale->receipt()->positions().isEmpty());
    EXPECT_EQ(asked, (QList<int>{1, 1}));
    EXPECT_TRUE(savedReceipt().value(u"positions"_s).toArray().isEmpty());
}

TEST_F(Commands, keyExplained_namesTheKeyAndWhatIsMissing)
{
    const QVariantMap key{{u"text"_s, u"Рецепт %1"_s}};
    const ShownMessages messages;
    run(registeraction::explainKey, key);
    sale->open();
    run(registeraction::explainKey, key);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_TRUE(messages.all().at(0).text.startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
    EXPECT_TRUE(messages.all().at(1).text.startsWith(u"«Рецепт %1» сейчас недоступно"_s));
}

class SubtotalCommand : public Commands, public ::testing::WithParamInterface<control::EActionType>
{
protected:
    /// The phase that the action leads to.
    static Sale::Phase phase()
    {
        return GetParam() == control::Subtotal ? Sale::Phase::Subtotal : Sale::Phase::Payment;
    }
};

TEST_P(SubtotalCommand, receiptWithoutPositions_saysSoAndStops)
{
    sale->open();
    const ShownMessages messages;
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().text, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s);
    EXPECT_EQ(messages.all().first().kind, Dialog::Notice);
    EXPECT_EQ(sale->phase(), Sale::Phase::Positions);
}

TEST_P(SubtotalCommand, receiptWithPositions_leadsOnAndBack)
{
    EXPECT_EQ(run(GetParam()), EContext::NotFound) << "no receipt is open";
    sale->add(article(amoxidar));
    EXPECT_EQ(run(GetParam()), EContext::GoOn);
    EXPECT_EQ(sale->phase(), phase());
    EXPECT_EQ(controller.object.context(), EContext::OpenReceipt);
    EXPECT_EQ(run(registeraction::backToPositions), EContext::GoOn);
    EXPECT_EQ(sale->phase(), Sale::Phase::Positions);
}

TEST_P(SubtotalCommand, hookStops_positionsStayShown)
{
    sale->add(article(amoxidar));
    addHook(EContext::OpenReceipt, GetParam(), [](const control::Action&) { return EContext::Stop; });
    EXPECT_EQ(run(GetParam()), EContext::Stop);
    EXPECT_EQ(sale->phase(), Sale::Phase::Positions);
}

TEST_P(SubtotalCommand, cancellingDocument_leadsOnToo)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    EXPECT_EQ(run(GetParam()), EContext::GoOn);
    EXPECT_EQ(sale->phase(), phase());
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
        sale->add(article(amoxidar, 2));
        sale->setPhase(Sale::Phase::Payment);
    }
};

TEST_F(PayCommand, receivedInAnyForm_closesWithTheChange)
{
    const std::pair<const char*, Kopecks> forms[] = {
        {"50", 5000}, {" 24,80 ", 2480}, {"24.8", 2480}, {"99999999", 9'999'999'900}, {"", 2480}, {"  ", 2480},
    };
    for (const auto& [typed, received] : forms) {
        standAtPayment();
        const int number = sale->receipt()->getNumber();
        EXPECT_EQ(pay(QLatin1StringView(typed)), EContext::GoOn) << typed;
        EXPECT_FALSE(sale->receipt()) << typed;
        EXPECT_EQ(archived(number)->getReceived(), received) << typed;
        EXPECT_EQ(archived(number)->getChange(), received - 2480) << typed;
    }
}

TEST_F(PayCommand, receivedUnreadable_saysWhatWasTypedAndHowToTypeIt)
{
    standAtPayment();
    const ShownMessages messages;
    const char* const typed[] = {"abc %1", "-50", "1 000", "24,801", "1e3", "999999999", "50 руб"};
    for (const char* text : typed) {
        EXPECT_EQ(pay(QString::fromUtf8(text)), EContext::Stop) << text;
    }
    ASSERT_EQ(messages.all().size(), std::ssize(typed));
    EXPECT_EQ(messages.all().first().text,
              u"«abc %1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s);
    EXPECT_EQ(sale->phase(), Sale::Phase::Payment);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(PayCommand, receivedTooLittle_saysWhatIsMissing)
{
    standAtPayment();
    const ShownMessages messages;
    EXPECT_EQ(pay(u"24,79"_s), EContext::Stop);
    EXPECT_EQ(pay(u"0"_s), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_EQ(messages.all().first().text, u"Получено 24,79, а к оплате 24,80.\nНе хватает 0,01."_s);
    EXPECT_EQ(sale->phase(), Sale::Phase::Payment);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(PayCommand, receiptNotAtItsPayment_isNotClosed)
{
    EXPECT_EQ(pay(u"50"_s), EContext::NotFound) << "no receipt is open";
    sale->add(article(amoxidar));
    EXPECT_EQ(pay(u"50"_s), EContext::Stop);
    sale->setPhase(Sale::Phase::Subtotal);
    EXPECT_EQ(pay(u"50"_s), EContext::Stop);
    EXPECT_TRUE(sale->receipt());
}

TEST_F(PayCommand, cancellingDocument_paysItsSumOutWhateverIsTyped)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    sale->setPhase(Sale::Phase::Payment);
    EXPECT_EQ(pay(u"1"_s), EContext::GoOn);
    EXPECT_EQ(archived(2)->getReceived(), 2480);
    EXPECT_EQ(archived(2)->getState(), Receipt::State::Closed);
}

TEST_F(PayCommand, receiptCannotBeSaved_staysAtItsPayment)
{
    standAtPayment();
    {
        Saves saves;
        saves.failAll();
        EXPECT_EQ(pay({}), EContext::Stop);
    }
    EXPECT_EQ(sale->phase(), Sale::Phase::Payment);
    EXPECT_EQ(pay({}), EContext::GoOn);
}

class StornoHook : public Commands, public ::testing::WithParamInterface<EContext::Result>
{
};

TEST_P(StornoHook, positionIsCancelledOnlyWhenItGoesOn)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(u"rx-1"_s);
    addHook(EContext::OpenReceipt, control::StornoPosition, [this](const control::Action& storno) {
        EXPECT_EQ(storno.value(u"positionNumber"_s).toInt(), 1);
        EXPECT_TRUE(sale->receipt()->getPosition(1));
        return GetParam();
    });
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), GetParam());
    EXPECT_EQ(sale->receipt()->positions().isEmpty(), GetParam() == EContext::GoOn);
    EXPECT_EQ(savedReceipt().value(u"positions"_s).toArray().isEmpty(), GetParam() == EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
}

TEST_P(StornoHook, receiptIsCancelledOnlyWhenItGoesOn)
{
    for (const auto type : {control::StornoAll, control::StornoAllFromMenu}) {
        sale->add(article(amoxidar));
        witness.seen.clear();
        int asked = 0;
        addHook(EContext::OpenReceipt, type, [&](const control::Action&) {
            EXPECT_EQ(sale->receipt()->positions().size(), 1);
            EXPECT_TRUE(witness.seen.isEmpty());
            ++asked;
            return GetParam();
        });
        EXPECT_EQ(run(type), GetParam());
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(sale->receipt().isNull(), GetParam() == EContext::GoOn);
        EXPECT_EQ(witness.codes(), GetParam() == EContext::GoOn ? QList<int>{22} : QList<int>());
        controller.object.removePluginEntries();
        sale->cancel();
    }
}

TEST_P(StornoHook, refusedAtThePayment_theWayToItLeadsThroughTheSubtotalAgain)
{
    for (const auto type : {control::StornoPosition, control::StornoAll, control::StornoAllFromMenu}) {
        sale->add(article(amoxidar));
        sale->setPhase(Sale::Phase::Payment);
        addHook(EContext::OpenReceipt, type, [](const control::Action&) { return GetParam(); });
        EXPECT_EQ(run(type, positionNumber(sale->receipt()->positions().first()->getNumber())), GetParam());
        EXPECT_EQ(sale->phase(), Sale::Phase::Positions);
        EXPECT_EQ(run(registeraction::pay), sale->receipt() ? EContext::Stop : EContext::NotFound);
        controller.object.removePluginEntries();
        sale->cancel();
    }
}

INSTANTIATE_TEST_SUITE_P(Results, StornoHook, ::testing::Values(EContext::Stop, EContext::NotFound, EContext::GoOn),
                         [](const auto& tested) { return "result" + std::to_string(tested.param); });

TEST_F(Commands, positionThatIsNotThere_isNotCancelled)
{
    sale->add(article(amoxidar));
    const ShownMessages messages;
    EXPECT_EQ(run(control::StornoPosition, positionNumber(2)), EContext::NotFound);
    EXPECT_EQ(messages.all().size(), 1);
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
}

TEST_F(Commands, cancelReceipt_asksFirstAndNamesTheSum)
{
    sale->add(article(amoxidar, 2));
    int hooks = 0;
    for (const auto type : {control::StornoAll, control::StornoAllFromMenu}) {
        addHook(EContext::OpenReceipt, type, [&hooks](const control::Action&) {
            ++hooks;
            return EContext::GoOn;
        });
    }
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::cancelReceipt), EContext::Stop);
    EXPECT_EQ(question, u"Отменить чек № 1 на сумму 24,80?"_s);
    EXPECT_EQ(hooks, 0);
    EXPECT_TRUE(sale->receipt());
    answerQuestion("yesButton");
    EXPECT_EQ(run(registeraction::cancelReceipt), EContext::GoOn);
    EXPECT_EQ(hooks, 1);
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(archived(1)->getState(), Receipt::State::Cancelled);
}

TEST_F(Commands, cancelReceipt_isDoneByTheActionOfTheKey)
{
    QList<int> done;
    for (const auto type : {control::StornoAll, control::StornoAllFromMenu}) {
        addHook(EContext::OpenReceipt, type, [&done](const control::Action& storno) {
            done.append(storno.getType());
            return EContext::GoOn;
        });
    }
    const QVariantMap keys[] = {{}, {{u"by"_s, u"206"_s}}, {{u"by"_s, 131}}};
    for (const QVariantMap& arguments : keys) {
        sale->add(article(amoxidar));
        answerQuestion("yesButton");
        EXPECT_EQ(run(registeraction::cancelReceipt, arguments), EContext::GoOn);
        EXPECT_FALSE(sale->receipt());
    }
    EXPECT_EQ(done, (QList<int>{131, 206, 131}));
}

TEST_F(Commands, questionClosedByTheRegister_leavesTheReceipt)
{
    sale->add(article(amoxidar));
    cashier.onForm(u"questionForm"_s, [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(registeraction::cancelReceipt), EContext::Stop);
    EXPECT_TRUE(sale->receipt());
}

TEST_F(Commands, cancellingDocument_takesNoGoodsAndIsCancelledOnlyWhole)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    const QJsonObject before = sale->receipt()->toJson();
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::addGoods, {{u"search"_s, amoxidar}}), EContext::Stop);
    EXPECT_EQ(run(control::AddSelectedGoods, {{u"result"_s, QVariant::fromValue(article(amoxidar))}}), EContext::Stop);
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(run(control::StornoPosition, positionNumber(1)), EContext::NotFound);
    EXPECT_EQ(sale->receipt()->toJson(), before);
    ASSERT_EQ(messages.all().size(), 4);
    EXPECT_TRUE(messages.all().first().text.startsWith(u"Открыт возврат: товары в него не добавляются"_s));
    for (const auto& message : messages.all().mid(1)) {
        EXPECT_EQ(message.text, u"Продажа возвращается целиком: позиции возврата не меняются."_s);
    }
}

TEST_F(Commands, cancellingDocumentCancelled_asksForTheTakeBack)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        EXPECT_EQ(root.findChild<QLabel*>(u"titleLabel"_s)->text(), u"Отмена возврата"_s);
        EXPECT_EQ(root.findChild<QPushButton*>(u"yesButton"_s)->text(), u"Отменить возврат"_s);
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "yesButton");
    });
    EXPECT_EQ(run(registeraction::cancelReceipt), EContext::GoOn);
    EXPECT_EQ(question, u"Отменить возврат № 2 на сумму 24,80?"_s);
    EXPECT_FALSE(sale->archive().isTakenBack(*archived(1), nullptr));
}

TEST_F(Commands, cancellingDocumentBegunByAPlugin_theQuestionAdvisesToFinishIt)
{
    ASSERT_TRUE(sale->takeBack(archived(sold())));
    sale->receipt()->position(1)->setExtendedOptions(uR"({"status":"canceled"})"_s);
    QString question;
    cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
        question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
        press(root, "noButton");
    });
    EXPECT_EQ(run(registeraction::cancelReceipt), EContext::Stop);
    EXPECT_TRUE(question.startsWith(u"Возврат № 2 на сумму 24,80 уже выполнен частично"_s)) << qPrintable(question);
    EXPECT_TRUE(question.contains(u"«Оплата»"_s));
    EXPECT_TRUE(sale->receipt());
}
