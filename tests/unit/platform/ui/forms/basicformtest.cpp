// SPDX-License-Identifier: MIT
#include "basicexception.h"
#include "einput.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "uitest.h"
#include "wrappedlabel.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QScroller>
#include <QStandardItemModel>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{

class BasicFormTest : public UiTest
{
protected:
    ~BasicFormTest() override { BasicForm::setUIErrorHandler({}); }

    void showRoot(BasicForm& form)
    {
        form.rootWidget()->show();
        form.rootWidget()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.rootWidget()));
        form.show();
    }

    /// The message of the exception that loading the layout throws.
    static tr::Tr loadFailure(const QString& layout)
    {
        try {
            const LayoutForm form(layout);
        } catch (const BasicException& exception) {
            return exception.tr();
        }
        return {};
    }
};

TEST_F(BasicFormTest, newForm_hasTheDialogContextAndNoRoot)
{
    const BasicForm form(nullptr);
    EXPECT_EQ(form.contextCode(), EContext::DialogOnTop);
    EXPECT_EQ(form.rootWidget(), nullptr);
}

TEST_F(BasicFormTest, contextCodeSet_isReturned)
{
    LayoutForm form(writeLayout("a.ui", ""));
    form.setContextCode(EContext::StoredDocuments);
    EXPECT_EQ(form.contextCode(), EContext::StoredDocuments);
}

TEST_F(BasicFormTest, touchMode_isReadFromTheConfiguration)
{
    EXPECT_FALSE(BasicForm::isTouchMode());
    setTouchMode();
    EXPECT_TRUE(BasicForm::isTouchMode());
}

TEST_F(BasicFormTest, promotedClasses_areTheRealOnes)
{
    LayoutForm form(writeLayout("a.ui", widget("TalloTableView", "table") + widget("TalloLineEdit", "edit") +
                                            widget("TalloKeyboard", "keyboard") + widget("WrappedLabel", "text")));
    EXPECT_NE(form.findWidget<TalloTableView>("table"), nullptr);
    EXPECT_NE(form.findWidget<TalloLineEdit>("edit"), nullptr);
    EXPECT_NE(form.findWidget<TalloKeyboard>("keyboard"), nullptr);
    EXPECT_NE(form.findWidget<WrappedLabel>("text"), nullptr);
}

