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

    /// How likely a dispense is the one that was asked for.
    enum class Likeness {
        None,     ///< something that the registry shows differs
        Possible, ///< nothing differs, but the registry does not show everything
        Certain,  ///< day, doses and pharmacy agree, and it has an id
    };
    Likeness likeness(const DispenseFacts& asked) const;
};

/// Those of a prescription's Bundle, without the cancelled ones ("entered-in-error"), in order.
QList<RegistryDispense> dispensesIn(const QJsonObject& prescription);

/// The id of the prescription that the Bundle is of; empty: it has none.
QString prescriptionIdIn(const QJsonObject& prescription);
