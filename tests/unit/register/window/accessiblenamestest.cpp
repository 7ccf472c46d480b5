// SPDX-License-Identifier: MIT
// The accessible names of the register's forms, which a screen reader speaks, with and without touch mode.
#include "accessiblenames.h"
#include "documentlistform.h"
#include "goodsselectionform.h"
#include "menuform.h"
#include "questionform.h"
#include "returnform.h"
#include "windowfixture.h"

using namespace Qt::StringLiterals;

namespace
{

class RegisterAccessibleNames : public WindowFixture, public ::testing::WithParamInterface<bool>
{
protected:
    RegisterAccessibleNames()
    {
        config.set(u"GUI:touchMode"_s, GetParam() ? u"true"_s : u"false"_s);
        config.set(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey,menuKey,paymentKey"_s);
    }

    /// Shows the form like the register does.
    static const QWidget& shown(BasicForm& form)
    {
        form.rootWidget()->show();
        form.show();
        return *form.rootWidget();
    }
    static QString nameOf(const QWidget& form, const char* widget)
    {
        const auto* found = form.findChild<QWidget*>(QLatin1StringView(widget));
        EXPECT_NE(found, nullptr) << widget;
        return found ? found->accessibleName() : QString();
    }
    /// Scroll buttons exist only in touch mode.
    static void expectNamedScrollButtons(const QWidget& form)
    {
        if (!GetParam()) {
            return;
        }
        EXPECT_EQ(nameOf(form, "pageUpButton"), u"На страницу вверх"_s);
        EXPECT_EQ(nameOf(form, "scrollUpButton"), u"Вверх"_s);
        EXPECT_EQ(nameOf(form, "scrollDownButton"), u"Вниз"_s);
        EXPECT_EQ(nameOf(form, "pageDownButton"), u"На страницу вниз"_s);
    }
};

} // namespace

TEST_P(RegisterAccessibleNames, goodsSelection_everyControlHasOneAndTheScrollButtonsNameTheDirection)
{
    GoodsSelectionForm form({catalogue.goodsOf({}), {}, {}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
    expectNamedScrollButtons(*form.rootWidget());
}

TEST_P(RegisterAccessibleNames, documentList_everyControlHasOneAndTheScrollButtonsNameTheDirection)
{
    DocumentListParams params;
    params.documents = [] { return QList<DocumentListParams::Pointer>(); };
    params.returned = [](const Document&) { return Document::Returned::Nothing; };
    params.marks = &marks;
    DocumentListForm form(params);
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
    expectNamedScrollButtons(*form.rootWidget());
}

TEST_P(RegisterAccessibleNames, returnForm_everyControlHasOneAndTheScrollButtonsNameTheDirection)
{
    till->add(article(amoxidar));
    ReturnForm form({u"Чек № 1"_s, till->document()->positions(), &marks});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
    expectNamedScrollButtons(*form.rootWidget());
}

TEST_P(RegisterAccessibleNames, menu_everyControlHasOne)
{
    const FunctionKey command{u"putAsideEntry"_s, u"Отложить чек"_s, {}, control::PluginCommand, {}};
    MenuForm form({{{command, Obstacle{{u"menuNoReceipt"_s, u"чек не открыт"_s}}}}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
}

TEST_P(RegisterAccessibleNames, question_everyControlHasOne)
{
    QuestionForm form({{tr::undefined, u"Отмена чека"_s},
                       {tr::undefined, u"Отменить чек № 7?"_s},
                       {tr::undefined, u"Отменить чек"_s},
                       {tr::undefined, u"Нет"_s}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
}

/// The window with the sales screen, the function keys, the payment panel and the lock screen.
TEST_P(RegisterAccessibleNames, window_everyControlHasOne)
{
    openWindow(u"1"_s);
    till->add(article(amoxidar));
    EXPECT_EQ(controlsWithoutName(*window), "");
}

INSTANTIATE_TEST_SUITE_P(Mode, RegisterAccessibleNames, ::testing::Bool(),
                         [](const auto& mode) { return mode.param ? "touch" : "keyboard"; });
