// SPDX-License-Identifier: MIT
#include "registryinquiry.h"

#include "electronicprescriptioninterface.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "recoveryregistry.h"

using namespace Qt::StringLiterals;

RegistryInquiry::RegistryInquiry(const ElectronicPrescriptionInterface& registry, const QString& cardNumber,
                                 const QStringList& statuses)
    : m_registry(registry)
    , m_cardNumber(cardNumber)
    , m_statuses(cardNumber.isEmpty() ? QStringList() : statuses)
{
}

std::optional<ShownPrescription> RegistryInquiry::prescription(const QString& id)
{
    while (!m_shown.contains(id) && !m_statuses.isEmpty()) {
        try {
            askFor(m_statuses.constFirst());
            m_statuses.removeFirst(); // not when it threw: it is asked for again
        } catch (const RefusedCardException& exception) {
            m_refusal = exception.tr();
            m_statuses.clear(); // the answer is the same for each
        }
    }
    const auto found = m_shown.constFind(id);
    return found == m_shown.constEnd() ? std::nullopt : std::optional(*found);
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
        const QJsonObject bundle = element.toObject();
        const QJsonObject resource = prescriptionIn(bundle);
        m_shown.insert(resource["id"_L1].toString(),
                       {resource["status"_L1].toString() == "completed"_L1, dispensesIn(bundle)});
    }
}