TEST_F(BasicFormTest, layoutInTwoFolders_firstFolderWins)
{
    const QTemporaryDir second;
    config.setForThisRun("GUI:layouts", layouts.path() + ':' + second.path());
    writeFile("both.ui", "");
    QFile other(second.filePath("both.ui"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    QFile onlySecond(second.filePath("second.ui"));
    ASSERT_TRUE(onlySecond.open(QIODevice::WriteOnly));

    EXPECT_EQ(BasicForm::layoutPath("both.ui"), layouts.filePath("both.ui"));
    EXPECT_EQ(BasicForm::layoutPath("second.ui"), second.filePath("second.ui"));
}

TEST_F(BasicFormTest, platformLayout_isFoundUnlessTheIntegratorHasOne)
{
    EXPECT_EQ(BasicForm::layoutPath("message.ui"), ":/layouts/message.ui");
    writeLayout("message.ui", "");
    EXPECT_EQ(BasicForm::layoutPath("message.ui"), layouts.filePath("message.ui"));
    EXPECT_EQ(BasicForm::layoutPath("nosuch.ui"), QString());
}

TEST_F(BasicFormTest, missingLayout_throwsWithItsName)
{
    const tr::Tr failure = loadFailure("nosuch.ui");
    EXPECT_EQ(failure.key(), "formUiLoadError");
    EXPECT_THAT(failure.ui().toStdString(), ::testing::HasSubstr("nosuch.ui"));
}

TEST_F(BasicFormTest, brokenXml_throwsWithThePath)
{
    writeFile("broken.ui", "<ui version=\"4.0\"><widget class=");
    const tr::Tr failure = loadFailure("broken.ui");
    EXPECT_EQ(failure.key(), "formUiLoadError");
    EXPECT_THAT(failure.ui().toStdString(), ::testing::HasSubstr(layouts.filePath("broken.ui").toStdString()));
}

TEST_F(BasicFormTest, emptyFile_throws)
{
    EXPECT_EQ(loadFailure(writeFile("empty.ui", "")).key(), "formUiLoadError");
}

TEST_F(BasicFormTest, folderInPlaceOfALayout_throws)
{
    ASSERT_TRUE(QDir(layouts.path()).mkdir("folder.ui"));
    const tr::Tr failure = loadFailure("folder.ui");
    EXPECT_EQ(failure.key(), "formUiLoadError");
    EXPECT_THAT(failure.ui().toStdString(), ::testing::HasSubstr("folder.ui"));
}

TEST_F(BasicFormTest, brokenLayoutWithAHandler_isReportedAndLeavesAnEmptyRoot)
{
    QStringList reported;
    BasicForm::setUIErrorHandler([&](const tr::Tr& error) { reported.append(error.key()); });
    LayoutForm form("nosuch.ui");
    ASSERT_NE(form.rootWidget(), nullptr);
    EXPECT_TRUE(form.rootWidget()->findChildren<QWidget*>().isEmpty());
    EXPECT_EQ(form.findWidget<QLabel>("titleLabel"), nullptr);
    EXPECT_EQ(reported, QStringList({"formUiLoadError", "formUiWidgetNotFoundError"}));
}

TEST_F(BasicFormTest, requiredWidgetMissing_throwsItsText)
{
    LayoutForm form(writeLayout("a.ui", ""));
    try {
        form.findWidget<QLabel>("titleLabel");
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_EQ(exception.tr(), tr::Tr("formUiWidgetNotFoundError", "Не найден виджет %1").arg("titleLabel"));
    }
}

TEST_F(BasicFormTest, requiredWidgetOfAnotherClass_throwsItsText)
{
    LayoutForm form(writeLayout("a.ui", widget("QPushButton", "titleLabel")));
    try {
        form.findWidget<QLabel>("titleLabel");
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_EQ(exception.tr().ui(),
                  "Ошибка загрузки виджета 'titleLabel'. Не удалось 'QPushButton' привести к типу 'QLabel'");
        EXPECT_EQ(exception.tr().key(), "formUiWidgetCastError");
    }
}

TEST_F(BasicFormTest, widgetOfAnotherClassLookedUpAgain_isReportedOnce)
{
    QStringList reported;
    BasicForm::setUIErrorHandler([&](const tr::Tr& error) { reported.append(error.key()); });
    LayoutForm form(writeLayout("a.ui", widget("QLineEdit", "chooseButton")));
    for (int lookUp = 0; lookUp < 3; ++lookUp) {
        EXPECT_EQ(form.findWidget<QPushButton>("chooseButton"), nullptr);
    }
    EXPECT_EQ(reported, QStringList("formUiWidgetCastError"));
}

TEST_F(BasicFormTest, widgetMissingLookedUpAgain_isReportedEachTime)
{
    QStringList reported;
    BasicForm::setUIErrorHandler([&](const tr::Tr& error) { reported.append(error.key()); });
    LayoutForm form(writeLayout("a.ui", ""));
    form.findWidget<QLabel>("titleLabel");
    form.findWidget<QLabel>("titleLabel");
    EXPECT_EQ(reported, QStringList({"formUiWidgetNotFoundError", "formUiWidgetNotFoundError"}));
}

TEST_F(BasicFormTest, widgetOfAnotherClassWithAnAccessibleName_isReportedAllTheSame)
{
    LayoutForm form(writeLayout("a.ui", widget("QLineEdit", "table")));
    form.setAccessibleNames({{"table", {"testTable", "Рецепты"}}});
    EXPECT_THROW(form.findWidget<TalloTableView>("table"), BasicException);
}

TEST_F(BasicFormTest, textShown_isPlainWhateverTheLayoutSays)
{
    const QString isRichText = "<property name=\"textFormat\"><enum>Qt::RichText</enum></property>";
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "label", isRichText)));
    ASSERT_EQ(form.findWidget<QLabel>("label")->textFormat(), Qt::RichText);
    form.showText("label", "<b>Метформин</b>");
    EXPECT_EQ(form.findWidget<QLabel>("label")->text(), "<b>Метформин</b>");
    EXPECT_EQ(form.findWidget<QLabel>("label")->textFormat(), Qt::PlainText);
}

TEST_F(BasicFormTest, textShownInAMissingLabel_isReportedWhenTheLabelIsRequired)
{
    LayoutForm form(writeLayout("a.ui", ""));
    EXPECT_NO_THROW(form.showText("label", "Метформин", false));
    EXPECT_THROW(form.showText("label", "Метформин"), BasicException);
}

TEST_F(BasicFormTest, optionalWidgetMissingOrOfAnotherClass_isNull)
{
    LayoutForm form(writeLayout("a.ui", widget("QPushButton", "button")));
    EXPECT_EQ(form.findWidget<QLabel>("nosuch", false), nullptr);
    EXPECT_EQ(form.findWidget<QLabel>("button", false), nullptr);
}

