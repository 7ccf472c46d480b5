// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "electronicprescription.h"
#include "electronicprescriptionparams.h"
#include "patient.h"

#include <QVariant>

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

private:
    /// @param isActive whether the medicine can be picked
    void setUpButtons(bool isActive);
    void setUpCaptions();
    void setUpKeys();
    void fill(const ElectronicPrescription& prescription, const Patient& patient);
    void setValue(const QString& label, const QString& text);
    void highlightDiscount();
    /// Says so in "expiredLabel", where the layout has it. @param lastDay the prescription is still valid on it
    void tellIfExpired(const QDate& lastDay);
    void setRowVisible(const QString& caption, const QString& value, bool isVisible);
    void sendAnswer(const QVariant& answer) const;
};
