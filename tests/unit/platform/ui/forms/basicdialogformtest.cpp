// SPDX-License-Identifier: MIT
#include "basicdialogform.h"
#include "uitest.h"

#include <QLabel>

namespace
{

class LayoutDialog : public BasicDialogForm
{
public:
    explicit LayoutDialog(const QString& layout)
        : BasicDialogForm(nullptr)
    {
        loadUI(layout);
    }
    using BasicForm::findWidget;
};

class BasicDialogFormTest : public UiTest
{
protected:
    BasicDialogFormTest()
    {
        window.resize(1024, 600);
        window.show();
    }

    void enterWindow(BasicForm& form)
    {
        form.rootWidget()->setParent(&window);
        form.rootWidget()->show();
        form.show();
    }

    QWidget window;
};

TEST_F(BasicDialogFormTest, titleSet_isInTheLabelAndTheWindowTitle)
{
    LayoutDialog form(writeLayout("a.ui", widget("QLabel", "titleLabel")));
    form.setTitle("Ввод карты");
    EXPECT_EQ(form.findWidget<QLabel>("titleLabel")->text(), "Ввод карты");
    EXPECT_EQ(form.rootWidget()->windowTitle(), "Ввод карты");
}

TEST_F(BasicDialogFormTest, customPropertySet_isAPropertyOfTheRoot)
{
    LayoutDialog form(writeLayout("a.ui", ""));
    form.setCustomProperty("messageKind", "error");
    EXPECT_EQ(form.rootWidget()->property("messageKind"), "error");
}

TEST_F(BasicDialogFormTest, newForm_isModal)
{
    const LayoutDialog form(writeLayout("a.ui", ""));
    EXPECT_TRUE(form.isModalDialog());
}

TEST_F(BasicDialogFormTest, closed_isDismissed)
{
    LayoutDialog form(writeLayout("a.ui", ""));
    int dismissed = 0;
    QObject::connect(&form, &BasicForm::dismissed, [&] { ++dismissed; });
    form.rootWidget()->show();
    form.close();
    EXPECT_EQ(dismissed, 1);
}

TEST_F(BasicDialogFormTest, shownInAWindow_isInTheMiddleAlsoAfterTheWindowIsResized)
{
    LayoutDialog form(writeLayout("a.ui", widget("QLabel", "titleLabel")));
    form.findWidget<QLabel>("titleLabel")->setMinimumSize(300, 100);
    enterWindow(form);
    EXPECT_LE((form.rootWidget()->geometry().center() - window.rect().center()).manhattanLength(), 2);
    window.resize(1280, 800);
    QCoreApplication::processEvents();
    EXPECT_LE((form.rootWidget()->geometry().center() - window.rect().center()).manhattanLength(), 2);
}

TEST_F(BasicDialogFormTest, widerThanTheWindow_isCutToIt)
{
    LayoutDialog form(writeLayout("a.ui", widget("QLineEdit", "wide")));
    form.rootWidget()->setMinimumWidth(3000);
    enterWindow(form);
    EXPECT_LE(form.rootWidget()->geometry().bottom(), window.rect().bottom());
    EXPECT_GE(form.rootWidget()->geometry().top(), 0);
}

TEST_F(BasicDialogFormTest, clickBesideTheDialog_doesNotReachTheScreenBelow)
{
    LayoutDialog form(writeLayout("a.ui", ""));
    enterWindow(form);
    const QWidget* hit = window.childAt(5, 5);
    ASSERT_NE(hit, nullptr);
    EXPECT_FALSE(form.rootWidget()->isAncestorOf(hit));
    EXPECT_EQ(hit->rect(), window.rect());
}

TEST_F(BasicDialogFormTest, removedFromTheWindow_screenBelowTakesClicksAgain)
{
    LayoutDialog form(writeLayout("a.ui", ""));
    enterWindow(form);
    form.rootWidget()->hide();
    EXPECT_EQ(window.childAt(5, 5), nullptr);
    form.rootWidget()->setParent(nullptr);
    EXPECT_EQ(window.childAt(5, 5), nullptr);
}

TEST_F(BasicDialogFormTest, formDestroyed_screenBelowTakesClicksAgain)
{
    {
        LayoutDialog form(writeLayout("a.ui", ""));
        enterWindow(form);
        ASSERT_NE(window.childAt(5, 5), nullptr);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.childAt(5, 5) == nullptr; }, 5000));
}

} // namespace
