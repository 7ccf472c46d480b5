// SPDX-License-Identifier: MIT
#include "positionoptions.h"

#include "electronicprescription.h"
#include "goodsitem.h"
#include "positionformat.h"

bool isPrescriptionPosition(const GoodsItem& position)
{
    return position.getTags().contains(positionformat::tag);
}

PositionOptions::PositionOptions(const QJsonDocument& document)
    : m_members(document.object())
{
}

PositionOptions::PositionOptions(const GoodsItem& position)
    : PositionOptions(QJsonDocument::fromJson(position.getExtendedOptions().toUtf8()))
{
}

PositionOptions::PositionOptions(const ElectronicPrescription& prescription, const QString& patientName,
                                 bool finalDispense, double doses)
{
    const auto organization = prescription.getPayingElectronicPrescriptionOrganization();
    m_members = {
        {positionformat::id, prescription.getId()},
        {positionformat::tradeNameCode, prescription.getTradeNameCode()},
        {positionformat::organizationId, organization ? organization->getId() : QString()},
        {positionformat::sumFactor, prescription.getPayByPatientSumFactor()},
        {positionformat::doseQuantity, doses},
        {positionformat::finalDispense, finalDispense},
        {positionformat::patientReference, prescription.getPatientReference()},
        {positionformat::patient, patientName},
        {positionformat::organization, organization ? organization->getName() : QString()},
        {positionformat::serialNumber, prescription.getSerialNumber()},
    };
}

QString PositionOptions::id() const
{
    return m_members[positionformat::id].toString();
}

QString PositionOptions::serialNumber() const
{
    return m_members[positionformat::serialNumber].toString();
}

QString PositionOptions::tradeNameCode() const
{
    return m_members[positionformat::tradeNameCode].toString();
}

QString PositionOptions::organizationId() const
{
    return m_members[positionformat::organizationId].toString();
}

double PositionOptions::sumFactor() const
{
    return m_members[positionformat::sumFactor].toDouble();
}

double PositionOptions::doseQuantity() const
{
    return m_members[positionformat::doseQuantity].toDouble();
}

bool PositionOptions::isFinalDispense() const
{
    return m_members[positionformat::finalDispense].toBool();
}

QString PositionOptions::patientReference() const
{
    return m_members[positionformat::patientReference].toString();
}

QString PositionOptions::medicationDispenseId() const
{
    return m_members[positionformat::medicationDispenseId].toString();
}

void PositionOptions::setMedicationDispenseId(const QString& id)
{
    m_members[positionformat::medicationDispenseId] = id;
}

bool PositionOptions::isRegistered() const
{
    return m_members[positionformat::status].toString() == positionformat::dispensed;
}

bool PositionOptions::isDueForRegistration() const
{
    const QJsonValue status = m_members[positionformat::status];
    return status.isUndefined() || status.toString() == positionformat::canceled;
}

void PositionOptions::setRegistered()
{
    m_members[positionformat::status] = positionformat::dispensed;
}

void PositionOptions::setCancelled()
{
    m_members[positionformat::status] = positionformat::canceled;
}

QJsonDocument PositionOptions::toDocument() const
{
    return QJsonDocument(m_members);
}

void PositionOptions::writeTo(GoodsItem& position) const
{
    position.setExtendedOptions(QString::fromUtf8(toDocument().toJson(QJsonDocument::Compact)));
}

void PositionOptions::mark(GoodsItem& position) const
{
    writeTo(position);
    position.setSoftCheckId(id());
    position.setTag(positionformat::tag);
}
