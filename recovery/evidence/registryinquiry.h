// SPDX-License-Identifier: MIT
#pragma once

#include "registrydispense.h"
#include "tr.h"

#include <QHash>
#include <QStringList>

#include <optional>

class ElectronicPrescriptionInterface;

/// A prescription as the registry shows it. A value type.
struct ShownPrescription {
    bool isCompleted = false; ///< nothing more can be dispensed
    QList<RegistryDispense> dispenses;
};

/// Asks the registry which dispenses it holds of a card's prescriptions, status after status, each at most once.
class RegistryInquiry
{
public:
    /// @param registry is not owned and outlives this object
    /// @param cardNumber empty: the document has lost it, and no prescription is shown
    /// @param statuses to ask for, in this order
    RegistryInquiry(const ElectronicPrescriptionInterface& registry, const QString& cardNumber,
                    const QStringList& statuses);

    /// Empty: the registry shows it under none of the statuses, or does not know the card.
    ///
    /// Throws ElectronicPrescriptionException when the registry cannot be asked.
    std::optional<ShownPrescription> prescription(const QString& id);

    /// What the registry says of a card that it does not know; empty: it knows it, or was not asked yet.
    const std::optional<tr::Tr>& refusal() const { return m_refusal; }

private:
    void askFor(const QString& status);

    const ElectronicPrescriptionInterface& m_registry;
    const QString m_cardNumber;
    QStringList m_statuses;                    ///< not asked for yet
    QHash<QString, ShownPrescription> m_shown; ///< by the prescription's id
    std::optional<tr::Tr> m_refusal;
};
