// SPDX-License-Identifier: MIT
// Every screen of the register as a cashier sees it, in each size, mode and language: nothing is cut off, every text
// can be read, and in touch mode every target can be hit and no text names a key.
#include "askform.h"
#include "dialog.h"
#include "finally.h"
#include "goodsselectionparams.h"
#include "helpform.h"
#include "looks.h"
#include "menuparams.h"
#include "messagecatalogues.h"
#include "notice.h"
#include "question.h"
#include "registeraction.h"
#include "screenhelp.h"
#include "storeddocumentcommands.h"
#include "styledscreen.h"
#include "terminaldouble.h"
#include "windowfixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class Screens : public WindowFixture, public ::testing::WithParamInterface<std::tuple<QSize, bool, const char*>>
{
protected:
    Screens()
    {
        const auto& [size, touch, language] = GetParam();
        config.set(u"GUI:touchMode"_s, touch ? u"true"_s : u"false"_s);
        config.set(u"Register:currency"_s, u"BYN"_s);
        config.set(u"Language:interface"_s, QString::fromLatin1(language));
        for (const char* texts : {":/translations/registerplatform", ":/translations/pharmacyregister"}) {
            catalogues.load(QString::fromLatin1(texts));
        }
        styled.emplace(size);
        documentCommands.offer(controller.object);
        till->add(article(amoxidar));
        till->add(article(u"2990000000026"_s));
        EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
        till->add(article(amoxidar));
        EXPECT_TRUE(till->suspend());
    }
    void openSized()
    {
        openWindow(u"1234"_s);
        window->resize(std::get<QSize>(GetParam()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return window->size() == std::get<QSize>(GetParam()); }));
    }
    static void expectGood(const QWidget& screen, const char* name)
    {
        QApplication::processEvents();
        EXPECT_EQ(looks::cutOff(screen).join(u", "_s).toStdString(), "") << name;
        EXPECT_EQ(looks::faint(screen).join(u", "_s).toStdString(), "") << name;
        if (std::get<bool>(GetParam())) {
            EXPECT_EQ(looks::hardToHit(screen).join(u", "_s).toStdString(), "") << name;
            EXPECT_EQ(looks::namesOfKeys(looks::textsOn(screen)).join(u", "_s).toStdString(), "") << name;
        }
    }
    /// Looks at the form that `show` opens, after `act`, and closes it.
    void expectGoodForm(
        const char* name, const std::function<void()>& show, const Cashier::Act& act = [](QWidget&) {})
    {
        cashier.onForm(QString::fromLatin1(name), [&, this](QWidget& root) {
            act(root);
            expectGood(root, name);
            EXPECT_TRUE(window->rect().contains(QRect(root.mapTo(window.get(), QPoint()), root.size()))) << name;
            gui.object.cancelForms();
        });
        show();
        EXPECT_TRUE(cashier.isDone()) << name;
    }

    MessageCatalogues catalogues;
    ReceiptPrinter printer{folder.path(), marks};
    StoredDocumentCommands documentCommands{*till, printer, marks};

    std::optional<StyledScreen> styled; ///< made when the mode is configured
};

TEST_P(Screens, saleFromItsBeginningToThePayment_isReadable)
{
    openSized();
    expectGood(*window, "idle");
    SelectedGoods goods = article(amoxidar);
    goods.goods.name = u"Ацетилсалициловая кислота + магния гидроксид, таблетки кишечнорастворимые 150 мг №100"_s;
    till->add(goods);
    expectGood(*window, "positions");
    till->setPhase(Till::Phase::Subtotal);
    expectGood(*window, "subtotal");
    till->setPhase(Till::Phase::Payment);
    widget<QLineEdit>("receivedLineEdit")->setText(u"5"_s);
    expectGood(*window, "payment");
    window->lock();
    expectGood(*widget<QWidget>("lockScreen"), "lock");
}

TEST_P(Screens, paymentByCard_isReadable)
{
    const ConnectedTerminal terminal;
    openSized();
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    expectGood(*window, "payment with a terminal");
}