TEST_F(BasicFormTest, foundWidgetDeletedLater_isNotFoundAgain)
{
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "label")));
    delete form.findWidget<QLabel>("label");
    EXPECT_EQ(form.findWidget<QLabel>("label", false), nullptr);
}

TEST_F(BasicFormTest, deleteWidgets_deletesChildrenToo_passesUnknownNamesOver)
{
    LayoutForm form(writeLayout("a.ui", "<item><widget class=\"QWidget\" name=\"bar\"><layout class=\"QVBoxLayout\">" +
                                            widget("QLabel", "inBar") + "</layout></widget></item>" +
                                            widget("QLabel", "stays")));
    ASSERT_NE(form.findWidget<QLabel>("inBar"), nullptr);
    form.deleteWidgets({"nosuch", "bar", "inBar", "root"});
    EXPECT_EQ(form.findWidget<QLabel>("inBar", false), nullptr);
    EXPECT_EQ(form.findWidget<QWidget>("bar", false), nullptr);
    EXPECT_NE(form.findWidget<QLabel>("stays", false), nullptr);
    EXPECT_NE(form.rootWidget(), nullptr);
}

TEST_F(BasicFormTest, findWidgets_looksBelowTheGivenRootAndCanPassHiddenOnesOver)
{
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "same") + "<item><widget class=\"QWidget\" name=\"bar\">" +
                                            "<layout class=\"QVBoxLayout\">" + widget("QLabel", "same") +
                                            "</layout></widget></item>"));
    EXPECT_EQ(form.findWidgets("same", false).size(), 2);
    auto* bar = form.findWidget<QWidget>("bar");
    EXPECT_EQ(form.findWidgets("same", false, bar).size(), 1);
    EXPECT_EQ(form.findWidgets("root", false).value(0), form.rootWidget());
    EXPECT_EQ(form.findWidgets("same", true).size(), 0);
    form.rootWidget()->show();
    bar->hide();
    EXPECT_EQ(form.findWidgets("same", true).size(), 1);
}

TEST_F(BasicFormTest, setAccessibleNames_namesControlsAndPassesUnknownNamesOver)
{
    LayoutForm form(writeLayout("form.ui", widget("QLineEdit", "edit") + widget("QPushButton", "choose")));
    form.setAccessibleNames({{"edit", {"testFilter", "Поиск"}},
                             {"scrollUpButton", {"testUp", "Вверх"}},
                             {"choose", {"testChoose", "Выбрать"}}});
    EXPECT_EQ(form.findWidget<QWidget>("edit")->accessibleName(), "Поиск");
    EXPECT_EQ(form.findWidget<QWidget>("choose")->accessibleName(), "Выбрать");
}

TEST_F(BasicFormTest, inputSourcesWithTheScanner_formExpectsScans)
{
    EXPECT_FALSE(BasicForm(nullptr).expectsScans()) << "without a root";
    const LayoutForm form(writeLayout("form.ui", widget("QLineEdit", "edit")));
    EXPECT_FALSE(form.expectsScans()) << "before it is shown";
    const auto showFrom = [&](QFlags<EInput::Source> sources) {
        form.rootWidget()->setProperty("inputSources", sources.toInt());
    };
    showFrom(EInput::Keyboard);
    EXPECT_FALSE(form.expectsScans());
    showFrom({EInput::Keyboard, EInput::Scanner});
    EXPECT_TRUE(form.expectsScans());
}

TEST_F(BasicFormTest, loadedAgain_formerWidgetsAreGone)
{
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "first")));
    const QPointer<QLabel> first = form.findWidget<QLabel>("first");
    form.loadUI(writeLayout("b.ui", widget("QLabel", "second")));
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(form.findWidget<QLabel>("first", false), nullptr);
    EXPECT_NE(form.findWidget<QLabel>("second", false), nullptr);
}

TEST_F(BasicFormTest, formDestroyed_rootIsDestroyed)
{
    QPointer<QWidget> root;
    {
        const LayoutForm form(writeLayout("a.ui", ""));
        root = form.rootWidget();
        ASSERT_FALSE(root.isNull());
    }
    EXPECT_TRUE(root.isNull());
}

const QString isDefault = u"<property name=\"default\"><bool>true</bool></property>"_s;
const QString isDisabled = u"<property name=\"enabled\"><bool>false</bool></property>"_s;
const QString focusOnEdit = u"<property name=\"initialFocus\" stdset=\"0\"><string>edit</string></property>"_s;

