// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

/// What distinguishes two dispenses of one prescription: the day, the doses and the pharmacy. A value type.
struct DispenseFacts {
    QString day;      ///< yyyy-MM-dd
    double doses = 0; ///< rounded to hundredths
    QString pharmacy; ///< its name
    QString address;  ///< the pharmacy's, as one text

    /// Reads a MedicationDispense (HL7 FHIR DSTU 1): "whenHandedOver", "quantity" and the contained Location. A member
    /// that is missing or of another type reads as an empty text or 0.
    static DispenseFacts of(const QJsonObject& dispense);

    /// True when pharmacy and address agree. Case and blanks do not count: registries write names in ways of their own.
    bool isOfPharmacy(const DispenseFacts& other) const;

    bool operator==(const DispenseFacts&) const = default;
};
