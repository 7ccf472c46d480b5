// SPDX-License-Identifier: MIT
#include "electronicprescriptionparams.h"

#include "askform.h"
#include "prescriptionevents.h"

ElectronicPrescriptionParams::ElectronicPrescriptionParams(
    const QSharedPointer<ElectronicPrescription>& electronicPrescription, const QString& status,
    const QSharedPointer<Patient>& patient)
    : m_electronicPrescription(electronicPrescription)
    , m_status(status)
    , m_patient(patient)
{
}

void ElectronicPrescriptionParams::getElectronicPrescription(
    QSharedPointer<ElectronicPrescription>& electronicPrescription) const
{
    electronicPrescription = m_electronicPrescription;
}

QString ElectronicPrescriptionParams::getStatus() const
{
    return m_status;
}

void ElectronicPrescriptionParams::getPatient(QSharedPointer<Patient>& patient) const
{
    patient = m_patient;
}

Event ElectronicPrescriptionParams::getEvent() const
{
    return formEvent(prescriptionevents::showPrescription, QVariant::fromValue(*this));
}

bool ElectronicPrescriptionParams::operator==(const ElectronicPrescriptionParams& other) const
{
    return m_electronicPrescription == other.m_electronicPrescription;
}
