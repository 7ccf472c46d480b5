// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialog.h"
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionparams.h"
#include "mockfactory.h"

/// The plug-in's questions to the cashier. Each shows a form and blocks, in an event loop, until it is answered.
///
/// It has no state: one object serves any number of questions. The workflow takes it from create(), so that a test can
/// answer in the cashier's place. Exceptions of a form's constructor, for example for a layout that lacks a widget,
/// pass through. There is no Q_OBJECT because `MockFactory` is the first base.
class ElectronicPrescriptionDialog : public MockFactory<ElectronicPrescriptionDialog>, public core::BasicDialog
{
public:
    explicit ElectronicPrescriptionDialog(QObject* parent = nullptr);

    /// Lets the cashier choose one prescription of a list.
    /// @return its row in the record's list; negative: none was chosen. An answer without "data" is 0
    virtual int choiceElectronicPrescription(const ElectronicPrescriptionChoiceParams& params);

    /// Shows one prescription's details.
    /// @return its data holds "status": 0 pick the medicine, -1 go back
    virtual core::BasicDialog::Result showElectronicPrescription(const ElectronicPrescriptionParams& params);

    /// Asks whether the prescription was served in full.
    /// @return its data holds "status": 1 in full, 2 in part, -1 go back
    virtual core::BasicDialog::Result
    confirmDispenseForElectronicPrescription(const ElectronicPrescriptionConfirmDispenseParams& params);
};
