// SPDX-License-Identifier: MIT
#include "cashier.h"
#include "registeraction.h"
#include "shownmessages.h"
#include "till.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

class Commands : public Till
{
protected:
    Commands() { Q_INIT_RESOURCE(register); }

    EContext::Result run(control::EActionType type, const QVariantMap& arguments = {})
    {
        action = control::Action(type);
        for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument)
            action.insert(argument.key(), argument.value());
        return controller.object.execute(action);
    }
    static QVariantMap positionNumber(int number) { return {{QStringLiteral("positionNumber"), number}}; }
    static void press(QWidget& root, const char* button)
    {
        root.findChild<QPushButton*>(QLatin1String(button))->click();
    }

    control::Action action;
    Cashier cashier;
};

TEST_F(Commands, openReceipt_opensOneAndSaysSoWhenItIsOpen)
{
    EXPECT_EQ(run(registeraction::openReceipt), EContext::GoOn);
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::openReceipt), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().text, QStringLiteral("Чек № 1 уже открыт."));
    EXPECT_EQ(messages.all().first().kind, Dialog::Notice);
}

TEST_F(Commands, selectGoods_offersThoseOfTheNameAndWritesTheResult)
{
    int rows = 0;
    QString info;
    cashier.onForm(QStringLiteral("goodsSelectionForm"), [&](QWidget& root) {
        rows = root.findChild<QAbstractItemView*>(QStringLiteral("goodsTable"))->model()->rowCount();
        info = root.findChild<QLabel*>(QStringLiteral("medicineInfoLabel"))->text();
        press(root, "okButton");
    });
    EXPECT_EQ(run(control::SelectGoods, {{QStringLiteral("filterByInn"), QStringLiteral("Амоксициллин")},
                                         {QStringLiteral("medicineInfo"), QStringLiteral("a / b / 2.5")}}),
              EContext::GoOn);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(info, QStringLiteral("a / b / 2.5"));
    EXPECT_EQ(action.value(QStringLiteral("result")).value<SelectedGoods>().goods.nonProprietaryName,
              QStringLiteral("Амоксициллин"));
    EXPECT_TRUE(witness.seen.isEmpty()) << "choosing opens no receipt";
}

