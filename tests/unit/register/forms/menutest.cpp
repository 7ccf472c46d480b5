// SPDX-License-Identifier: MIT
// The menu and its commands.
#include "actionhost.h"
#include "menucommands.h"
#include "registeraction.h"
#include "storeddocumentcommands.h"
#include "windowfixture.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class MenuTest : public WindowFixture
{
protected:
    /// Longer than the menu waits after a digit for a scanner's next key; in milliseconds.
    static constexpr int quietTime = 200;

    MenuTest()
        : printer(folder.path(), marks)
        , documentCommands(*till, printer, marks)
    {
        documentCommands.offer(controller.object);
    }

    void openWindow()
    {
        menuCommands = std::make_unique<MenuCommands>(*till, configuredMenuEntries(*Singleton<Config>::get()));
        menuCommands->offer(controller.object);
        WindowFixture::openWindow();
    }
    /// Opens the menu, does `act` in it, and waits until the chosen command is done.
    void inMenu(const Cashier::Act& act)
    {
        cashier.onForm(u"menuForm"_s, act);
        press(Qt::Key_F10);
        ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
        ASSERT_TRUE(becomesIdle());
    }
    static QPushButton* entry(const QWidget& menu, const char* name)
    {
        return menu.findChild<QPushButton*>(QLatin1StringView(name));
    }

    ReceiptPrinter printer;
    StoredDocumentCommands documentCommands;
    std::unique_ptr<MenuCommands> menuCommands;
};

