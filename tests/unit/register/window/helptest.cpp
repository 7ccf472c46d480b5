// SPDX-License-Identifier: MIT
// F1: the keys that work on the screen in front, and what comes next.
#include "askform.h"
#include "basicdialogform.h"
#include "documentlistparams.h"
#include "finally.h"
#include "formkeys.h"
#include "goodsselectionparams.h"
#include "looks.h"
#include "menuparams.h"
#include "notice.h"
#include "question.h"
#include "registeraction.h"
#include "registerformcreator.h"
#include "registerstyle.h"
#include "screenhelp.h"
#include "windowfixture.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace
{

/// A plug-in's form, with or without a help of its own.
class PluginForm : public BasicForm
{
public:
    explicit PluginForm(bool hasHelp)
        : BasicForm(nullptr)
    {
        loadUI(u"plugin.ui"_s);
        if (hasHelp) {
            setHelp({{{u"F5"_s, {tr::undefined, u"сделать своё"_s}}}, {tr::undefined, u"Сделайте своё."_s}});
        }
    }
};

class PluginFormCreator : public BasicFormCreator
{
public:
    QSharedPointer<BasicForm> create(const Event& event) override
    {
        const int code = event.getCode();
        return code == 2000 || code == 2001 ? QSharedPointer<PluginForm>::create(code == 2000) : nullptr;
    }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }
};

class HelpTest : public WindowFixture
{
protected:
    HelpTest() { gui.object.addFormCreator(QSharedPointer<PluginFormCreator>::create()); }

    /// Presses F1 and returns all that the help says; closes it.
    QString help()
    {
        QString said;
        cashier.onForm(u"helpForm"_s, [this, &said](QWidget& root) {
            QStringList texts;
            for (const QLabel* label : root.findChildren<QLabel*>()) {
                texts.append(label->text());
            }
            said = texts.join(u'|');
            press(Qt::Key_F1);
        });
        press(Qt::Key_F1);
        EXPECT_TRUE(cashier.isDone()) << "no help came";
        return said;
    }
    /// The help of a form that `show` opens. The form is still there when the help is closed.
    QString helpOf(const QString& formName, const std::function<void()>& show)
    {
        QString said;
        cashier.onForm(formName, [&, this](QWidget& root) {
            said = help();
            EXPECT_TRUE(Cashier::isOnTop(root.objectName()));
            gui.object.cancelForms();
        });
        show();
        return said;
    }
    void writeLayout(const QString& name)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<ui version=\"4.0\"><widget class=\"QWidget\" name=\"pluginForm\"><layout "
                   "class=\"QVBoxLayout\"><item><widget class=\"QPushButton\" name=\"someButton\"/></item></layout>"
                   "</widget></ui>");
        file.close();
        config.set(u"GUI:layouts"_s, folder.path());
    }
};

} // namespace

TEST_F(HelpTest, withoutADocument_saysHowToBeginAndWhichFunctionKeysThereAre)
{
    openWindow();
    const QString said = help();
    EXPECT_TRUE(said.startsWith(u"Справка: Чек не открыт"_s)) << qPrintable(said);
    EXPECT_TRUE(said.contains(u"Отсканируйте товар"_s));
    EXPECT_TRUE(said.contains(u"F2|Новый чек"_s));
    EXPECT_TRUE(said.contains(u"F10|Меню"_s));
    for (const auto& idle : {u"Количество"_s, u"Подытог"_s, u"Удалить"_s, u"Отмена чека"_s, u"Оплата"_s}) {
        EXPECT_FALSE(said.contains(idle)) << qPrintable(idle) << " does nothing yet";
    }
    EXPECT_TRUE(said.contains(u"F1|показать или закрыть справку"_s));
    EXPECT_FALSE(gui.object.topForm());
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit")) << "the focus is where it was";
}

