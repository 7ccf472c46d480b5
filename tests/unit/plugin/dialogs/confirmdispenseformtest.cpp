// SPDX-License-Identifier: MIT
#include "electronicprescriptionconfirmdispenseform.h"

#include "dialogeventfilter.h"
#include "dialogforms.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

const QString layout = "electronicprescriptionconfirmdispense.ui";
using NamedText = std::pair<const char*, const char*>;
using NamedAnswer = std::pair<const char*, int>;
const auto widgetOfParameter = [](const auto& info) { return std::string(info.param.first); };

class ConfirmDispenseForm : public DialogForms
{
protected:
    static ElectronicPrescriptionConfirmDispenseParams params(const QString& inn)
    {
        return ElectronicPrescriptionConfirmDispenseParams(prescription(inn));
    }
};

class ConfirmDispenseFormTexts : public ConfirmDispenseForm, public ::testing::WithParamInterface<NamedText>
{
};

class ConfirmDispenseFormButtons : public ConfirmDispenseForm, public ::testing::WithParamInterface<NamedAnswer>
{
};

struct KeysToAnswer {
    const char* name;
    QList<Qt::Key> keys;
    int status;
};

const auto keysOfParameter = [](const auto& info) { return std::string(info.param.name); };

class ConfirmDispenseFormKeysToAnswer : public ConfirmDispenseForm, public ::testing::WithParamInterface<KeysToAnswer>
{
};

class ConfirmDispenseFormRequiredWidgets : public ConfirmDispenseForm, public ::testing::WithParamInterface<NamedText>
{
};

} // namespace

TEST_P(ConfirmDispenseFormTexts, built_widgetHasItsText)
{
    const auto& [name, expected] = GetParam();
    const ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    EXPECT_EQ(text(form, name), expected);
}

INSTANTIATE_TEST_SUITE_P(
    , ConfirmDispenseFormTexts,
    ::testing::Values(NamedText{"cancelButton", "Отмена"}, NamedText{"completeDispenseButton", "Полностью"},
                      NamedText{"partDispenseButton", "Частично"},
                      NamedText{"titleLabel", "Подтверждение отпуска по рецепту"},
                      NamedText{"confirmDispenseLabel", "Лекарственный препарат по рецепту на\n'Метформин'\nотпущен"}),
    widgetOfParameter);

TEST_P(ConfirmDispenseFormButtons, clicked_answersItsStatus)
{
    const auto& [name, status] = GetParam();
    ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    open(form);
    widget<QPushButton>(form, name)->click();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(status)));
}

INSTANTIATE_TEST_SUITE_P(, ConfirmDispenseFormButtons,
                         ::testing::Values(NamedAnswer{"completeDispenseButton", 1},
                                           NamedAnswer{"partDispenseButton", 2}, NamedAnswer{"cancelButton", -1}),
                         widgetOfParameter);

TEST_P(ConfirmDispenseFormRequiredWidgets, missing_constructorThrowsAndNamesIt)
{
    expectNeeds(layout, GetParam().first,
                [] { ElectronicPrescriptionConfirmDispenseForm(params("Метформин"), nullptr); });
}

TEST_P(ConfirmDispenseFormRequiredWidgets, ofAnotherClass_constructorThrowsAndNamesBothClasses)
{
    const auto& [name, className] = GetParam();
    expectNeedsClass(layout, name, className,
                     [] { ElectronicPrescriptionConfirmDispenseForm(params("Метформин"), nullptr); });
}

TEST_P(ConfirmDispenseFormRequiredWidgets, missingAndFaultsCollected_formAnswersAllTheSame)
{
    loseWidget(layout, GetParam().first);
    collectLayoutFaults();
    ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    EXPECT_EQ(layoutFaults, QStringList(QString("Не найден виджет ") + GetParam().first));
    open(form);
    form.onPartDispense();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(2)));
}

INSTANTIATE_TEST_SUITE_P(, ConfirmDispenseFormRequiredWidgets,
                         ::testing::Values(NamedText{"cancelButton", "QPushButton"},
                                           NamedText{"completeDispenseButton", "QPushButton"},
                                           NamedText{"partDispenseButton", "QPushButton"},
                                           NamedText{"titleLabel", "QLabel"},
                                           NamedText{"confirmDispenseLabel", "QLabel"}),
                         widgetOfParameter);

