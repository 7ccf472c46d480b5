// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoiceparams.h"

#include "askform.h"
#include "prescriptionevents.h"

ElectronicPrescriptionChoiceParams::ElectronicPrescriptionChoiceParams(
    const QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions, const QString& status,
    const QSharedPointer<Patient>& patient, bool useLast)
    : m_electronicPrescriptions(electronicPrescriptions)
    , m_status(status)
    , m_patient(patient)
    , m_useLast(useLast)
{
}

void ElectronicPrescriptionChoiceParams::getElectronicPrescriptions(
    QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions) const
{
    electronicPrescriptions = m_electronicPrescriptions;
}

QString ElectronicPrescriptionChoiceParams::getStatus() const
{
    return m_status;
}

void ElectronicPrescriptionChoiceParams::getPatient(QSharedPointer<Patient>& patient) const
{
    patient = m_patient;
}

bool ElectronicPrescriptionChoiceParams::isUseLast() const
{
    return m_useLast;
}

Event ElectronicPrescriptionChoiceParams::getEvent() const
{
    return formEvent(prescriptionevents::choosePrescription, QVariant::fromValue(*this));
}

bool ElectronicPrescriptionChoiceParams::operator==(const ElectronicPrescriptionChoiceParams& other) const
{
    return m_electronicPrescriptions == other.m_electronicPrescriptions && m_status == other.m_status &&
           m_useLast == other.m_useLast;
}
