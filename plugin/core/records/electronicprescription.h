// SPDX-License-Identifier: MIT
#pragma once

#include "payingelectronicprescriptionorganization.h"

#include <QDate>
#include <QList>
#include <QSharedPointer>
#include <QString>

/// One electronic prescription as the registry issued it: data only, held by shared pointers.
///
/// Every accessor is virtual, so that a double can replace a record.
/// The order of the virtual members is part of the class: integrators' doubles are compiled against it.
class ElectronicPrescription
{
public:
    ElectronicPrescription() = default;
    virtual ~ElectronicPrescription();
    Q_DISABLE_COPY_MOVE(ElectronicPrescription)

    /// The prescription's identifier in the registry.
    virtual QString getId() const;
    virtual void setId(const QString& id);

    /// International non-proprietary name (the active substance).
    virtual QString getInn() const;
    virtual void setInn(const QString& inn);

    virtual QString getInnCode() const;
    virtual void setInnCode(const QString& code);

    virtual QString getTradeName() const;
    virtual void setTradeName(const QString& name);

    virtual QString getTradeNameCode() const;
    virtual void setTradeNameCode(const QString& code);

    /// True when the medicine is prescribed by non-proprietary name rather than by trade name. Once set it stays set.
    virtual bool isPrescribedByInn() const;
    virtual void setPrescribedByInn();

    /// Doses prescribed.
    virtual double getDoseQuantity() const;
    virtual void setDoseQuantity(double quantity);

    /// Doses handed out before. A negative quantity lowers it; there is no bound.
    virtual double getDispensedDoseQuantity() const;
    virtual void addDispensedDoseQuantity(double quantity);

    /// The date on which it was written; invalid when unknown.
    virtual QDate getPrescriptionDate() const;
    virtual void setPrescriptionDate(const QDate& date);

    /// The last date of validity; invalid when unknown.
    virtual QDate getExpirationDate() const;
    virtual void setExpirationDate(const QDate& date);

    /// Once set it stays set.
    virtual bool hasDigitalSignature() const;
    virtual void setDigitalSignature();

    /// Dosage instructions for the patient.
    virtual QString getInstructions() const;
    virtual void setInstructions(const QString& instructions);

    /// The share of the price that the patient pays, as a fraction: 1.0 is all of it. Not clamped.
    virtual double getPayByPatientSumFactor() const;
    virtual void setPayByPatientSumFactor(double factor);

    /// The discount that the benefit gives, in percent: 100 less the patient's share, which is rounded to two decimals
    /// of a percent. Negative for a factor above 1.0.
    virtual double getDiscountPercent() const;

    /// Who pays the benefit; null when nobody does.
    virtual QSharedPointer<PayingElectronicPrescriptionOrganization>
    getPayingElectronicPrescriptionOrganization() const;
    virtual void setPayingElectronicPrescriptionOrganization(
        const QSharedPointer<PayingElectronicPrescriptionOrganization>& organization);

    /// Replaces `dates` by the dates of earlier dispenses, in the order in which they were added. A date can be there
    /// twice, and an unknown one is invalid.
    virtual void getMedicationDispenseDates(QList<QDate>& dates) const;
    virtual void addMedicationDispenseDate(const QDate& date);

    /// The registry's reference to the patient.
    virtual QString getPatientReference() const;
    virtual void setPatientReference(const QString& reference);

    virtual QString getPractitionerName() const;
    virtual void setPractitionerName(const QString& name);

    /// Serial number of the prescription form.
    virtual QString getSerialNumber() const;
    virtual void setSerialNumber(const QString& number);

    // In these two pairs the setter comes first. The order of the virtual members must stay.

    /// Name in the pharmacy's own dictionary.
    virtual void setDictName(const QString& name);
    virtual QString getDictName() const;

    /// Code in the pharmacy's own dictionary.
    virtual void setDictCode(const QString& code);
    virtual QString getDictCode() const;

private:
    QString m_id;
    QString m_inn;
    QString m_innCode;
    QString m_tradeName;
    QString m_tradeNameCode;
    bool m_prescribedByInn = false;
    double m_doseQuantity = 0.0;
    double m_dispensedDoseQuantity = 0.0;
    QDate m_prescriptionDate;
    QDate m_expirationDate;
    bool m_digitalSignature = false;
    QString m_instructions;
    double m_payByPatientSumFactor = 1.0;
    QSharedPointer<PayingElectronicPrescriptionOrganization> m_payingOrganization;
    QList<QDate> m_medicationDispenseDates;
    QString m_patientReference;
    QString m_practitionerName;
    QString m_serialNumber;
    QString m_dictName;
    QString m_dictCode;
};
