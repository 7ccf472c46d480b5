// SPDX-License-Identifier: MIT
#include "registryinquiry.h"

#include "electronicprescriptioninterface.h"
#include "electronicprescriptionnoprescriptionsexception.h"

RegistryInquiry::RegistryInquiry(const ElectronicPrescriptionInterface& registry, const QString& cardNumber,
                                 const QStringList& statuses)
    : m_registry(registry)
    , m_cardNumber(cardNumber)
    , m_statuses(cardNumber.isEmpty() ? QStringList() : statuses)
{
}

std::optional<QList<RegistryDispense>> RegistryInquiry::dispensesOf(const QString& prescription)
{
    while (!m_dispenses.contains(prescription) && !m_statuses.isEmpty()) {
        askFor(m_statuses.constFirst());
        m_statuses.removeFirst(); // not when it threw: it is asked for again
    }
    const auto found = m_dispenses.constFind(prescription);
    return found == m_dispenses.constEnd() ? std::nullopt : std::optional(*found);
}

void RegistryInquiry::askFor(const QString& status)
{
    QJsonArray prescriptions;
    QJsonObject patient;
    try {
        m_registry.getElectronicPrescriptionsByCardNumber(m_cardNumber, status, prescriptions, patient);
    } catch (const ElectronicPrescriptionNoPrescriptionsException&) {
        return; // none of this status
    }
    for (const auto& element : std::as_const(prescriptions)) {
        const QJsonObject prescription = element.toObject();
        m_dispenses.insert(prescriptionIdIn(prescription), dispensesIn(prescription));
    }
}