TEST_F(HelpTest, eachPhaseOfASale_hasKeysOfItsOwn)
{
    openWindow();
    till->add(article(amoxidar));
    const QString positions = help();
    EXPECT_TRUE(positions.contains(u"↑ ↓|выбрать позицию"_s));
    EXPECT_TRUE(positions.contains(u"F12|Оплата"_s));
    till->setPhase(Till::Phase::Subtotal);
    EXPECT_TRUE(help().contains(u"Ввод|к оплате"_s));
    till->setPhase(Till::Phase::Payment);
    const QString payment = help();
    EXPECT_TRUE(payment.contains(u"Ввод|закрыть чек"_s));
    EXPECT_FALSE(payment.contains(u"F11"_s)) << "there is no terminal";
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(HelpTest, returnThatIsPaidOut_saysSo)
{
    openWindow();
    till->add(article(amoxidar));
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    till->setPhase(Till::Phase::Payment);
    EXPECT_TRUE(help().contains(u"Ввод|закрыть возврат"_s));
}

TEST_F(HelpTest, keyOfAPlugin_isListedWhereItOpensASale)
{
    config.set(u"FunctionKeys:keys"_s, u"pluginKey"_s);
    config.set(u"FunctionKey.pluginKey:text"_s, u"Скидка"_s);
    config.set(u"FunctionKey.pluginKey:action"_s, u"94"_s);
    config.set(u"FunctionKey.pluginKey:key"_s, u"F5"_s);
    openWindow();
    EXPECT_FALSE(help().contains(u"F5|Скидка"_s)) << "nobody does it";
    QVariantMap given;
    servePluginCommand(given);
    EXPECT_TRUE(help().contains(u"F5|Скидка"_s));
}

TEST_F(HelpTest, statusLineHasMoreToSay_itsKeyIsInTheHelpAndStillWorksAfterwards)
{
    openWindow();
    EXPECT_FALSE(help().contains(u"Ctrl+F12"_s)) << "there is nothing to read";
    window->statusLine().showWarning(u"Подытог не выполнен. "_s.repeated(40));
    EXPECT_TRUE(help().contains(u"Ctrl+F12|прочитать сообщение внизу целиком"_s));
    cashier.onForm(u"helpForm"_s, [this](QWidget&) { press(Qt::Key_Escape); });
    press(Qt::Key_F1);
    EXPECT_TRUE(cashier.isDone());
    EXPECT_TRUE(isSeen("statusMoreButton")) << "the warning is there until the cashier goes on";
    press(Qt::Key_Up);
    EXPECT_FALSE(isSeen("statusMoreButton"));
}

TEST_F(HelpTest, touchMode_saysWhatComesNextAndNamesNoKey)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    openWindow();
    window->statusLine().showWarning(u"Подытог не выполнен. "_s.repeated(40));
    const QString said = help();
    EXPECT_TRUE(said.contains(u"Отсканируйте товар"_s));
    EXPECT_EQ(looks::namesOfKeys(said.split(u'|')), QStringList());
    const QString ofMessage = helpOf(u"messageForm"_s, [] { showNotice({u"m"_s, u"Готово"_s}); });
    EXPECT_TRUE(ofMessage.contains(u"Прочитайте сообщение"_s));
    EXPECT_EQ(looks::namesOfKeys(ofMessage.split(u'|')), QStringList());
}

TEST_F(HelpTest, everyKeyOfAFormOfTheRegister_isTheOneOnItsButton)
{
    openWindow();
    const std::pair<const char*, Qt::Key> keys[] = {
        {"goodsSelectionForm", formkeys::allGoods},   {"returnForm", formkeys::allPositions},
        {"documentListForm", formkeys::resume},       {"documentListForm", formkeys::returnSale},
        {"documentListForm", formkeys::voidDocument}, {"documentListForm", formkeys::printCopy},
    };
    for (const auto& [screen, key] : keys) {
        QStringList named;
        for (const FormHelp::Key& one : screenHelp(QString::fromLatin1(screen)).keys) {
            named.append(one.key);
        }
        EXPECT_TRUE(named.contains(QKeySequence(key).toString())) << screen;
    }
}

TEST_F(HelpTest, formOfTheRegister_hasTheKeysOfItsTable)
{
    openWindow();
    const Question question{{u"t"_s, u"Отменить чек?"_s}, {u"q"_s, u"Точно?"_s}, {u"y"_s, u"Да"_s}, {u"n"_s, u"Нет"_s}};
    const QString asked = helpOf(u"questionForm"_s, [&] { question.ask(); });
    EXPECT_TRUE(asked.startsWith(u"Справка: Отменить чек?"_s)) << qPrintable(asked);
    EXPECT_TRUE(asked.contains(u"Esc|ничего не менять"_s));
    EXPECT_TRUE(helpOf(u"goodsSelectionForm"_s, [this] {
                    askForm(GoodsSelectionParams::eventCode, GoodsSelectionParams{catalogue.goodsOf({}), {}, {}});
                }).contains(u"Ввод|взять выбранный товар"_s));
    EXPECT_TRUE(helpOf(u"menuForm"_s, [] { askForm(MenuParams::eventCode, MenuParams()); }).contains(u"1–9|"_s));
    EXPECT_TRUE(helpOf(u"messageForm"_s, [] { showNotice({u"m"_s, u"Готово"_s}); }).contains(u"закрыть сообщение"_s));
}

TEST_F(HelpTest, everyFormOfTheRegister_isInTheTable)
{
    const QString others = screenHelp(u"anything"_s).keys.first().does.ui();
    for (const char* name : {"goodsSelectionForm", "documentListForm", "menuForm", "questionForm", "returnForm"}) {
        const FormHelp help = screenHelp(QString::fromLatin1(name));
        EXPECT_NE(help.keys.first().does.ui(), others) << name;
        EXPECT_FALSE(help.next.ui().isEmpty()) << name;
    }
}

