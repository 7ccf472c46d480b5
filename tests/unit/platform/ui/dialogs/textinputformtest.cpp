// SPDX-License-Identifier: MIT
#include "actionqueuecontroller.h"
#include "dialog.h"
#include "formhost.h"
#include "registerstyle.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "uitest.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{

class TextInputFormTest : public UiTest
{
protected:
    TextInputFormTest()
    {
        params.title = {"testTitle", "Ввод карты"};
        params.message = {"testMessage", "Введите номер карты"};
        params.scanError = {"testScanError", "Повторите сканирование"};
        params.okText = {"testOk", "Готово"};
        params.cancelText = {"testCancel", "Назад"};
        params.inputName = "inputCard";
    }

    /// Shows the form and runs `steps`. Then the form is cancelled if it is still shown.
    core::BasicDialog::Result show(const std::function<void()>& steps)
    {
        whenShown([&] {
            form = gui.topForm();
            ASSERT_NE(form, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(root()));
            steps();
            gui.cancelForms();
        });
        const core::BasicDialog::Result result = Dialog().showTextInput(params);
        form.reset();
        return result;
    }

    QWidget* root() { return form->rootWidget(); }
    TalloLineEdit* field() { return root()->findChild<TalloLineEdit*>("inputLineEdit"); }
    QLabel* label(const QString& name) { return root()->findChild<QLabel*>(name); }
    QPushButton* button(const QString& name) { return root()->findChild<QPushButton*>(name); }

    /// A scanner's keys, 10 ms apart, Return at the end.
    void scan(const QString& barcode)
    {
        quint64 time = 1000;
        for (const QChar character : barcode + '\r') {
            const int code = character == u'\r' ? int(Qt::Key_Return) : character.unicode();
            QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, character);
            key.setTimestamp(time += 10);
            QCoreApplication::sendEvent(field(), &key);
        }
    }

    TextInputParams params;
    ActionQueueController controller;
    InPlace<ActionQueueController> controllerInPlace{&controller};
    QSharedPointer<BasicForm> form;
};

const QString doses = u"\\d{1,9}(\\.)\\d{0,2}|\\d{1,9}"_s;

TEST_F(TextInputFormTest, textsGiven_areInTheirPlaces)
{
    params.initialText = "77";
    show([&] {
        EXPECT_EQ(root()->objectName(), "textInputForm");
        EXPECT_EQ(label("titleLabel")->text(), "Ввод карты");
        EXPECT_EQ(label("messageLabel")->text(), "Введите номер карты");
        EXPECT_EQ(button("okButton")->text(), "Готово");
        EXPECT_EQ(button("cancelButton")->text(), "Назад");
        EXPECT_EQ(field()->text(), "77");
        EXPECT_EQ(field()->selectedText(), "77");
        EXPECT_EQ(field()->property("inputName"), "inputCard");
        EXPECT_EQ(field()->accessibleName(), "Ввод карты");
        EXPECT_FALSE(label("scanErrorLabel")->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), field());
    });
}

TEST_F(TextInputFormTest, withoutButtonTexts_registersOwnAreShown)
{
    params.okText = {};
    params.cancelText = {};
    show([&] {
        EXPECT_EQ(button("okButton")->text(), u"\u041e\u041a"_s);
        EXPECT_EQ(button("cancelButton")->text(), "Отмена");
    });
}

TEST_F(TextInputFormTest, textAndReturn_isTheResult)
{
    const auto result = show([&] {
        QTest::keyClicks(field(), "9900000001");
        QTest::keyClick(field(), Qt::Key_Return);
    });
    EXPECT_EQ(result.getData(), "9900000001");
    EXPECT_FALSE(result.canceled());
}

TEST_F(TextInputFormTest, textAndOk_isTheResult)
{
    const auto result = show([&] {
        QTest::keyClicks(field(), "12 34");
        QTest::mouseClick(button("okButton"), Qt::LeftButton);
    });
    EXPECT_EQ(result.getData(), "12 34");
}

TEST_F(TextInputFormTest, okWithoutAText_isAnEmptyTextAndNotCanceled)
{
    const auto result = show([&] { button("okButton")->click(); });
    EXPECT_TRUE(result.isEmpty());
    EXPECT_TRUE(result.getData().isValid());
    EXPECT_FALSE(result.canceled());
}

TEST_F(TextInputFormTest, textRequired_okInTheEmptyFieldSaysThatItIsEmpty)
{
    params.required = true;
    const auto result = show([&] {
        for (const char* nothing : {"", "  "}) {
            field()->setText(nothing);
            QTest::keyClick(field(), Qt::Key_Return);
            ASSERT_NE(gui.topForm(), nullptr);
            EXPECT_TRUE(label("scanErrorLabel")->isVisible());
            EXPECT_TRUE(label("scanErrorLabel")->text().startsWith("Поле пустое"));
            EXPECT_EQ(QApplication::focusWidget(), field());
        }
        field()->setText("77");
        QTest::keyClick(field(), Qt::Key_Return);
    });
    EXPECT_EQ(result.getData(), "77");
}

