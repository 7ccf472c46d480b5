// SPDX-License-Identifier: MIT
#include "electronicprescriptiondialog.h"

using namespace Qt::StringLiterals;

ElectronicPrescriptionDialog::ElectronicPrescriptionDialog(QObject* parent)
    : core::BasicDialog(parent)
{
}

int ElectronicPrescriptionDialog::choiceElectronicPrescription(const ElectronicPrescriptionChoiceParams& params)
{
    const auto result = show(false, false, EInput::Keyboard, params.getEvent());
    return result.getData().toMap().value(u"data"_s).toInt();
}

core::BasicDialog::Result
ElectronicPrescriptionDialog::showElectronicPrescription(const ElectronicPrescriptionParams& params)
{
    return show(false, false, EInput::Keyboard, params.getEvent());
}

core::BasicDialog::Result ElectronicPrescriptionDialog::confirmDispenseForElectronicPrescription(
    const ElectronicPrescriptionConfirmDispenseParams& params)
{
    return show(false, false, EInput::Keyboard, params.getEvent());
}