TEST_F(HelpTest, formOfAPlugin_bringsItsHelpAndOneWithoutHasTheCommonKeys)
{
    openWindow();
    writeLayout(u"plugin.ui"_s);
    const auto show = [](int code) { askForm(Event(static_cast<EActivityListener::Event>(code))); };
    const QString own = helpOf(u"pluginForm"_s, [&] { show(2000); });
    EXPECT_TRUE(own.contains(u"F5|сделать своё"_s)) << qPrintable(own);
    EXPECT_TRUE(own.contains(u"Сделайте своё."_s));
    const QString common = helpOf(u"pluginForm"_s, [&] { show(2001); });
    EXPECT_TRUE(common.contains(u"Tab|к следующему полю или кнопке"_s)) << qPrintable(common);
}

TEST_F(HelpTest, escOrReturnOrItsButton_closesTheHelpAlone)
{
    openWindow();
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    const std::function<void(QWidget&)> ways[] = {
        [this](QWidget&) { press(Qt::Key_Escape); },
        [this](QWidget&) { press(Qt::Key_Return); },
        [](QWidget& root) { root.findChild<QPushButton*>(u"okButton"_s)->click(); },
    };
    for (const auto& close : ways) {
        cashier.onForm(u"helpForm"_s, close);
        press(Qt::Key_F1);
        EXPECT_FALSE(gui.object.topForm());
        EXPECT_EQ(till->phase(), Till::Phase::Payment);
    }
}

TEST_F(HelpTest, functionKeyWithF1_winsOnTheSalesScreenAndFormsKeepTheirHelp)
{
    config.set(u"FunctionKey.newReceiptKey:key"_s, u"F1"_s);
    openWindow();
    EXPECT_FALSE(widget<QLabel>("beginningLabel")->text().contains(u"F1"_s));
    press(Qt::Key_F1);
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(till->document()) << "the function key opened a receipt";
    EXPECT_TRUE(helpOf(u"messageForm"_s, [] { showNotice({u"m"_s, u"Готово"_s}); }).contains(u"закрыть сообщение"_s));
}

TEST_F(HelpTest, locked_opensNoHelp)
{
    openWindow(u"1234"_s);
    window->lock();
    press(Qt::Key_F1);
    EXPECT_FALSE(gui.object.topForm());
}

TEST_F(HelpTest, withoutADocument_theEmptyListSaysHowToBegin)
{
    config.set(u"Register:idleHint"_s, u"F5 — своё дело аптеки"_s);
    openWindow();
    EXPECT_TRUE(isSeen("beginningLabel"));
    const QString said = widget<QLabel>("beginningLabel")->text();
    EXPECT_TRUE(said.contains(u"чек откроется сам"_s));
    EXPECT_TRUE(said.contains(u"F5 — своё дело аптеки"_s));
    EXPECT_TRUE(said.contains(u"F1 — какие клавиши работают"_s));
    EXPECT_FALSE(said.contains(u"рецепт"_s)) << "the register knows nothing of them";
    till->add(article(amoxidar));
    EXPECT_FALSE(isSeen("beginningLabel"));
}

TEST_F(HelpTest, everyScreen_isWholeInTheSmallestWindow)
{
    applyRegisterStyle(*qApp, {1024, 600});
    const Finally undressed([] { qApp->setStyleSheet(QString()); });
    QStringList names{u"newReceiptKey"_s, u"goodsKey"_s,         u"quantityKey"_s, u"subtotalKey"_s,
                      u"removeKey"_s,     u"cancelReceiptKey"_s, u"menuKey"_s,     u"paymentKey"_s};
    for (int more = 1; more <= 5; ++more) {
        const QString name = u"more%1Key"_s.arg(more);
        config.set(u"FunctionKey.%1:text"_s.arg(name), u"Электронный рецепт"_s);
        config.set(u"FunctionKey.%1:action"_s.arg(name), u"94"_s);
        config.set(u"FunctionKey.%1:key"_s.arg(name), u"Ctrl+%1"_s.arg(more));
        names.append(name);
    }
    config.set(u"FunctionKeys:keys"_s, names.join(u','));
    openWindow();
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    cashier.onForm(u"helpForm"_s, [this](QWidget& root) {
        QApplication::processEvents();
        EXPECT_TRUE(window->rect().contains(root.geometry()));
        for (const QWidget* shown : root.findChildren<QLabel*>()) {
            EXPECT_GE(shown->width(), shown->minimumSizeHint().width()) << qPrintable(shown->objectName());
            EXPECT_GE(shown->height(), shown->minimumSizeHint().height());
        }
        gui.object.cancelForms();
    });
    press(Qt::Key_F1);
}