TEST_F(TextInputFormTest, everyWayBack_isCanceledAndEmpty)
{
    const std::function<void()> ways[] = {
        [&] { button("cancelButton")->click(); },
        [&] { QTest::keyClick(field(), Qt::Key_Escape); },
        [&] { root()->close(); },
        [&] { gui.cancelForms(); },
    };
    for (const auto& way : ways) {
        const auto result = show([&] {
            QTest::keyClicks(field(), "123");
            way();
            EXPECT_EQ(gui.topForm(), nullptr);
        });
        EXPECT_TRUE(result.canceled());
        EXPECT_TRUE(result.isEmpty());
    }
}

TEST_F(TextInputFormTest, returnOnTheCancelButton_cancels)
{
    const auto result = show([&] {
        QTest::keyClicks(field(), "123");
        button("cancelButton")->setFocus();
        QTest::keyClick(button("cancelButton"), Qt::Key_Return);
        EXPECT_EQ(gui.topForm(), nullptr);
    });
    EXPECT_TRUE(result.canceled());
}

TEST_F(TextInputFormTest, textThatCannotMatch_staysAndIsReportedAsWrong)
{
    params.mask = doses;
    params.numeric = true;
    for (const QString& typed : QStringList{".5", "-5", "a1", "2.567", "1234567890", "1 5"}) {
        const auto result = show([&] {
            QTest::keyClicks(field(), typed);
            QTest::keyClick(field(), Qt::Key_Return);
            EXPECT_NE(gui.topForm(), nullptr) << qPrintable(typed);
            EXPECT_EQ(field()->text(), typed);
            EXPECT_TRUE(label("scanErrorLabel")->isVisible());
            EXPECT_EQ(label("scanErrorLabel")->text(), "Введено неверно, исправьте значение");
            field()->setText("0.5");
            QTest::keyClick(field(), Qt::Key_Return);
        });
        EXPECT_EQ(result.getData(), "0.5");
    }
}

TEST_F(TextInputFormTest, commaInANumber_isAPoint)
{
    params.mask = doses;
    params.numeric = true;
    const auto result = show([&] {
        QTest::keyClicks(field(), "2,5");
        QTest::keyClick(field(), Qt::Key_Return);
    });
    EXPECT_EQ(result.getData(), "2.5");
}

TEST_F(TextInputFormTest, textThatDoesNotMatchYet_isAskedForAndStays)
{
    params.mask = "\\d{4}";
    const auto result = show([&] {
        QTest::keyClicks(field(), "12");
        QTest::keyClick(field(), Qt::Key_Return);
        EXPECT_NE(gui.topForm(), nullptr);
        EXPECT_TRUE(label("scanErrorLabel")->isVisible());
        EXPECT_EQ(label("scanErrorLabel")->text(), "Введите значение полностью");
        EXPECT_EQ(field()->text(), "12");
        QTest::keyClicks(field(), "34");
        EXPECT_FALSE(label("scanErrorLabel")->isVisible());
        QTest::keyClick(field(), Qt::Key_Return);
    });
    EXPECT_EQ(result.getData(), "1234");
}

TEST_F(TextInputFormTest, scan_isTheWholeResult)
{
    params.initialText = "77";
    const auto result = show([&] {
        QTest::keyClick(field(), Qt::Key_End);
        scan("4601234567890");
        EXPECT_EQ(gui.topForm(), nullptr);
    });
    EXPECT_EQ(result.getData(), "4601234567890");
}

TEST_F(TextInputFormTest, scanWithPrefixAndSuffix_isTakenWithoutThem)
{
    config.setForThisRun("Scanner:prefix", ";");
    config.setForThisRun("Scanner:suffix", "?");
    params.mask = "\\d{10}";
    const auto result = show([&] { scan(";9900000001?"); });
    EXPECT_EQ(result.getData(), "9900000001");
}

TEST_F(TextInputFormTest, scanThatDoesNotFitTheMask_restoresTheFieldAndIsReported)
{
    params.mask = doses;
    const auto result = show([&] {
        QTest::keyClicks(field(), "2.5");
        scan("4601234567890");
        EXPECT_NE(gui.topForm(), nullptr);
        EXPECT_EQ(field()->text(), "2.5");
        EXPECT_TRUE(label("scanErrorLabel")->isVisible());
        EXPECT_EQ(label("scanErrorLabel")->text(), "Повторите сканирование");
    });
    EXPECT_TRUE(result.canceled());
}

