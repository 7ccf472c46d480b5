// SPDX-License-Identifier: MIT
#include "electronicprescriptionconfirmdispenseform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formbutton.h"
#include "prescriptionhelp.h"

#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// With a decimal comma, as the register shows numbers.
QString dosesText(double doses)
{
    return QString::number(doses, 'f', 2).replace(u'.', u',');
}

tr::Tr title()
{
    return {u"electronicPrescriptionConfirmDispenseFormTitle"_s, u"Подтверждение отпуска по рецепту"_s};
}

} // namespace

ElectronicPrescriptionConfirmDispenseForm::ElectronicPrescriptionConfirmDispenseForm(
    const ElectronicPrescriptionConfirmDispenseParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    using Form = ElectronicPrescriptionConfirmDispenseForm;
    setContextCode(EContext::DialogOnTop);
    setHelp(prescriptionhelp::confirmation());
    loadUI(u"electronicprescriptionconfirmdispense.ui"_s);

    const FormButton<Form> buttons[] = {
        {u"cancelButton"_s, {u"electronicPrescriptionConfirmDispenseFormCancelButton"_s, u"Отмена"_s}, &Form::onCancel},
        {u"completeDispenseButton"_s,
         {u"electronicPrescriptionConfirmDispenseFormCompleteDispenseButton"_s, u"Полностью"_s},
         &Form::onCompleteDispense},
        {u"partDispenseButton"_s,
         {u"electronicPrescriptionConfirmDispenseFormPartDispenseButton"_s, u"Частично"_s},
         &Form::onPartDispense},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.name), button, this);
    }
    showText(u"titleLabel"_s, title().ui());

    auto* dialogEventFilter = new DialogEventFilter(this);
    connect(dialogEventFilter, &DialogEventFilter::cancel, this, &Form::onCancel);
    rootWidget()->installEventFilter(dialogEventFilter);
    letTheCashierChoose();

    QSharedPointer<ElectronicPrescription> prescription;
    params.getElectronicPrescription(prescription);
    if (!prescription) {
        return;
    }
    showText(u"confirmDispenseLabel"_s, tr::Tr(u"electronicPrescriptionConfirmDispenseFormConfirmDispenseLabel"_s,
                                               u"Лекарственный препарат по рецепту на\n'%1'\nотпущен"_s)
                                            .arg(prescription->getInn())
                                            .ui());
    showText(
        u"prescribedDosesLabel"_s,
        tr::Tr(u"electronicPrescriptionConfirmDispenseFormPrescribedDoses"_s, u"Выписано доз: %1\nОтпущено ранее: %2"_s)
            .arg(dosesText(prescription->getDoseQuantity()))
            .arg(dosesText(prescription->getDispensedDoseQuantity()))
            .ui(),
        false);
}

/// Holds for every layout, also for one that still names a default button.
void ElectronicPrescriptionConfirmDispenseForm::letTheCashierChoose()
{
    auto* part = findWidget<QPushButton>(u"partDispenseButton"_s, false);
    auto* complete = findWidget<QPushButton>(u"completeDispenseButton"_s, false);
    for (auto* button : rootWidget()->findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    QWidget* message =
        (findWidgets(u"confirmDispenseScrollArea"_s, false) + findWidgets(u"confirmDispenseLabel"_s, false)).value(0);
    if (!message || !part || !complete) {
        return;
    }
    message->setFocusPolicy(Qt::StrongFocus);
    message->setAccessibleName(title().ui());
    rootWidget()->setProperty("initialFocus", message->objectName());
    const std::pair<Qt::Key, QPushButton*> choices[] = {{Qt::Key_Left, part}, {Qt::Key_Right, complete}};
    for (const auto& [key, button] : choices) {
        auto* shortcut = new QShortcut(key, message);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, button, [button = button] { button->setFocus(); });
    }
    if (!isTouchMode()) {
        showText(u"choiceHintLabel"_s,
                 tr::Tr(u"electronicPrescriptionConfirmDispenseFormChoiceHint"_s,
                        u"Выберите ответ стрелкой и нажмите «Ввод»"_s)
                     .ui(),
                 false);
    } else if (auto* hint = findWidget<QLabel>(u"choiceHintLabel"_s, false)) {
        hint->hide(); // empty, it would leave a void
    }
}

void ElectronicPrescriptionConfirmDispenseForm::onCompleteDispense()
{
    sendAnswer(1);
}

void ElectronicPrescriptionConfirmDispenseForm::onPartDispense()
{
    sendAnswer(2);
}

void ElectronicPrescriptionConfirmDispenseForm::onCancel()
{
    sendAnswer(-1);
}

void ElectronicPrescriptionConfirmDispenseForm::sendAnswer(const QVariant& answer) const
{
    answerForm(u"status"_s, answer);
}
