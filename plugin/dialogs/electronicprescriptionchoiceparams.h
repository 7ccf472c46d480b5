// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "event.h"
#include "patient.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// What the choice list shows: a patient's prescriptions. A value type that travels in an event's "params".
class ElectronicPrescriptionChoiceParams
{
public:
    /// An empty list, no patient, nothing remembered.
    ElectronicPrescriptionChoiceParams() = default;

    /// @param electronicPrescriptions the prescriptions offered; the answer is a row of this list
    /// @param status the registry's status that they were asked for; carried, not shown
    /// @param patient whose prescriptions they are; not null when the list holds any
    /// @param useLast true: the list opens with the filter and the row that it was left with
    ElectronicPrescriptionChoiceParams(const QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions,
                                       const QString& status, const QSharedPointer<Patient>& patient, bool useLast);

    void getElectronicPrescriptions(QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions) const;
    QString getStatus() const;
    void getPatient(QSharedPointer<Patient>& patient) const;
    bool isUseLast() const;

    /// The event that asks for the choice list, with this record as "params".
    Event getEvent() const;

    /// The very same prescription objects in the same order, equal status, equal useLast. The patient does not count.
    bool operator==(const ElectronicPrescriptionChoiceParams& other) const;

private:
    QList<QSharedPointer<ElectronicPrescription>> m_electronicPrescriptions;
    QString m_status;
    QSharedPointer<Patient> m_patient;
    bool m_useLast = false;
};

Q_DECLARE_METATYPE(ElectronicPrescriptionChoiceParams)
