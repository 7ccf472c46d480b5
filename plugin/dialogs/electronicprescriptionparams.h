// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "event.h"
#include "patient.h"

#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// What the details form shows: one prescription and its patient. A value type that travels in an event's "params".
class ElectronicPrescriptionParams
{
public:
    /// No prescription, no patient.
    ElectronicPrescriptionParams() = default;

    /// @param electronicPrescription the prescription to show; null: the form stays as it is laid out
    /// @param status the registry's status of the prescription; only "active" ones can be served
    /// @param patient whose prescription it is; not null when there is a prescription
    ElectronicPrescriptionParams(const QSharedPointer<ElectronicPrescription>& electronicPrescription,
                                 const QString& status, const QSharedPointer<Patient>& patient);

    void getElectronicPrescription(QSharedPointer<ElectronicPrescription>& electronicPrescription) const;
    QString getStatus() const;
    void getPatient(QSharedPointer<Patient>& patient) const;

    /// The event that asks for the details form, with this record as "params".
    Event getEvent() const;

    /// The very same prescription object; status and patient do not count.
    bool operator==(const ElectronicPrescriptionParams& other) const;

private:
    QSharedPointer<ElectronicPrescription> m_electronicPrescription;
    QString m_status;
    QSharedPointer<Patient> m_patient;
};

Q_DECLARE_METATYPE(ElectronicPrescriptionParams)
