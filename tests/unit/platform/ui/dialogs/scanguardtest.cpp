// SPDX-License-Identifier: MIT
// The Return that ends a scan, on forms that expect scans and on those that do not.
#include "actionqueuecontroller.h"
#include "askform.h"
#include "dialog.h"
#include "dialogeventfilter.h"
#include "einput.h"
#include "scanrecognizer.h"
#include "uitest.h"

#include <QLabel>
#include <QPushButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{

const QString barcode = u"4601234567890"_s;

class ScanGuardTest : public UiTest
{
protected:
    /// Keys from the window system, `gap` milliseconds apart, Return at the end.
    void send(const QString& text, quint64 gap)
    {
        for (const QChar character : text + u'\r') {
            const int code = character == u'\r' ? int(Qt::Key_Return) : character.unicode();
            QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, character);
            key.setTimestamp(m_time += gap);
            QCoreApplication::sendEvent(QApplication::focusWidget()->window()->windowHandle(), &key);
        }
        m_time += 1000;
    }
    void scan() { send(barcode, 10); }
    void type(const QString& text) { send(text, 120); }

    /// Calls `steps` while the next form is shown. Then the form is cancelled if it is still shown.
    void during(const std::function<void()>& steps)
    {
        whenShown([this, steps] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(gui.topForm()->rootWidget()));
            steps();
            gui.cancelForms();
        });
    }

    /// A list with a search line, as plug-ins have: Return chooses.
    QSharedPointer<LayoutForm> createList()
    {
        const auto form = QSharedPointer<LayoutForm>::create(
            writeLayout("list.ui", widget("TalloLineEdit", "edit") + widget("QPushButton", "choose")));
        auto* keys = new DialogEventFilter(form.data());
        form->rootWidget()->installEventFilter(keys);
        QObject::connect(keys, &DialogEventFilter::ok, [this] { ++chosen; });
        QObject::connect(form->findWidget<QPushButton>("choose"), &QPushButton::clicked, [this] { ++clicked; });
        edit = form->findWidget<TalloLineEdit>("edit");
        button = form->findWidget<QPushButton>("choose");
        return form;
    }

    void expectScansConfirmTheLineAndPressNoButton()
    {
        scan();
        EXPECT_EQ(chosen, 1);
        button->setFocus();
        scan();
        EXPECT_EQ(chosen, 1);
        EXPECT_EQ(clicked, 0);
    }

    ActionQueueController controller;
    InPlace<ActionQueueController> controllerInPlace{&controller};
    TalloLineEdit* edit = nullptr;
    QPushButton* button = nullptr;
    int chosen = 0;
    int clicked = 0;

private:
    quint64 m_time = 1000;
};

TEST_F(ScanGuardTest, scannedAtAMessage_pressesNothingAndATypedReturnStillDoes)
{
    bool isShownAfterScan = false;
    bool isShownAfterReturn = true;
    during([&] {
        scan();
        isShownAfterScan = bool(gui.topForm());
        type({});
        isShownAfterReturn = bool(gui.topForm());
    });
    Dialog().showMessage({"testText", "Реестр не отвечает"}, Dialog::Error, 0, 0);
    EXPECT_TRUE(isShownAfterScan);
    EXPECT_FALSE(isShownAfterReturn);
}

