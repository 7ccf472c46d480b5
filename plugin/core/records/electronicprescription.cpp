// SPDX-License-Identifier: MIT
#include "electronicprescription.h"

#include "centrounding.h"

ElectronicPrescription::~ElectronicPrescription() = default;

QString ElectronicPrescription::getId() const
{
    return m_id;
}

void ElectronicPrescription::setId(const QString& id)
{
    m_id = id;
}

QString ElectronicPrescription::getInn() const
{
    return m_inn;
}

void ElectronicPrescription::setInn(const QString& inn)
{
    m_inn = inn;
}

QString ElectronicPrescription::getInnCode() const
{
    return m_innCode;
}

void ElectronicPrescription::setInnCode(const QString& code)
{
    m_innCode = code;
}

QString ElectronicPrescription::getTradeName() const
{
    return m_tradeName;
}

void ElectronicPrescription::setTradeName(const QString& name)
{
    m_tradeName = name;
}

QString ElectronicPrescription::getTradeNameCode() const
{
    return m_tradeNameCode;
}

void ElectronicPrescription::setTradeNameCode(const QString& code)
{
    m_tradeNameCode = code;
}

bool ElectronicPrescription::isPrescribedByInn() const
{
    return m_prescribedByInn;
}

void ElectronicPrescription::setPrescribedByInn()
{
    m_prescribedByInn = true;
}

double ElectronicPrescription::getDoseQuantity() const
{
    return m_doseQuantity;
}

void ElectronicPrescription::setDoseQuantity(double quantity)
{
    m_doseQuantity = quantity;
}

double ElectronicPrescription::getDispensedDoseQuantity() const
{
    return m_dispensedDoseQuantity;
}

void ElectronicPrescription::addDispensedDoseQuantity(double quantity)
{
    m_dispensedDoseQuantity += quantity;
}

QDate ElectronicPrescription::getPrescriptionDate() const
{
    return m_prescriptionDate;
}

void ElectronicPrescription::setPrescriptionDate(const QDate& date)
{
    m_prescriptionDate = date;
}

QDate ElectronicPrescription::getExpirationDate() const
{
    return m_expirationDate;
}

void ElectronicPrescription::setExpirationDate(const QDate& date)
{
    m_expirationDate = date;
}

bool ElectronicPrescription::hasDigitalSignature() const
{
    return m_digitalSignature;
}

void ElectronicPrescription::setDigitalSignature()
{
    m_digitalSignature = true;
}

QString ElectronicPrescription::getInstructions() const
{
    return m_instructions;
}

void ElectronicPrescription::setInstructions(const QString& instructions)
{
    m_instructions = instructions;
}

double ElectronicPrescription::getPayByPatientSumFactor() const
{
    return m_payByPatientSumFactor;
}

void ElectronicPrescription::setPayByPatientSumFactor(double factor)
{
    m_payByPatientSumFactor = factor;
}

double ElectronicPrescription::getDiscountPercent() const
{
    return 100.0 - roundToCents(m_payByPatientSumFactor * 100.0);
}

QSharedPointer<PayingElectronicPrescriptionOrganization>
ElectronicPrescription::getPayingElectronicPrescriptionOrganization() const
{
    return m_payingOrganization;
}

void ElectronicPrescription::setPayingElectronicPrescriptionOrganization(
    const QSharedPointer<PayingElectronicPrescriptionOrganization>& organization)
{
    m_payingOrganization = organization;
}

void ElectronicPrescription::getMedicationDispenseDates(QList<QDate>& dates) const
{
    dates = m_medicationDispenseDates;
}

void ElectronicPrescription::addMedicationDispenseDate(const QDate& date)
{
    m_medicationDispenseDates.append(date);
}

QString ElectronicPrescription::getPatientReference() const
{
    return m_patientReference;
}

void ElectronicPrescription::setPatientReference(const QString& reference)
{
    m_patientReference = reference;
}

QString ElectronicPrescription::getPractitionerName() const
{
    return m_practitionerName;
}

void ElectronicPrescription::setPractitionerName(const QString& name)
{
    m_practitionerName = name;
}

QString ElectronicPrescription::getSerialNumber() const
{
    return m_serialNumber;
}

void ElectronicPrescription::setSerialNumber(const QString& number)
{
    m_serialNumber = number;
}

void ElectronicPrescription::setDictName(const QString& name)
{
    m_dictName = name;
}

QString ElectronicPrescription::getDictName() const
{
    return m_dictName;
}

void ElectronicPrescription::setDictCode(const QString& code)
{
    m_dictCode = code;
}

QString ElectronicPrescription::getDictCode() const
{
    return m_dictCode;
}
