// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

class ElectronicPrescription;
class GoodsItem;

/// True when the position comes from a prescription: it carries the tag, in exactly this case.
bool isPrescriptionPosition(const GoodsItem& position);

/// What the plug-in keeps in the extended options of a receipt position: a JSON object, whose members positionformat.h
/// names. This class alone reads and writes it.
///
/// A value: a change reaches the position with writeTo(). Members that the class does not know are kept. A member that
/// is missing or of another type reads as an empty text, 0 or false.
class PositionOptions
{
public:
    /// Those of a document; empty when it is no JSON object.
    explicit PositionOptions(const QJsonDocument& document);

    /// Those of a position; empty when they are no JSON object.
    explicit PositionOptions(const GoodsItem& position);

    /// Those of a new position for a prescription; not registered yet.
    /// @param patientName of the card's holder; empty when unknown
    /// @param finalDispense true: with these doses the prescription is served in full
    /// @param doses the doses handed out now
    PositionOptions(const ElectronicPrescription& prescription, const QString& patientName, bool finalDispense,
                    double doses);

    /// The prescription's identifier in the registry.
    QString id() const;
    /// The number of the prescription form, as the patient's paper has it; empty when unknown.
    QString serialNumber() const;
    QString tradeNameCode() const;
    /// Of the organization that pays the benefit; empty: nobody does.
    QString organizationId() const;
    /// The share of the price that the patient pays, as a fraction. Missing, it reads as 0: the patient pays nothing.
    double sumFactor() const;
    /// The doses handed out with this position.
    double doseQuantity() const;
    /// True: with these doses the prescription is served in full.
    bool isFinalDispense() const;
    /// The registry's reference to the patient.
    QString patientReference() const;

    /// The registry's identifier of the registered dispense. It stays when the dispense is cancelled.
    QString medicationDispenseId() const;
    void setMedicationDispenseId(const QString& id);

    /// True when the registry holds the dispense.
    bool isRegistered() const;
    /// True when the dispense was never registered, or was cancelled. A state that nobody knows is not due.
    bool isDueForRegistration() const;
    void setRegistered();
    void setCancelled();

    QJsonDocument toDocument() const;

    /// Replaces the position's options, as compact JSON.
    void writeTo(GoodsItem& position) const;
    /// Replaces the position's options and makes it a position of the prescription: soft check id, then tag.
    void mark(GoodsItem& position) const;

private:
    QJsonObject m_members;
};
