// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "electronicprescription.h"
#include "electronicprescriptionparams.h"
#include "patient.h"

#include <QVariant>

class QLabel;

/// Shows all details of a prescription and its patient. Answers "status": 0 pick the medicine, -1 go back.
///
/// Layout: "electronicprescription.ui". The medicine can be picked only when the record's status is "active".
class ElectronicPrescriptionForm : public BasicForm
{
    Q_OBJECT

public:
    /// Throws BasicException when the layout lacks a required widget.
    ElectronicPrescriptionForm(const ElectronicPrescriptionParams& params, QObject* parent);

public slots:
    void onChoose();
    void onCancel();

public:
    /// Answers "status" and ends the form.
    void sendAnswer(const QVariant& answer) const;

private:
    /// @param isActive whether the medicine can be picked
    void setUpButtons(bool isActive);
    void setUpCaptions();
    void setUpKeys();
    /// @param patient null: the patient's labels stay as they are laid out
    void fill(const ElectronicPrescription& prescription, const Patient* patient);
    void leaveNoRoomIfHidden(QLabel* label) const;
    void highlightDiscount();
    /// Shows "expiredLabel", where the layout has it, after `lastDay`: the prescription is still valid on that day.
    void showIfExpired(const QDate& lastDay);
};
