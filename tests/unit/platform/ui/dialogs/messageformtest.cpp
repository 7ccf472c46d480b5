// SPDX-License-Identifier: MIT
#include "dialog.h"
#include "formhost.h"
#include "inputblocker.h"
#include "registerstyle.h"
#include "uitest.h"
#include "workstep.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{

class MessageFormTest : public UiTest
{
protected:
    /// Shows a message and calls `steps` with its form. Then the form is cancelled if it is still shown.
    void show(const tr::Tr& text, int kind, const std::function<void(QWidget& form)>& steps, int seconds = 0)
    {
        whenShown([&] {
            const QSharedPointer<BasicForm> form = gui.topForm();
            ASSERT_NE(form, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(form->rootWidget()));
            steps(*form->rootWidget());
            gui.cancelForms();
        });
        Dialog().showMessage(text, kind, 0, seconds);
    }

    static tr::Tr text() { return {"testText", "Реестр не отвечает"}; }
};

TEST_F(MessageFormTest, errorAndNotice_haveTheirTitlesAndPictures)
{
    QImage errorPicture;
    show(text(), Dialog::Error, [&](QWidget& form) {
        EXPECT_EQ(form.objectName(), "messageForm");
        EXPECT_EQ(form.findChild<QLabel*>("titleLabel")->text(), "Ошибка");
        EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->text(), "Реестр не отвечает");
        EXPECT_EQ(form.property("messageKind"), "error");
        errorPicture = form.findChild<QLabel*>("iconLabel")->pixmap().toImage();
        EXPECT_FALSE(errorPicture.isNull());
    });
    show(text(), Dialog::Notice, [&](QWidget& form) {
        EXPECT_EQ(form.findChild<QLabel*>("titleLabel")->text(), "Сообщение");
        EXPECT_EQ(form.property("messageKind"), "notice");
        EXPECT_NE(form.findChild<QLabel*>("iconLabel")->pixmap().toImage(), errorPicture);
    });
}

TEST_F(MessageFormTest, messageOfAStep_namesItAboveAndTheAdviceBelow)
{
    WorkStep step({tr::undefined, u"Регистрация отпуска 2 из 3. Рецепт 17"_s});
    step.setAdvice({tr::undefined, u"Повторите подытог."_s});
    show(text(), Dialog::Error, [&](QWidget& form) {
        EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->text(),
                  u"Регистрация отпуска 2 из 3. Рецепт 17\nРеестр не отвечает\nПовторите подытог."_s);
    });
    EXPECT_EQ(gui.host().lastMessage,
              u"Регистрация отпуска 2 из 3. Рецепт 17\nРеестр не отвечает\nПовторите подытог."_s);
}

TEST_F(MessageFormTest, errorOrNoticeWithoutText_getsOne)
{
    for (const QString& nothing : {QString(), u" \n "_s}) {
        show({tr::undefined, nothing}, Dialog::Error, [&](QWidget& form) {
            EXPECT_TRUE(form.findChild<QLabel*>("messageLabel")->text().startsWith("Произошла ошибка"));
        });
        show({tr::undefined, nothing}, Dialog::Notice, [&](QWidget& form) {
            EXPECT_TRUE(form.findChild<QLabel*>("messageLabel")->text().startsWith("Пришло сообщение без текста"));
        });
    }
}

TEST_F(MessageFormTest, directionMarks_areNotShown)
{
    show({tr::undefined, u"Отказ \u202eабв\u2066"_s}, Dialog::Error,
         [&](QWidget& form) { EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->text(), u"Отказ абв"_s); });
}

TEST_F(MessageFormTest, okButton_isTheDefaultWithCyrillicText_andHasTheFocus)
{
    show(text(), Dialog::Notice, [&](QWidget& form) {
        const auto* ok = form.findChild<QPushButton*>("okButton");
        EXPECT_EQ(ok->text(), u"\u041e\u041a"_s);
        EXPECT_FALSE(ok->accessibleName().isEmpty());
        EXPECT_TRUE(ok->isDefault());
        EXPECT_EQ(QApplication::focusWidget(), ok);
        EXPECT_EQ(form.findChildren<QPushButton*>().size(), 1);
    });
}

