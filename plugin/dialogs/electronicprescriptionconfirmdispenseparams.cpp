// SPDX-License-Identifier: MIT
#include "electronicprescriptionconfirmdispenseparams.h"

#include "askform.h"
#include "prescriptionevents.h"

ElectronicPrescriptionConfirmDispenseParams::ElectronicPrescriptionConfirmDispenseParams(
    const QSharedPointer<ElectronicPrescription>& electronicPrescription)
    : m_electronicPrescription(electronicPrescription)
{
}

void ElectronicPrescriptionConfirmDispenseParams::getElectronicPrescription(
    QSharedPointer<ElectronicPrescription>& electronicPrescription) const
{
    electronicPrescription = m_electronicPrescription;
}

Event ElectronicPrescriptionConfirmDispenseParams::getEvent() const
{
    return formEvent(prescriptionevents::confirmDispense, QVariant::fromValue(*this));
}

bool ElectronicPrescriptionConfirmDispenseParams::operator==(
    const ElectronicPrescriptionConfirmDispenseParams& other) const
{
    return m_electronicPrescription == other.m_electronicPrescription;
}