TEST_F(ScanGuardTest, scannedInTheSearchLineOfAList_staysThereAndChoosesNothing)
{
    during([&] {
        scan();
        EXPECT_EQ(edit->text(), barcode);
        EXPECT_EQ(chosen, 0);
        edit->clear();
        type("4601");
        EXPECT_EQ(edit->text(), "4601");
        EXPECT_EQ(chosen, 1);
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannedWithTextInTheField_replacesIt)
{
    during([&] {
        edit->setText("амо");
        scan();
        EXPECT_EQ(edit->text(), barcode);
        send("4609876543210", 10);
        EXPECT_EQ(edit->text(), "4609876543210");
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannerWithPrefixAndSuffix_onlyTheCodeIsInTheField)
{
    config.setForThisRun(u"Scanner:prefix"_s, u";%"_s);
    config.setForThisRun(u"Scanner:suffix"_s, u"?"_s);
    during([&] {
        edit->setText("амо");
        send(u";%99?"_s, 200);
        EXPECT_EQ(edit->text(), "99");
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scanReplacesTheText_theFormHearsOfIt)
{
    QStringList heard;
    during([&] {
        QObject::connect(edit, &QLineEdit::textEdited, [&heard](const QString& text) { heard.append(text); });
        edit->setText("амо");
        scan();
        EXPECT_EQ(heard.last(), barcode);
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannedIntoAReadOnlyField_changesNothing)
{
    during([&] {
        edit->setText("амо");
        edit->setReadOnly(true);
        scan();
        EXPECT_EQ(edit->text(), "амо");
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, twoScansInARow_chooseNothing)
{
    during([&] {
        scan();
        scan();
        EXPECT_EQ(chosen, 0);
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannedOnAFormThatAskedForScans_isConfirmedInItsLineButPressesNoButton)
{
    const QSharedPointer<LayoutForm> form = createList();
    form->rootWidget()->setProperty("inputSources", QFlags<EInput::Source>{EInput::Keyboard, EInput::Scanner}.toInt());
    during([&] {
        expectScansConfirmTheLineAndPressNoButton();
        type({});
        EXPECT_EQ(clicked, 1);
    });
    gui.run(form);
}

TEST_F(ScanGuardTest, scannedIntoAFieldThatTakesScansItself_isConfirmedThereButPressesNoButton)
{
    const QSharedPointer<LayoutForm> form = createList();
    edit->setProperty(ScanRecognizer::recognizesScans, true);
    during([&] { expectScansConfirmTheLineAndPressNoButton(); });
    gui.run(form);
}

TEST_F(ScanGuardTest, codeWithAControlKeyInIt_choosesNothing)
{
    during([&] {
        QWindow* window = QApplication::focusWidget()->window()->windowHandle();
        quint64 time = 1000;
        const auto press = [&](int code, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QKeyEvent key(QEvent::KeyPress, code, modifiers, text);
            key.setTimestamp(time += 10);
            QCoreApplication::sendEvent(window, &key);
        };
        press(Qt::Key_0, "0");
        press(Qt::Key_1, "1");
        press(Qt::Key_Control, {});
        press(Qt::Key_BracketRight, "\u001d", Qt::ControlModifier);
        press(Qt::Key_9, "9");
        press(Qt::Key_Return, "\r");
        EXPECT_EQ(chosen, 0);
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannedWhileAMessageIsAboveTheList_endsNeither)
{
    during([&] {
        during([&] {
            scan();
            EXPECT_NE(gui.topForm()->rootWidget()->objectName(), "root");
        });
        Dialog().showMessage({"testText", "Реестр не отвечает"}, Dialog::Error, 0, 0);
        EXPECT_EQ(chosen, 0);
    });
    gui.run(createList());
}

TEST_F(ScanGuardTest, scannedIntoATextInput_answersIt)
{
    during([&] {
        scan();
        EXPECT_FALSE(gui.topForm());
    });
    TextInputParams params;
    params.title = {"testTitle", "Ввод карты"};
    const core::BasicDialog::Result result = Dialog().showTextInput(params);
    EXPECT_FALSE(result.canceled());
}

TEST_F(ScanGuardTest, scannedIntoATextInputShownWithoutScanner_isRefusedThereInWords)
{
    TextInputParams params;
    params.scanError = {"testScanError", "Повторите сканирование"};
    during([&] {
        scan();
        ASSERT_TRUE(gui.topForm());
        const auto* error = gui.topForm()->rootWidget()->findChild<QLabel*>("scanErrorLabel");
        EXPECT_TRUE(error->isVisible());
        EXPECT_EQ(error->text(), "Штрихкод не принят: это значение вводят вручную");
        EXPECT_EQ(gui.topForm()->rootWidget()->findChild<TalloLineEdit*>("inputLineEdit")->text(), "");
    });
    const Event event = formEvent(EActivityListener::ShowTextInput, QVariant::fromValue(params));
    EXPECT_TRUE(core::BasicDialog().show(false, true, EInput::Keyboard, event).canceled());
}

TEST_F(ScanGuardTest, configuredPrefix_slowScannerIsRecognizedToo)
{
    config.setForThisRun("Scanner:prefix", ";");
    during([&] {
        type(";4601");
        EXPECT_EQ(chosen, 0);
        type("77");
        EXPECT_EQ(chosen, 1);
    });
    gui.run(createList());
}

} // namespace
