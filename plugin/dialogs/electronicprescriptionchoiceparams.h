// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "event.h"
#include "patient.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// The contents of the choice list: a patient's prescriptions. A value type, carried as "params" of an event.
class ElectronicPrescriptionChoiceParams
{
public:
    /// An empty list, no patient; filter and row are forgotten.
    ElectronicPrescriptionChoiceParams() = default;

    /// @param electronicPrescriptions the prescriptions offered; the answer is a row of this list
    /// @param status the registry's status that they were requested with; not shown
    /// @param patient the prescriptions' patient; null: the patient's labels stay as they are laid out
    /// @param useLast true: the list opens with its last filter and row
    ElectronicPrescriptionChoiceParams(const QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions,
                                       const QString& status, const QSharedPointer<Patient>& patient, bool useLast);

    void getElectronicPrescriptions(QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions) const;
    QString getStatus() const;
    void getPatient(QSharedPointer<Patient>& patient) const;
    bool isUseLast() const;

    /// The event that asks for the choice list, with this record as "params".
    Event getEvent() const;

    /// The same prescription objects in the same order, equal status, equal useLast. The patient does not count.
    bool operator==(const ElectronicPrescriptionChoiceParams& other) const;

private:
    QList<QSharedPointer<ElectronicPrescription>> m_electronicPrescriptions;
    QString m_status;
    QSharedPointer<Patient> m_patient;
    bool m_useLast = false;
};

Q_DECLARE_METATYPE(ElectronicPrescriptionChoiceParams)
