// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "electronicprescriptionconfirmdispenseparams.h"

#include <QVariant>

/// Asks whether a prescription was served in full. Answers "status": 1 in full, 2 in part, -1 back.
///
/// A hasty Return would take the doses that are left from the patient. So no button is the default one, and the focus
/// is on the message at first: an arrow key or Tab goes to a button, and Return presses it.
///
/// Layout: "electronicprescriptionconfirmdispense.ui".
class ElectronicPrescriptionConfirmDispenseForm : public BasicDialogForm
{
    Q_OBJECT

public:
    /// Throws BasicException when the layout lacks a required widget.
    ElectronicPrescriptionConfirmDispenseForm(const ElectronicPrescriptionConfirmDispenseParams& params,
                                              QObject* parent);

public slots:
    void onCompleteDispense();
    void onPartDispense();
    void onCancel();

public:
    /// Answers "status" and ends the form.
    void sendAnswer(const QVariant& answer) const;

private:
    void letTheCashierChoose();
};
