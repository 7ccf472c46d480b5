// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialog.h"
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionparams.h"
#include "mockfactory.h"

/// The plug-in's questions to the cashier. Each shows a form and returns when it has been answered.
///
/// Without state: one object serves any number of questions. The workflow takes it from create(), so that a test can
/// answer in the cashier's place. What a form's constructor throws (a layout without a widget, for example) passes
/// through. `MockFactory` stands first among the bases, so there is no Q_OBJECT.
class ElectronicPrescriptionDialog : public MockFactory<ElectronicPrescriptionDialog>, public core::BasicDialog
{
public:
    explicit ElectronicPrescriptionDialog(QObject* parent = nullptr);

    /// Has one prescription chosen from a list.
    /// @return its row in the record's list; negative: none was chosen. An answer without "data" reads as 0.
    virtual int choiceElectronicPrescription(const ElectronicPrescriptionChoiceParams& params);

    /// Shows one prescription's details.
    /// @return its data holds "status": 0 pick the medicine, -1 go back
    virtual core::BasicDialog::Result showElectronicPrescription(const ElectronicPrescriptionParams& params);

    /// Asks whether the prescription was served in full.
    /// @return its data holds "status": 1 in full, 2 in part, -1 go back
    virtual core::BasicDialog::Result
    confirmDispenseForElectronicPrescription(const ElectronicPrescriptionConfirmDispenseParams& params);
};