TEST_P(Screens, goodsSelection_isReadableWithAndWithoutGoods)
{
    openSized();
    const GoodsList all = catalogue.goodsOf({});
    const auto show = [](const GoodsSelectionParams& params) { askForm(GoodsSelectionParams::eventCode, params); };
    expectGoodForm("goodsSelectionForm", [&] { show({all, {}, {}}); });
    const GoodsSelectionParams wanted{catalogue.goodsOf(u"Нет"_s),    u"Нет / Нету / 30"_s, {}, {},
                                      u"Ацетилсалициловая кислота"_s, [&] { return all; }};
    expectGoodForm("goodsSelectionForm", [&] { show(wanted); });
    expectGoodForm(
        "goodsSelectionForm", [&] { show(wanted); },
        [](QWidget& root) { root.findChild<QPushButton*>(u"allGoodsButton"_s)->click(); });
}

TEST_P(Screens, returnOfASaleByCard_isReadable)
{
    const ConnectedTerminal terminal;
    openSized();
    till->add(article(amoxidar));
    CardOperation charged{.state = CardOperation::State::Approved, .amount = Kopecks{1000}, .reference = u"1-1"_s};
    ASSERT_TRUE(till->recordOrShow(till->document(), charged));
    till->setPhase(Till::Phase::Payment);
    expectGood(*window, "payment partly by card");
    const int sale = till->document()->getNumber();
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{240}), Payment::card(Kopecks{1000})}));
    ASSERT_TRUE(till->returnSale(till->archive().find(sale)));
    expectGood(*window, "return");
    till->setPhase(Till::Phase::Payment);
    expectGood(*window, "paying out");
}

TEST_P(Screens, documentsAndReturn_areReadable)
{
    openSized();
    expectGoodForm("documentListForm", [this] {
        control::Action action(registeraction::showDocuments);
        controller.object.execute(action);
    });
    expectGoodForm("returnForm", [this] {
        control::Action action(registeraction::returnSale);
        action.insert(u"number"_s, 1);
        controller.object.execute(action);
    });
}

TEST_P(Screens, dialogs_areReadable)
{
    openSized();
    MenuParams menu;
    for (const FunctionKey& entry : configuredMenuEntries(*Singleton<Config>::get())) {
        menu.entries.append({entry, {}});
    }
    expectGoodForm("menuForm", [&] { askForm(MenuParams::eventCode, menu); });
    const Question question{
        {u"t"_s, u"Отменить чек?"_s}, {u"q"_s, u"Чек будет отменён."_s}, {u"y"_s, u"Отменить"_s}, {u"n"_s, u"Нет"_s}};
    expectGoodForm("questionForm", [&] { question.ask(); });
    expectGoodForm("messageForm", [] { showNotice({u"m"_s, u"Готово"_s}); });
    for (const char* screen : {"idle", "positions", "subtotal", "payment", "payOut", "documentListForm",
                               "goodsSelectionForm", "menuForm", "questionForm", "returnForm", "another"}) {
        expectGoodForm("helpForm", [screen] {
            askForm(HelpParams::eventCode, HelpParams{u"Экран"_s, screenHelp(QString::fromLatin1(screen))});
        });
    }
}

TEST_P(Screens, inputRefused_hintAndReasonAreReadable)
{
    openSized();
    TextInputParams params;
    params.title = {u"t"_s, u"Ввод количества отпущенных доз"_s};
    params.message = {u"m"_s, u"Введите количество отпущенных доз по рецепту на\n'Эналаприл / Эналакор'\n"
                              "(выписано 30.00/отпущено ранее 0.00)"_s};
    params.hint = {u"h"_s, u"Число больше 0, не больше двух знаков после запятой или точки"_s};
    params.mask = u"\\d+"_s;
    params.numeric = true;
    params.columns = 10;
    expectGoodForm(
        "textInputForm", [&] { Dialog::create()->showTextInput(params); },
        [](QWidget& root) { root.findChild<QPushButton*>(u"okButton"_s)->click(); });
}

INSTANTIATE_TEST_SUITE_P(, Screens,
                         ::testing::Combine(::testing::Values(QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)),
                                            ::testing::Bool(), ::testing::Values("ru", "en")),
                         [](const auto& instance) {
                             return std::to_string(std::get<QSize>(instance.param).width()) +
                                    (std::get<bool>(instance.param) ? "touch" : "keys") +
                                    std::get<const char*>(instance.param);
                         });