TEST_F(MessageFormTest, everyWayOut_closesIt)
{
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); },
        [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Enter); },
        [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Space); },
        [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Escape); },
        [](QWidget& form) { QTest::mouseClick(form.findChild<QPushButton*>("okButton"), Qt::LeftButton); },
        [](QWidget& form) { form.close(); },
        [](QWidget& form) {
            form.findChild<QScrollArea*>()->setFocus();
            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        },
    };
    for (const auto& way : ways) {
        show(text(), Dialog::Notice, [&](QWidget& form) {
            way(form);
            EXPECT_EQ(gui.topForm(), nullptr);
        });
    }
}

TEST_F(MessageFormTest, returnStillHeldDown_doesNotCloseIt)
{
    show(text(), Dialog::Notice, [&](QWidget& form) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QCoreApplication::sendEvent(form.focusWidget(), &held);
        EXPECT_NE(gui.topForm(), nullptr);
    });
}

TEST_F(MessageFormTest, tenThousandCharacters_scrollWithinTheSmallestScreen)
{
    for (const bool touch : {false, true}) {
        config.setForThisRun("GUI:touchMode", touch ? "true" : "false");
        applyRegisterStyle(*qApp, {1024, 600});
        for (const QString& endless : {QString(10000, u'Ж'), u"слово "_s.repeated(1700)}) {
            show({"testText", endless}, Dialog::Error, [&](QWidget& form) {
                EXPECT_LE(form.width(), 1024);
                EXPECT_LE(form.height(), 600);
                EXPECT_GT(form.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
                EXPECT_TRUE(form.rect().contains(form.findChild<QPushButton*>("okButton")->geometry()));
                EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->text(), endless);
            });
        }
    }
    qApp->setStyleSheet({});
}

TEST_F(MessageFormTest, textHigherThanItsRoom_keysScrollItWhileTheButtonHasTheFocus)
{
    show({"testText", u"строка\n"_s.repeated(100)}, Dialog::Error, [](QWidget& form) {
        const auto* bar = form.findChild<QScrollArea*>()->verticalScrollBar();
        auto* ok = form.findChild<QPushButton*>("okButton");
        ASSERT_EQ(QApplication::focusWidget(), ok);
        QTest::keyClick(ok, Qt::Key_End);
        EXPECT_GT(bar->value(), 0);
        EXPECT_EQ(bar->value(), bar->maximum());
        EXPECT_EQ(QApplication::focusWidget(), ok);
    });
}

TEST_F(MessageFormTest, shortText_isWholeWithoutScrolling)
{
    applyRegisterStyle(*qApp, {1024, 600});
    show({"testText", "Реестр рецептов не отвечает.\nПроверьте связь и повторите команду."}, Dialog::Error,
         [&](QWidget& form) {
             const auto* area = form.findChild<QScrollArea*>();
             EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
             EXPECT_LE(form.findChild<QLabel*>("messageLabel")->width(), area->viewport()->width());
         });
    qApp->setStyleSheet({});
}

TEST_F(MessageFormTest, markupAndPlaceholders_areShownLiterally)
{
    show(tr::Tr("testText", "%1").arg("<b>50%1</b>"), Dialog::Error, [&](QWidget& form) {
        EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->text(), "<b>50%1</b>");
        EXPECT_EQ(form.findChild<QLabel*>("messageLabel")->textFormat(), Qt::PlainText);
    });
}

TEST_F(MessageFormTest, withATime_closesByItself)
{
    Dialog().showMessage(text(), Dialog::Notice, 0, 1);
    EXPECT_EQ(gui.topForm(), nullptr);
}

TEST_F(MessageFormTest, duringLongWork_takesInput)
{
    const InputBlocker blocker;
    show(text(), Dialog::Error, [&](QWidget& form) {
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(gui.topForm(), nullptr);
    });
    EXPECT_TRUE(InputBlocker::isActive());
}

} // namespace
