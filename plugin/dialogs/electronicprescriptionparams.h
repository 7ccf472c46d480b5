// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "event.h"
#include "patient.h"

#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// The contents of the details form: a prescription and its patient. A value type, carried as "params" of an event.
class ElectronicPrescriptionParams
{
public:
    /// No prescription, no patient.
    ElectronicPrescriptionParams() = default;

    /// @param electronicPrescription the prescription to show; null: the form stays as it is laid out
    /// @param status the registry's status of the prescription; only an "active" one can be served
    /// @param patient the prescription's patient; null: the patient's labels stay as they are laid out
    ElectronicPrescriptionParams(const QSharedPointer<ElectronicPrescription>& electronicPrescription,
                                 const QString& status, const QSharedPointer<Patient>& patient);

    void getElectronicPrescription(QSharedPointer<ElectronicPrescription>& electronicPrescription) const;
    QString getStatus() const;
    void getPatient(QSharedPointer<Patient>& patient) const;

    /// The event that asks for the details form, with this record as "params".
    Event getEvent() const;

    /// The same prescription object. Status and patient do not count.
    bool operator==(const ElectronicPrescriptionParams& other) const;

private:
    QSharedPointer<ElectronicPrescription> m_electronicPrescription;
    QString m_status;
    QSharedPointer<Patient> m_patient;
};

Q_DECLARE_METATYPE(ElectronicPrescriptionParams)