TEST_F(Commands, selectGoodsCancelled_stopsWithoutAResult)
{
    cashier.onForm(QStringLiteral("goodsSelectionForm"), [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    EXPECT_FALSE(action.value(QStringLiteral("result")).isValid());
}

TEST_F(Commands, selectGoodsClosedByTheRegister_stopsWithoutAResult)
{
    cashier.onForm(QStringLiteral("goodsSelectionForm"), [this](QWidget&) { gui.object.cancelForms(); });
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
}

TEST_F(Commands, selectGoodsWithoutADatabase_isToldAndStops)
{
    config.set(QStringLiteral("Database:name"), folder.filePath(QStringLiteral("absent.sqlite")));
    const ShownMessages messages;
    EXPECT_EQ(run(control::SelectGoods), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_TRUE(messages.all().first().text.startsWith(QStringLiteral("Справочник товаров недоступен")));
}

TEST_F(Commands, addSelectedGoods_writesThePositionNumberThatCanBeFoundAtOnce)
{
    sale->open();
    EXPECT_EQ(run(control::AddSelectedGoods, {{QStringLiteral("result"), QVariant::fromValue(article(amoxidar, 2))}}),
              EContext::GoOn);
    const int number = action.value(QStringLiteral("positionNumber")).toInt();
    ASSERT_TRUE(sale->receipt()->getPosition(number));
    EXPECT_EQ(sale->receipt()->getPosition(number)->getQuantity(), 2.0);
}

TEST_F(Commands, addSelectedGoodsWithoutAReceiptOrGoods_addsNothing)
{
    EXPECT_EQ(run(control::AddSelectedGoods, {{QStringLiteral("result"), QVariant::fromValue(article(amoxidar))}}),
              EContext::NotFound);
    sale->open();
    EXPECT_EQ(run(control::AddSelectedGoods), EContext::NotFound);
    EXPECT_EQ(run(control::AddSelectedGoods, {{QStringLiteral("result"), 5}}), EContext::NotFound);
    EXPECT_TRUE(sale->receipt()->positions().isEmpty());
}

TEST_F(Commands, barcodeSearched_addsItsGoodsWithoutAsking)
{
    EXPECT_EQ(run(registeraction::addGoods, {{QStringLiteral("search"), amoxidar}}), EContext::GoOn);
    ASSERT_EQ(sale->receipt()->positions().size(), 1);
    EXPECT_EQ(sale->receipt()->position(1)->getName(), QStringLiteral("Амоксидар, капсулы 500 мг №16"));
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(Commands, nameSearched_opensTheSelectionWithItAndAddsAfterwards)
{
    QList<int> eventsWhileChoosing;
    cashier.onForm(QStringLiteral("goodsSelectionForm"), [&](QWidget& root) {
        EXPECT_EQ(root.findChild<QLineEdit*>(QStringLiteral("filterLineEdit"))->text(), QStringLiteral("бинт"));
        eventsWhileChoosing = witness.codes();
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::addGoods, {{QStringLiteral("search"), QStringLiteral(" бинт ")}}), EContext::GoOn);
    EXPECT_TRUE(eventsWhileChoosing.isEmpty()) << "event 10 comes after the dialog";
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
}

TEST_F(Commands, addGoodsCancelled_opensNoReceipt)
{
    cashier.onForm(QStringLiteral("goodsSelectionForm"), [](QWidget& root) { press(root, "cancelButton"); });
    EXPECT_EQ(run(registeraction::addGoods), EContext::Stop);
    EXPECT_FALSE(sale->receipt());
}

TEST_F(Commands, changeQuantity_setsThePacksTyped)
{
    sale->add(article(amoxidar));
    cashier.onForm(QStringLiteral("textInputForm"), [](QWidget& root) {
        auto* input = root.findChild<QLineEdit*>(QStringLiteral("inputLineEdit"));
        EXPECT_EQ(input->text(), QStringLiteral("1"));
        input->setText(QStringLiteral("7"));
        press(root, "okButton");
    });
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::GoOn);
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 7.0);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(Commands, changeQuantityCancelled_leavesThePacks)
{
    sale->add(article(amoxidar, 3));
    cashier.onForm(QStringLiteral("textInputForm"), [](QWidget& root) { press(root, "cancelButton"); });
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
    EXPECT_EQ(messages.all().first().text, QStringLiteral("Сначала выберите позицию чека."));
}

TEST_F(Commands, boundPosition_keepsItsQuantity)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(QStringLiteral("rx-1"));
    const ShownMessages messages;
    EXPECT_EQ(run(registeraction::changeQuantity, positionNumber(1)), EContext::Stop);
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_TRUE(messages.all().first().text.startsWith(QStringLiteral("Позиция № 1 отпускается по документу")));
    EXPECT_EQ(sale->receipt()->position(1)->getQuantity(), 1);
}

TEST_F(Commands, boundPosition_isRemovedOnlyAfterTheQuestionAndByTheHooks)
{
    sale->add(article(amoxidar));
    sale->receipt()->position(1)->setSoftCheckId(QStringLiteral("rx-1"));
    int hooks = 0;
    controller.object.addTrigger({EContext::OpenReceipt, control::StornoPosition, ActionTrigger::Before,
                                  [&hooks](const control::Action&) {
                                      ++hooks;
                                      return EContext::GoOn;
                                  },
                                  ActionTrigger::Any, 1});
    cashier.onForm(QStringLiteral("questionForm"), [](QWidget& root) { press(root, "noButton"); });
    EXPECT_EQ(run(registeraction::removePosition, positionNumber(1)), EContext::Stop);
    EXPECT_EQ(hooks, 0);
    EXPECT_EQ(sale->receipt()->positions().size(), 1);
    cashier.onForm(QStringLiteral("questionForm"), [](QWidget& root) { press(root, "yesButton"); });
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
                                      const int number = storno.value(QStringLiteral("positionNumber")).toInt();
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
    EXPECT_TRUE(savedReceipt().value(QStringLiteral("positions")).toArray().isEmpty());
}

TEST_F(Commands, keyExplained_namesTheKeyAndWhatIsMissing)
{
    const QVariantMap key{{QStringLiteral("text"), QStringLiteral("Рецепт %1")}};
    const ShownMessages messages;
    run(registeraction::explainKey, key);
    sale->open();
    run(registeraction::explainKey, key);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_TRUE(messages.all().at(0).text.startsWith(QStringLiteral("«Рецепт %1» работает при открытом чеке")));
    EXPECT_TRUE(messages.all().at(1).text.startsWith(QStringLiteral("«Рецепт %1» сейчас недоступно")));
}