TEST_F(BasicFormTest, shown_focusIsOnTheWidgetThatTheLayoutNames)
{
    LayoutForm form(
        writeLayout("a.ui", widget("QPushButton", "ok", isDefault) + widget("TalloLineEdit", "edit"), focusOnEdit));
    showRoot(form);
    EXPECT_EQ(QApplication::focusWidget(), form.findWidget<TalloLineEdit>("edit"));
}

TEST_F(BasicFormTest, shownWithTheNamedWidgetDisabled_focusIsOnTheDefaultButton)
{
    LayoutForm form(writeLayout("a.ui",
                                widget("TalloLineEdit", "edit", isDisabled) + widget("QPushButton", "other") +
                                    widget("QPushButton", "ok", isDefault),
                                focusOnEdit));
    showRoot(form);
    EXPECT_EQ(QApplication::focusWidget(), form.findWidget<QPushButton>("ok"));
}

TEST_F(BasicFormTest, shownWithTheDefaultButtonDisabled_focusIsOnTheFirstWidgetThatTakesIt)
{
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "label") +
                                            widget("QPushButton", "ok", isDefault + isDisabled) +
                                            widget("QPushButton", "back") + widget("QPushButton", "last")));
    form.rootWidget()->show();
    form.findWidget<QPushButton>("last")->setFocus();
    showRoot(form);
    EXPECT_EQ(QApplication::focusWidget(), form.findWidget<QPushButton>("back"));
}

TEST_F(BasicFormTest, shownWithNothingToFocus_rootTakesTheKeys)
{
    LayoutForm form(writeLayout("a.ui", widget("QLabel", "label")));
    showRoot(form);
    EXPECT_EQ(QApplication::focusWidget(), form.rootWidget());
}