TEST_F(ConfirmDispenseForm, built_contextIsTheDialogsAndItIsADialogForm)
{
    const ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    EXPECT_EQ(form.contextCode(), 15);
    EXPECT_NE(qobject_cast<const BasicDialogForm*>(&form), nullptr);
}

TEST_F(ConfirmDispenseForm, opened_hastyReturnsAnswerNothing)
{
    ElectronicPrescriptionConfirmDispenseForm form(params(u"Метформин"_s), nullptr);
    open(form);
    QWidget* focus = form.rootWidget()->focusWidget();
    EXPECT_EQ(focus, widget<QScrollArea>(form, u"confirmDispenseScrollArea"_s));
    QTest::keyClick(focus, Qt::Key_Return);
    QTest::keyClick(focus, Qt::Key_Enter);
    EXPECT_TRUE(queue.queued.isEmpty());
}

TEST_P(ConfirmDispenseFormKeysToAnswer, pressedBeforeReturn_chooseTheAnswer)
{
    ElectronicPrescriptionConfirmDispenseForm form(params(u"Метформин"_s), nullptr);
    open(form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.rootWidget()));
    for (const Qt::Key key : GetParam().keys) {
        QTest::keyClick(form.rootWidget()->focusWidget(), key);
    }
    EXPECT_TRUE(queue.queued.isEmpty()) << "a key alone only moves the focus";
    QTest::keyClick(form.rootWidget()->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(answer(), std::pair(u"status"_s, QVariant(GetParam().status)));
}

INSTANTIATE_TEST_SUITE_P(, ConfirmDispenseFormKeysToAnswer,
                         ::testing::Values(KeysToAnswer{"right", {Qt::Key_Right}, 1},
                                           KeysToAnswer{"left", {Qt::Key_Left}, 2},
                                           KeysToAnswer{"rightThenLeft", {Qt::Key_Right, Qt::Key_Left}, 2},
                                           KeysToAnswer{"leftThenRight", {Qt::Key_Left, Qt::Key_Right}, 1},
                                           KeysToAnswer{"tab", {Qt::Key_Tab}, 2},
                                           KeysToAnswer{"twoTabs", {Qt::Key_Tab, Qt::Key_Tab}, 1},
                                           KeysToAnswer{"threeTabs", {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab}, -1}),
                         keysOfParameter);

TEST_F(ConfirmDispenseForm, layoutNamesADefaultButtonAndHasNoScrollArea_hastyReturnAnswersNothing)
{
    changeLayout(layout, u"<widget class=\"QPushButton\" name=\"completeDispenseButton\">"_s,
                 u"<widget class=\"QPushButton\" name=\"completeDispenseButton\">"
                 "<property name=\"default\"><bool>true</bool></property>"_s);
    changeLayout(layout, u"confirmDispenseScrollArea</string>"_s, u"completeDispenseButton</string>"_s);
    loseWidget(layout, u"confirmDispenseScrollArea"_s);
    ElectronicPrescriptionConfirmDispenseForm form(params(u"Метформин"_s), nullptr);
    open(form);
    QWidget* focus = form.rootWidget()->focusWidget();
    EXPECT_EQ(focus, widget<QLabel>(form, u"confirmDispenseLabel"_s));
    QTest::keyClick(focus, Qt::Key_Return);
    EXPECT_TRUE(queue.queued.isEmpty());
}

TEST_F(ConfirmDispenseForm, partlyDispensedBefore_bothNumbersOfDosesAreShown)
{
    const auto partly = prescription(u"Метформин"_s);
    partly->setDoseQuantity(30);
    partly->addDispensedDoseQuantity(2.5);
    const ElectronicPrescriptionConfirmDispenseForm form(ElectronicPrescriptionConfirmDispenseParams(partly), nullptr);
    EXPECT_EQ(text(form, u"prescribedDosesLabel"_s), u"Выписано доз: 30,00\nОтпущено ранее: 2,50"_s);
}

TEST_F(ConfirmDispenseForm, touchMode_hasNoHintAboutKeysAndNoVoidInItsPlace)
{
    setTouchMode(true);
    const ElectronicPrescriptionConfirmDispenseForm form(params(u"Метформин"_s), nullptr);
    EXPECT_EQ(text(form, u"choiceHintLabel"_s), QString());
    EXPECT_TRUE(widget<QLabel>(form, u"choiceHintLabel"_s)->isHidden());
}

