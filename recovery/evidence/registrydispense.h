// SPDX-License-Identifier: MIT
#pragma once

#include "dispensefacts.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// A dispense that the registry shows with its prescription. A value type.
struct RegistryDispense {
    QString id; ///< empty: the registry does not show it
    DispenseFacts facts;
    QString handedOver = {}; ///< "whenHandedOver" as the registry shows it: a day, or a day and a time

    /// How likely a dispense is the one that was asked for.
    enum class Likeness {
        None,     ///< the day or the doses differ
        Possible, ///< they do not, but the pharmacy is written otherwise, or the registry does not show everything
        Certain,  ///< day, doses and pharmacy agree, and it has an id
    };
    Likeness likeness(const DispenseFacts& asked) const;
};

/// Those of a prescription's Bundle, without the cancelled ones ("entered-in-error"), in order.
QList<RegistryDispense> dispensesIn(const QJsonObject& prescription);

/// The MedicationPrescription that the Bundle is of; empty: it has none.
QJsonObject prescriptionIn(const QJsonObject& prescription);