TEST_F(MenuTest, noDocument_entriesThatNeedOneSaySo)
{
    openWindow();
    inMenu([](QWidget& menu) {
        const std::tuple<const char*, const char*, bool> entries[] = {
            {"putAsideEntry", "1. Отложить чек — чек не открыт", false},
            {"documentsEntry", "2. Документы", true},
            {"takeBackEntry", "3. Возврат продажи", true},
            {"annulEntry", "4. Аннулировать по номеру", true},
            {"cancelReceiptEntry", "5. Отменить чек — чек не открыт", false},
            {"lockEntry", "6. Заблокировать кассу", true},
            {"helpEntry", "7. Справка", true},
        };
        for (const auto& [name, text, enabled] : entries) {
            ASSERT_TRUE(entry(menu, name)) << name;
            EXPECT_EQ(entry(menu, name)->text(), QString::fromUtf8(text));
            EXPECT_EQ(entry(menu, name)->isEnabled(), enabled) << name;
        }
        EXPECT_EQ(QApplication::focusWidget(), entry(menu, "documentsEntry")) << "the first one that is possible";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
}

TEST_F(MenuTest, shown_everyControlHasItsTextAsAccessibleName)
{
    openWindow();
    inMenu([](QWidget& menu) {
        const auto buttons = menu.findChildren<QPushButton*>();
        EXPECT_EQ(buttons.size(), 8) << "seven entries and the way back";
        for (const auto* button : buttons) {
            EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
            EXPECT_EQ(button->accessibleName(), button->text());
        }
        EXPECT_EQ(entry(menu, "putAsideEntry")->accessibleName(), "1. Отложить чек — чек не открыт");
        EXPECT_EQ(entry(menu, "cancelButton")->accessibleName(), "Назад");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
}

TEST_F(MenuTest, documentOpen_returningIsDisabled)
{
    till->add(article(amoxidar));
    openWindow();
    inMenu([](QWidget& menu) {
        EXPECT_EQ(entry(menu, "takeBackEntry")->text(), u"3. Возврат продажи — сначала завершите чек № 1"_s);
        EXPECT_FALSE(entry(menu, "takeBackEntry")->isEnabled());
        EXPECT_TRUE(entry(menu, "putAsideEntry")->isEnabled());
        EXPECT_TRUE(entry(menu, "cancelReceiptEntry")->isEnabled());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
}

TEST_F(MenuTest, returnOpen_suspendingIsDisabled)
{
    till->add(article(amoxidar));
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    openWindow();
    inMenu([](QWidget& menu) {
        EXPECT_EQ(entry(menu, "putAsideEntry")->text(), u"1. Отложить чек — возврат не откладывают"_s);
        EXPECT_FALSE(entry(menu, "putAsideEntry")->isEnabled());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
}

struct Way {
    const char* name;
    void (*choose)(QWidget& menu);
};

class MenuChoice : public MenuTest, public ::testing::WithParamInterface<Way>
{
};

TEST_P(MenuChoice, suspend_isDoneAfterTheMenuHasClosed)
{
    till->add(article(amoxidar));
    openWindow();
    EContext::Code context = EContext::DialogOnTop;
    controller.object.host().addTrigger({EContext::OpenDocument, registeraction::suspend, ActionTrigger::Before,
                                         [&](const control::Action&) {
                                             context = controller.object.context();
                                             return EContext::GoOn;
                                         },
                                         ActionTrigger::Any, 1});
    inMenu(GetParam().choose);
    EXPECT_EQ(context, EContext::OpenDocument);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(till->archive().find(1)->getState(), Document::State::Suspended);
    EXPECT_EQ(widget<QLabel>("statusMessageLabel")->text(), u"Чек № 1 отложен"_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
}

INSTANTIATE_TEST_SUITE_P(
    , MenuChoice,
    ::testing::Values(Way{"digit", [](QWidget&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_1); }},
                      Way{"keypadDigit",
                          [](QWidget&) {
                              QTest::keyClick(QApplication::focusWidget(), Qt::Key_1, Qt::KeypadModifier);
                          }},
                      Way{"return", [](QWidget&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }},
                      Way{"downUpReturn",
                          [](QWidget&) {
                              for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}) {
                                  QTest::keyClick(QApplication::focusWidget(), key);
                              }
                          }},
                      Way{"touch",
                          [](QWidget& menu) {
                              QTest::mouseClick(menu.findChild<QPushButton*>(u"putAsideEntry"_s), Qt::LeftButton);
                          }}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(MenuTest, cancelDocument_usesTheMenusOwnAction)
{
    till->add(article(amoxidar));
    openWindow();
    QList<int> asked;
    for (const auto type : {control::CancelDocument, control::CancelDocumentFromMenu}) {
        controller.object.host().addTrigger({EContext::OpenDocument, type, ActionTrigger::Before,
                                             [&asked](const control::Action& action) {
                                                 asked.append(action.getType());
                                                 return EContext::GoOn;
                                             },
                                             ActionTrigger::Any, 1});
    }
    inMenu([this](QWidget&) {
        cashier.onForm(u"questionForm"_s,
                       [](QWidget& question) { question.findChild<QPushButton*>(u"yesButton"_s)->click(); });
        press(Qt::Key_5);
    });
    EXPECT_FALSE(till->document());
    EXPECT_EQ(asked, QList<int>{control::CancelDocumentFromMenu});
}

TEST_F(MenuTest, digitOfADisabledEntry_leavesTheMenuOpen)
{
    openWindow();
    bool stands = false;
    inMenu([&](QWidget& menu) {
        for (const Qt::Key digit : {Qt::Key_1, Qt::Key_9, Qt::Key_0}) {
            press(digit);
            QTest::qWait(quietTime);
        }
        stands = gui.object.topForm() && menu.isVisible();
        press(Qt::Key_Escape);
    });
    EXPECT_TRUE(stands);
}

class ScannedInTheMenu : public MenuTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ScannedInTheMenu, choosesNothing)
{
    till->add(article(amoxidar));
    openWindow();
    bool stands = false;
    inMenu([&](QWidget& menu) {
        scanInWindow(QLatin1StringView(GetParam()));
        QTest::qWait(quietTime);
        stands = gui.object.topForm() && gui.object.topForm()->rootWidget() == &menu;
        press(Qt::Key_Escape);
    });
    EXPECT_TRUE(stands);
    EXPECT_TRUE(till->document()) << "put aside is the menu's first";
}

INSTANTIATE_TEST_SUITE_P(, ScannedInTheMenu, ::testing::Values("1600000000001", "0000000000001", "11111111"),
                         [](const auto& instance) { return "barcode" + std::string(instance.param); });

TEST_F(MenuTest, twoFastDigits_chooseNothingAndALaterOneDoes)
{
    till->add(article(amoxidar));
    openWindow();
    inMenu([&](QWidget&) {
        press(Qt::Key_2);
        press(Qt::Key_1);
        QTest::qWait(quietTime);
        ASSERT_TRUE(gui.object.topForm());
        EXPECT_TRUE(till->document());
        press(Qt::Key_1);
    });
    EXPECT_FALSE(till->document());
}

TEST_F(MenuTest, left_nothingHappens)
{
    till->add(article(amoxidar));
    openWindow();
    const QList<Cashier::Act> ways{
        [this](QWidget&) { press(Qt::Key_Escape); },
        [](QWidget& menu) { QTest::mouseClick(entry(menu, "cancelButton"), Qt::LeftButton); },
        [this](QWidget&) { gui.object.cancelForms(); },
    };
    for (const Cashier::Act& leave : ways) {
        inMenu(leave);
        EXPECT_TRUE(till->document());
        EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
    }
}

TEST_F(MenuTest, configuredEntry_getsItsArgumentsAndTheCurrentPosition)
{
    config.set(u"Menu:entries"_s, u"mine"_s);
    config.set(u"FunctionKey.mine:text"_s, u"Скидка"_s);
    config.set(u"FunctionKey.mine:action"_s, u"94"_s);
    config.set(u"FunctionKey.mine:arguments"_s, u"status=active"_s);
    till->add(article(amoxidar));
    openWindow();
    inMenu([this](QWidget& menu) {
        EXPECT_EQ(entry(menu, "mine")->text(), u"1. Скидка — нет модуля"_s);
        press(Qt::Key_Escape);
    });
    QVariantMap given;
    servePluginCommand(given);
    inMenu([this](QWidget&) { press(Qt::Key_1); });
    EXPECT_EQ(given, (QVariantMap{{u"status"_s, u"active"_s}, {u"positionNumber"_s, 1}}));
}

TEST_F(MenuTest, nineEntries_fitTheSmallestScreenInTouchMode)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    config.set(u"Menu:entries"_s, u"putAsideEntry,documentsEntry,takeBackEntry,annulEntry,cancelReceiptEntry,goodsKey,"
                                  "quantityKey,removeKey,subtotalKey"_s);
    openWindow();
    bool fits = false;
    inMenu([&](QWidget& menu) {
        fits = window->rect().contains(menu.geometry()) && menu.height() >= menu.minimumSizeHint().height();
        press(Qt::Key_Escape);
    });
    EXPECT_TRUE(fits);
}

TEST_F(MenuTest, lockChosen_theScreenIsLockedUntilTheCode)
{
    menuCommands = std::make_unique<MenuCommands>(*till, configuredMenuEntries(*Singleton<Config>::get()));
    menuCommands->offer(controller.object);
    WindowFixture::openWindow(u"1234"_s);
    inMenu([](QWidget& menu) { QTest::mouseClick(entry(menu, "lockEntry"), Qt::LeftButton); });
    ASSERT_TRUE(isSeen("lockScreen"));
    QTest::keyClicks(QApplication::focusWidget(), u"1234"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(isSeen("lockScreen"));
}

TEST_F(MenuTest, helpChosen_theKeysOfTheSalesScreenAreShown)
{
    openWindow();
    bool isShown = false;
    cashier.onForm(u"menuForm"_s, [](QWidget& menu) { QTest::mouseClick(entry(menu, "helpEntry"), Qt::LeftButton); });
    cashier.onForm(u"helpForm"_s, [&isShown](QWidget& help) {
        isShown = true;
        help.findChild<QPushButton*>(u"okButton"_s)->click();
    });
    press(Qt::Key_F10);
    ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(isShown);
}