TEST_F(ConfirmDispenseForm, eventFiltersCancel_answersMinusOneAsTheButtonDoes)
{
    ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    emit form.findChild<DialogEventFilter*>()->cancel();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
}

TEST_F(ConfirmDispenseForm, escape_answersMinusOne)
{
    ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    open(form);
    QTest::keyClick(widget<QPushButton>(form, "completeDispenseButton"), Qt::Key_Escape);
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
}

TEST_F(ConfirmDispenseForm, windowClosed_answersMinusOne)
{
    ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    open(form);
    form.rootWidget()->close();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
}

TEST_F(ConfirmDispenseForm, eventFiltersOk_isNotConnected)
{
    const ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    emit form.findChild<DialogEventFilter*>()->ok();
    EXPECT_TRUE(queue.queued.isEmpty());
}

TEST_F(ConfirmDispenseForm, writtenByTradeName_messageNamesTheInnAllTheSame)
{
    const auto byTradeName = prescription("Метформин");
    byTradeName->setTradeName("Сиофор");
    const ElectronicPrescriptionConfirmDispenseForm form(ElectronicPrescriptionConfirmDispenseParams(byTradeName),
                                                         nullptr);
    EXPECT_EQ(text(form, "confirmDispenseLabel"), "Лекарственный препарат по рецепту на\n'Метформин'\nотпущен");
}

TEST_F(ConfirmDispenseForm, emptyInn_messageKeepsItsThreeLines)
{
    const ElectronicPrescriptionConfirmDispenseForm form(params(""), nullptr);
    EXPECT_EQ(text(form, "confirmDispenseLabel").split('\n'),
              (QStringList{"Лекарственный препарат по рецепту на", "''", "отпущен"}));
}

TEST_F(ConfirmDispenseForm, markupOrPlaceholderInTheInn_isShownAsItIs)
{
    const ElectronicPrescriptionConfirmDispenseForm form(params("<b>x</b> %1"), nullptr);
    EXPECT_EQ(text(form, "confirmDispenseLabel").split('\n').at(1), "'<b>x</b> %1'");
    for (const auto* label : form.rootWidget()->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    }
}

TEST_F(ConfirmDispenseForm, nullPrescription_messageKeepsTheLayoutsText)
{
    const ElectronicPrescriptionConfirmDispenseForm form({}, nullptr);
    EXPECT_EQ(text(form, "confirmDispenseLabel"), "");
    EXPECT_EQ(text(form, "titleLabel"), "Подтверждение отпуска по рецепту");
}

TEST_F(ConfirmDispenseForm, layoutAsksForRichText_innIsPlain)
{
    askForRichText(layout);
    const ElectronicPrescriptionConfirmDispenseForm form(params("<b>x</b>"), nullptr);
    EXPECT_EQ(text(form, "confirmDispenseLabel").split('\n').at(1), "'<b>x</b>'");
    expectPlainTexts(form);
}

TEST_F(ConfirmDispenseForm, tallerThanTheScreen_keysScrollFromTheMessageAndFromAButton)
{
    ElectronicPrescriptionConfirmDispenseForm form(params(u"очень длинное название "_s.repeated(400)), nullptr);
    open(form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.rootWidget()));
    auto* message = widget<QScrollArea>(form, u"confirmDispenseScrollArea"_s);
    auto* bar = message->verticalScrollBar();
    ASSERT_GT(bar->maximum(), bar->pageStep());
    for (auto* focus : {static_cast<QWidget*>(message), widget<QWidget>(form, u"completeDispenseButton"_s)}) {
        focus->setFocus();
        bar->setValue(0);
        QTest::keyClick(focus, Qt::Key_PageDown);
        EXPECT_EQ(bar->value(), bar->pageStep());
        QTest::keyClick(focus, Qt::Key_End);
        EXPECT_EQ(bar->value(), bar->maximum());
        EXPECT_EQ(form.rootWidget()->focusWidget(), focus);
    }
    EXPECT_TRUE(queue.queued.isEmpty());
}

TEST_F(ConfirmDispenseForm, answerSent_isTheStatus)
{
    const ElectronicPrescriptionConfirmDispenseForm form(params("Метформин"), nullptr);
    form.sendAnswer(7);
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(7)));
}
