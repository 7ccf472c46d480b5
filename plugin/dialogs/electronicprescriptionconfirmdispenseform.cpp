// SPDX-License-Identifier: MIT
#include "electronicprescriptionconfirmdispenseform.h"

#include "dialoganswer.h"
#include "dialogeventfilter.h"
#include "widgettext.h"

#include <QLabel>
#include <QPushButton>

ElectronicPrescriptionConfirmDispenseForm::ElectronicPrescriptionConfirmDispenseForm(
    const ElectronicPrescriptionConfirmDispenseParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    using Form = ElectronicPrescriptionConfirmDispenseForm;
    setContextCode(EContext::DialogOnTop);
    loadUI("electronicprescriptionconfirmdispense.ui");

    const WidgetButton<Form> buttons[] = {
        {"cancelButton", tr::Tr("electronicPrescriptionConfirmDispenseFormCancelButton", "Отмена"), &Form::onCancel},
        {"completeDispenseButton",
         tr::Tr("electronicPrescriptionConfirmDispenseFormCompleteDispenseButton", "Полностью"),
         &Form::onCompleteDispense},
        {"partDispenseButton", tr::Tr("electronicPrescriptionConfirmDispenseFormPartDispenseButton", "Частично"),
         &Form::onPartDispense},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.widget), button, this);
    }
    setUp(findWidget<QLabel>("titleLabel"),
          tr::Tr("electronicPrescriptionConfirmDispenseFormTitle", "Подтверждение отпуска по рецепту"));

    auto* dialogEventFilter = new DialogEventFilter(this);
    connect(dialogEventFilter, &DialogEventFilter::cancel, this, &Form::onCancel);
    rootWidget()->installEventFilter(dialogEventFilter);

    QSharedPointer<ElectronicPrescription> prescription;
    params.getElectronicPrescription(prescription);
    if (!prescription) {
        return;
    }
    setUp(findWidget<QLabel>("confirmDispenseLabel"),
          tr::Tr("electronicPrescriptionConfirmDispenseFormConfirmDispenseLabel",
                 "Лекарственный препарат по рецепту на\n'%1'\nотпущен")
              .arg(prescription->getInn()));
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
    sendDialogAnswer("status", answer);
}
