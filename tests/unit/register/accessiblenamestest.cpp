// SPDX-License-Identifier: MIT
// What a screen reader tells of the register's forms, in touch mode and without.
#include "accessiblenames.h"
#include "documentlistform.h"
#include "goodsselectionform.h"
#include "menuform.h"
#include "questionform.h"
#include "tillwindow.h"

namespace
{

class RegisterAccessibleNames : public TillWindow, public ::testing::WithParamInterface<bool>
{
protected:
    RegisterAccessibleNames()
    {
        config.set(QStringLiteral("GUI:touchMode"), GetParam() ? QStringLiteral("true") : QStringLiteral("false"));
        config.set(QStringLiteral("FunctionKeys:keys"), QStringLiteral("newReceiptKey,goodsKey,menuKey,paymentKey"));
    }

    /// Shows the form as the register does.
    static const QWidget& shown(BasicForm& form)
    {
        form.rootWidget()->show();
        form.show();
        return *form.rootWidget();
    }
    static QString nameOf(const QWidget& form, const char* widget)
    {
        const auto* found = form.findChild<QWidget*>(QLatin1String(widget));
        EXPECT_NE(found, nullptr) << widget;
        return found ? found->accessibleName() : QString();
    }
    /// Scroll buttons are there in touch mode alone.
    static void expectNamedScrollButtons(const QWidget& form)
    {
        if (!GetParam())
            return;
        EXPECT_EQ(nameOf(form, "pageUpButton"), QStringLiteral("На страницу вверх"));
        EXPECT_EQ(nameOf(form, "scrollUpButton"), QStringLiteral("Вверх"));
        EXPECT_EQ(nameOf(form, "scrollDownButton"), QStringLiteral("Вниз"));
        EXPECT_EQ(nameOf(form, "pageDownButton"), QStringLiteral("На страницу вниз"));
    }
};

} // namespace

TEST_P(RegisterAccessibleNames, goodsSelection_everyControlHasOneAndTheScrollButtonsSayWhereTo)
{
    GoodsSelectionForm form({catalogue.goodsOf({}), {}, {}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
    expectNamedScrollButtons(*form.rootWidget());
}

TEST_P(RegisterAccessibleNames, documentList_everyControlHasOneAndTheScrollButtonsSayWhereTo)
{
    DocumentListParams params;
    params.documents = [] { return QList<DocumentListParams::Document>(); };
    params.isTakenBack = [](const Receipt&) { return false; };
    params.marks = &marks;
    DocumentListForm form(params);
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
    expectNamedScrollButtons(*form.rootWidget());
}

TEST_P(RegisterAccessibleNames, menu_everyControlHasOne)
{
    const FunctionKey command{
        QStringLiteral("putAsideEntry"), QStringLiteral("Отложить чек"), {}, control::PluginCommand, {}};
    MenuForm form({{{command, QStringLiteral("чек не открыт")}}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
}

TEST_P(RegisterAccessibleNames, question_everyControlHasOne)
{
    QuestionForm form({{tr::undefined, QStringLiteral("Отмена чека")},
                       {tr::undefined, QStringLiteral("Отменить чек № 7?")},
                       {tr::undefined, QStringLiteral("Отменить чек")},
                       {tr::undefined, QStringLiteral("Нет")}});
    EXPECT_EQ(controlsWithoutName(shown(form)), "");
}

/// With the sales screen, the function keys, the payment and the lock.
TEST_P(RegisterAccessibleNames, window_everyControlHasOne)
{
    openWindow(QStringLiteral("1"));
    sale->add(article(amoxidar));
    EXPECT_EQ(controlsWithoutName(*window), "");
}

INSTANTIATE_TEST_SUITE_P(Mode, RegisterAccessibleNames, ::testing::Bool(),
                         [](const auto& mode) { return mode.param ? "touch" : "keyboard"; });
