// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "event.h"

#include <QMetaType>
#include <QSharedPointer>

/// The contents of the dispense confirmation: a prescription. A value type, carried as "params" of an event.
class ElectronicPrescriptionConfirmDispenseParams
{
public:
    /// No prescription.
    ElectronicPrescriptionConfirmDispenseParams() = default;

    /// @param electronicPrescription the prescription that was served; null: the form stays as it is laid out
    explicit ElectronicPrescriptionConfirmDispenseParams(
        const QSharedPointer<ElectronicPrescription>& electronicPrescription);

    void getElectronicPrescription(QSharedPointer<ElectronicPrescription>& electronicPrescription) const;

    /// The event that asks for the confirmation form, with this record as "params".
    Event getEvent() const;

    /// The same prescription object.
    bool operator==(const ElectronicPrescriptionConfirmDispenseParams& other) const;

private:
    QSharedPointer<ElectronicPrescription> m_electronicPrescription;
};

Q_DECLARE_METATYPE(ElectronicPrescriptionConfirmDispenseParams)