TEST_F(TextInputFormTest, scanIntoAValueThatHasToBeTyped_isRefusedInWordsThatSayWhy)
{
    params.manualOnly = true;
    show([&] {
        QTest::keyClicks(field(), "3");
        scan("12345");
        EXPECT_NE(gui.topForm(), nullptr);
        EXPECT_EQ(field()->text(), "3");
        EXPECT_TRUE(label("scanErrorLabel")->isVisible());
        EXPECT_EQ(label("scanErrorLabel")->text(), "Штрихкод не принят: это значение вводят вручную");
    });
}

TEST_F(TextInputFormTest, linesAndColumns_areTheFieldsSize)
{
    params.columns = 10;
    params.lines = 3;
    show([&] {
        EXPECT_GE(field()->width(), 10 * field()->fontMetrics().horizontalAdvance(u'0'));
        EXPECT_LT(field()->width(), root()->width() / 2);
        EXPECT_GE(field()->height(), 3 * field()->fontMetrics().lineSpacing());
    });
}

TEST_F(TextInputFormTest, withoutAPrompt_itsRoomIsFree)
{
    params.message = {};
    show([&] { EXPECT_FALSE(label("messageLabel")->isVisible()); });
}

TEST_F(TextInputFormTest, withoutTouchMode_thereIsNoKeyboard)
{
    show([&] {
        EXPECT_EQ(root()->findChild<TalloKeyboard*>(), nullptr);
        EXPECT_EQ(root()->findChild<QWidget*>("navigationBar"), nullptr);
    });
}

TEST_F(TextInputFormTest, touchMode_theKeyboardTypes)
{
    setTouchMode();
    config.setForThisRun("Language:keyboardLayouts", "en,ru");
    const auto result = show([&] {
        EXPECT_EQ(root()->findChild<TalloKeyboard*>()->keyboardLayouts(), QStringList({"en", "ru"}));
        QTest::mouseClick(button("key_q"), Qt::LeftButton);
        QTest::mouseClick(button("key_enter"), Qt::LeftButton);
    });
    EXPECT_EQ(result.getData(), "q");
}

TEST_F(TextInputFormTest, touchModeForANumber_hasDigitsAndTakesTheCommaAsAPoint)
{
    setTouchMode();
    params.numeric = true;
    params.mask = doses;
    const auto result = show([&] {
        EXPECT_EQ(root()->findChild<TalloKeyboard*>()->keyboardLayouts(), QStringList("digits"));
        for (const QString key : {"key_1", "key_,", "key_5"}) {
            QTest::mouseClick(button(key), Qt::LeftButton);
        }
        QTest::mouseClick(button("okButton"), Qt::LeftButton);
    });
    EXPECT_EQ(result.getData(), "1.5");
}

TEST_F(TextInputFormTest, promptHigherThanItsRoom_keysScrollItAndHomeAndEndStayTheFields)
{
    params.message = {"testMessage", u"строка\n"_s.repeated(100)};
    params.initialText = "77";
    show([&] {
        const auto* bar = root()->findChild<QScrollArea*>()->verticalScrollBar();
        QTest::keyClick(field(), Qt::Key_PageDown);
        EXPECT_EQ(bar->value(), bar->pageStep());
        QTest::keyClick(field(), Qt::Key_Home);
        EXPECT_EQ(field()->cursorPosition(), 0);
        EXPECT_EQ(bar->value(), bar->pageStep());
    });
}

