// SPDX-License-Identifier: MIT
#include "electronicprescriptionconfirmdispenseform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formbutton.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

ElectronicPrescriptionConfirmDispenseForm::ElectronicPrescriptionConfirmDispenseForm(
    const ElectronicPrescriptionConfirmDispenseParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    using Form = ElectronicPrescriptionConfirmDispenseForm;
    setContextCode(EContext::DialogOnTop);
    loadUI(u"electronicprescriptionconfirmdispense.ui"_s);

    const FormButton<Form> buttons[] = {
        {u"cancelButton"_s, {"electronicPrescriptionConfirmDispenseFormCancelButton", "Отмена"}, &Form::onCancel},
        {u"completeDispenseButton"_s,
         {"electronicPrescriptionConfirmDispenseFormCompleteDispenseButton", "Полностью"},
         &Form::onCompleteDispense},
        {u"partDispenseButton"_s,
         {"electronicPrescriptionConfirmDispenseFormPartDispenseButton", "Частично"},
         &Form::onPartDispense},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.name), button, this);
    }
    showText(u"titleLabel"_s,
             tr::Tr("electronicPrescriptionConfirmDispenseFormTitle", "Подтверждение отпуска по рецепту").ui());

    auto* dialogEventFilter = new DialogEventFilter(this);
    connect(dialogEventFilter, &DialogEventFilter::cancel, this, &Form::onCancel);
    rootWidget()->installEventFilter(dialogEventFilter);

    QSharedPointer<ElectronicPrescription> prescription;
    params.getElectronicPrescription(prescription);
    if (!prescription) {
        return;
    }
    showText(u"confirmDispenseLabel"_s, tr::Tr("electronicPrescriptionConfirmDispenseFormConfirmDispenseLabel",
                                               "Лекарственный препарат по рецепту на\n'%1'\nотпущен")
                                            .arg(prescription->getInn())
                                            .ui());
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