TEST_F(BasicFormTest, escWithoutAFilter_dismissesTheForm)
{
    LayoutForm form(writeLayout("a.ui", widget("TalloLineEdit", "edit")));
    int dismissed = 0;
    QObject::connect(&form, &BasicForm::dismissed, [&] { ++dismissed; });
    showRoot(form);
    QTest::keyClick(form.findWidget<TalloLineEdit>("edit"), Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(BasicFormTest, windowClosed_staysAndDismissesTheForm)
{
    LayoutForm form(writeLayout("a.ui", ""));
    int dismissed = 0;
    QObject::connect(&form, &BasicForm::dismissed, [&] { ++dismissed; });
    showRoot(form);
    EXPECT_FALSE(form.rootWidget()->close());
    EXPECT_EQ(dismissed, 1);
    EXPECT_TRUE(form.rootWidget()->isVisible());
}

TEST_F(BasicFormTest, returnHeldDown_pressesNoButton)
{
    LayoutForm form(writeLayout("a.ui", widget("QPushButton", "ok", isDefault)));
    auto* button = form.findWidget<QPushButton>("ok");
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, [&] { ++clicks; });
    showRoot(form);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(button, &held);
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
}

class ScrollButtonsTest : public BasicFormTest
{
protected:
    ScrollButtonsTest()
        : rows(100, 1)
    {
        layout = writeLayout("scroll.ui",
                             widget("TalloTableView", "table") + widget("TalloLineEdit", "edit") +
                                 widget("QPushButton", "scrollUpButton") + widget("QToolButton", "scrollDownButton") +
                                 widget("QPushButton", "pageUpButton") + widget("QPushButton", "pageDownButton"),
                             focusOnEdit);
    }

    QStandardItemModel rows;
    QString layout;
};

TEST_F(ScrollButtonsTest, touched_moveTheCurrentRowAndLeaveTheFocusAlone)
{
    setTouchMode();
    LayoutForm form(layout);
    auto* table = form.findWidget<TalloTableView>("table");
    table->setModel(&rows);
    form.rootWidget()->resize(600, 600);
    showRoot(form);
    form.show(); // the second time connects nothing again
    table->selectRow(10);

    QTest::mouseClick(form.findWidget<QToolButton>("scrollDownButton"), Qt::LeftButton);
    EXPECT_EQ(table->currentIndex().row(), 11);
    QTest::mouseClick(form.findWidget<QPushButton>("scrollUpButton"), Qt::LeftButton);
    EXPECT_EQ(table->currentIndex().row(), 10);
    QTest::mouseClick(form.findWidget<QPushButton>("pageDownButton"), Qt::LeftButton);
    const int paged = table->currentIndex().row();
    EXPECT_GT(paged, 11);
    QTest::mouseClick(form.findWidget<QPushButton>("pageUpButton"), Qt::LeftButton);
    EXPECT_LT(table->currentIndex().row(), paged);
    EXPECT_EQ(QApplication::focusWidget(), form.findWidget<TalloLineEdit>("edit"));
}

TEST_F(ScrollButtonsTest, layoutLoaded_areNamedForScreenReaders)
{
    const LayoutForm form(layout);
    const auto nameOf = [&form](const char* button) {
        return form.rootWidget()->findChild<QWidget*>(QLatin1StringView(button))->accessibleName();
    };
    EXPECT_EQ(nameOf("pageUpButton"), "На страницу вверх");
    EXPECT_EQ(nameOf("scrollUpButton"), "Вверх");
    EXPECT_EQ(nameOf("scrollDownButton"), "Вниз");
    EXPECT_EQ(nameOf("pageDownButton"), "На страницу вниз");
}

TEST_F(ScrollButtonsTest, withoutTouchMode_areNotConnected)
{
    LayoutForm form(layout);
    auto* table = form.findWidget<TalloTableView>("table");
    table->setModel(&rows);
    showRoot(form);
    table->selectRow(10);
    form.findWidget<QToolButton>("scrollDownButton")->click();
    EXPECT_EQ(table->currentIndex().row(), 10);
}

class ScrollKeysTest : public BasicFormTest
{
protected:
    /// A scroll area with a text of that many lines, above two buttons.
    QString writeScrolledText(int lines, const QString& moreWidgets = {})
    {
        const QString text = widget("QLabel", "text",
                                    "<property name=\"text\"><string>" + QStringList(lines, "строка").join("\n") +
                                        "</string></property>");
        return writeLayout("scrolled.ui",
                           "<item><widget class=\"QScrollArea\" name=\"area\"><property name=\"focusPolicy\">"
                           "<enum>Qt::NoFocus</enum></property><property name=\"widgetResizable\"><bool>true</bool>"
                           "</property><widget class=\"QWidget\" name=\"contents\"><layout class=\"QVBoxLayout\">" +
                               text + "</layout></widget></widget></item>" + moreWidgets +
                               widget("QPushButton", "first") + widget("QPushButton", "second"));
    }
};

TEST_F(ScrollKeysTest, textHigherThanItsRoom_keysScrollItWhileAButtonHasTheFocus)
{
    LayoutForm form(writeScrolledText(200));
    form.rootWidget()->resize(400, 300);
    showRoot(form);
    form.show(); // the second time connects nothing again
    auto* button = form.findWidget<QPushButton>("first");
    const auto* bar = form.findWidget<QScrollArea>("area")->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 2 * bar->pageStep());

    QTest::keyClick(button, Qt::Key_PageDown);
    EXPECT_EQ(bar->value(), bar->pageStep());
    QTest::keyClick(button, Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_EQ(bar->value(), bar->singleStep());
    QTest::keyClick(button, Qt::Key_Up);
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(button, Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    QTest::keyClick(button, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(ScrollKeysTest, wholeTextInSight_arrowsMoveTheFocus)
{
    LayoutForm form(writeScrolledText(1));
    form.rootWidget()->resize(400, 300);
    showRoot(form);
    QTest::keyClick(form.findWidget<QPushButton>("first"), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), form.findWidget<QPushButton>("second"));
}

TEST_F(ScrollKeysTest, textGrowsWhileItIsShown_keysScrollIt)
{
    LayoutForm form(writeScrolledText(1));
    form.rootWidget()->resize(400, 300);
    showRoot(form);
    form.showText("text", QStringList(200, "строка").join('\n'));
    const auto* bar = form.findWidget<QScrollArea>("area")->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > 0; }));
    QTest::keyClick(form.findWidget<QPushButton>("first"), Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(ScrollKeysTest, formWithATable_keysMoveItsRows)
{
    QStandardItemModel rows(10, 1);
    LayoutForm form(writeScrolledText(200, widget("TalloTableView", "table")));
    auto* table = form.findWidget<TalloTableView>("table");
    table->setModel(&rows);
    form.rootWidget()->resize(400, 500);
    showRoot(form);
    table->setFocus();
    table->selectRow(3);
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(table->currentIndex().row(), 4);
    EXPECT_EQ(form.findWidget<QScrollArea>("area")->verticalScrollBar()->value(), 0);
}

TEST_F(BasicFormTest, scrollAreaInTouchMode_followsTheFinger)
{
    setTouchMode();
    LayoutForm form(writeLayout("a.ui", widget("QScrollArea", "area")));
    showRoot(form);
    EXPECT_TRUE(QScroller::hasScroller(form.findWidget<QScrollArea>("area")->viewport()));
}

} // namespace