TEST_F(TextInputFormTest, promptOfAnyLength_fitsTheSmallestScreenInBothModes)
{
    params.message = {"testMessage", QString(10000, u'Ж')};
    for (const bool touch : {false, true}) {
        config.setForThisRun("GUI:touchMode", touch ? "true" : "false");
        applyRegisterStyle(*qApp, {1024, 600});
        show([&] {
            EXPECT_LE(root()->width(), 1024);
            EXPECT_LE(root()->height(), 600);
            EXPECT_TRUE(root()->rect().contains(button("okButton")->geometry()));
            EXPECT_GT(root()->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
        });
    }
    qApp->setStyleSheet({});
}

TEST_F(TextInputFormTest, hint_isSeenBeforeAndAfterARefusalAndFillsNothingIn)
{
    params.mask = uR"(\d{1,9}(\.)\d{0,2}|\d{1,9})"_s;
    params.numeric = true;
    params.columns = 10;
    params.hint = {"testHint", u"Число больше 0"_s};
    show([&] {
        EXPECT_EQ(label("hintLabel")->text(), u"Число больше 0"_s);
        EXPECT_TRUE(label("hintLabel")->isVisible());
        EXPECT_TRUE(field()->accessibleDescription().contains(u"Число больше 0"_s));
        EXPECT_EQ(field()->text(), QString());
        QTest::keyClicks(field(), "1.234");
        QTest::keyClick(field(), Qt::Key_Return);
        EXPECT_TRUE(label("scanErrorLabel")->isVisible());
        EXPECT_TRUE(label("hintLabel")->isVisible());
        EXPECT_EQ(label("hintLabel")->text(), u"Число больше 0"_s);
        EXPECT_EQ(field()->text(), u"1.234"_s);
    });
}

TEST_F(TextInputFormTest, noHint_theFieldHasItsRoom)
{
    show([&] {
        EXPECT_FALSE(label("hintLabel")->isVisible());
        EXPECT_EQ(field()->width(), root()->width() - 2 * field()->x());
    });
}

TEST_F(TextInputFormTest, longHintAndProblem_fitTheSmallestScreenInBothModes)
{
    params.message = {"testMessage", u"Введите количество отпущенных доз по рецепту на\n'Эналаприл / Эналакор'\n"
                                     "(выписано 30.00/отпущено ранее 0.00)"_s};
    params.numeric = true;
    params.mask = u"\\d+"_s;
    params.columns = 10;
    params.hint = {"testHint", u"Число больше 0, не больше двух знаков после запятой или точки"_s};
    for (const bool touch : {false, true}) {
        config.setForThisRun("GUI:touchMode", touch ? "true" : "false");
        applyRegisterStyle(*qApp, {1024, 600});
        show([&] {
            QTest::keyClicks(field(), "x");
            QTest::keyClick(field(), Qt::Key_Return);
            QApplication::processEvents();
            EXPECT_LE(root()->sizeHint().height(), 600 - 2 * 16) << touch;
            EXPECT_GE(label("hintLabel")->height(), label("hintLabel")->heightForWidth(label("hintLabel")->width()));
        });
    }
    qApp->setStyleSheet({});
}

TEST_F(TextInputFormTest, help_namesTheKeys)
{
    show([&] {
        ASSERT_EQ(form->help().keys.size(), 2);
        EXPECT_EQ(form->help().keys.at(0).key, u"Ввод"_s);
        EXPECT_EQ(form->help().keys.at(1).key, u"Esc"_s);
        EXPECT_FALSE(form->help().next.ui().isEmpty());
    });
}

/// A window of that size that shows forms as the register's window does.
class Window : public QWidget, public FormStage
{
public:
    explicit Window(QSize size)
    {
        resize(size);
        show();
    }
    void enter(BasicForm& form) override
    {
        m_layer = std::make_unique<QWidget>(this);
        form.rootWidget()->setParent(m_layer.get());
        form.rootWidget()->show();
        m_layer->setGeometry(rect());
        m_layer->show();
    }
    void leave(BasicForm& form) override
    {
        form.rootWidget()->setParent(nullptr);
        m_layer.reset();
    }

private:
    std::unique_ptr<QWidget> m_layer;
};

TEST_F(TextInputFormTest, promptOfThreeOrFourLines_isWholeOnEveryScreenInBothModes)
{
    const struct {
        QString text;
        int lines;
    } prompts[] = {
        {"Введите количество отпущенных доз по рецепту на\n'Эналаприл / Эналакор'\n(выписано 30.00/отпущено ранее "
         "0.00)",
         3},
        {"Введите количество отпущенных доз по рецепту на\n'Ацетилсалициловая кислота + магния гидроксид / "
         "Кардиомагнил Форте таблетки в оболочке'\n(выписано 30.00/отпущено ранее 10.00)",
         4},
    };
    params.numeric = true;
    for (const auto& prompt : prompts) {
        params.message = {"testMessage", prompt.text};
        for (const QSize size : {QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)}) {
            for (const bool touch : {false, true}) {
                config.setForThisRun("GUI:touchMode", touch ? "true" : "false");
                applyRegisterStyle(*qApp, size);
                Window window(size);
                gui.host().stage = &window;
                show([&] {
                    const auto* area = root()->findChild<QScrollArea*>();
                    const auto* text = label("messageLabel");
                    EXPECT_EQ(area->viewport()->height() / text->fontMetrics().height(), prompt.lines) << size.width();
                    EXPECT_EQ(area->viewport()->height(), text->heightForWidth(text->width())) << size.width();
                    EXPECT_EQ(text->height(), area->viewport()->height()) << size.width();
                    EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << size.width();
                });
                gui.host().stage = nullptr;
            }
        }
    }
    applyRegisterStyle(*qApp, {1024, 600}); // the scale of the other tests
    qApp->setStyleSheet({});
}

} // namespace
