// SPDX-License-Identifier: MIT
#pragma once

#include "fuzztarget.h"

#include "doses.h"
#include "prescriptionstore.h"
#include "seedreader.h"

/// A registry with one patient's prescriptions, the same for each input.
class RegistryState
{
public:
    static inline const QDate today{2026, 3, 20};

    RegistryState() { beginAgain(); }

    emulator::PrescriptionStore& store() { return m_store; }
    const emulator::PrescriptionStore& store() const { return m_store; }

    void beginAgain() { m_store.replace(emulator::SeedReader(today).read(emulator::JsonNode::parse(seed))); }

    /// Checks what holds after every request.
    void check() const
    {
        for (const QString& card : m_store.cards()) {
            for (const emulator::Prescription& prescription : m_store.prescriptionsOfCard(card)) {
                promise(emulator::doses::handedOut(m_store.dispensesOf(prescription.id)) <=
                            prescription.quantity + emulator::doses::tolerance,
                        "no more is handed out than was prescribed");
            }
        }
    }

private:
    static inline const QByteArray seed = R"({
        "clients": [{"id": "pharmacy", "secret": "secret", "scopes": ["dispense"], "organizationIdentifier": "17"}],
        "payers": [{"id": "payer-1", "name": "Поликлиника № 1"}],
        "practitioners": [{"id": "doctor", "family": "Вымышленная", "given": ["Вера"]}],
        "patients": [{
            "id": "p-1", "card": "1100", "family": "Пробный", "given": ["Пётр"], "birthDate": "1960-01-31",
            "prescriptions": [
                {"id": "rx-full", "inn": "Амоксициллин", "tradeName": "Амоксидар", "dosageCode": "1001", "quantity": 20,
                 "writtenDaysAgo": 5, "validDays": 30, "practitioner": "doctor",
                 "dispenses": [{"id": "d-1", "quantity": 5, "handedOverDaysAgo": 2, "pharmacy": "17"}]},
                {"id": "rx-half", "inn": "Метформин", "tradeName": "Метфолин", "dosageCode": "1003", "quantity": 60,
                 "writtenDaysAgo": 5, "validDays": 30, "patientShare": 0.5, "payer": "payer-1",
                 "practitioner": "doctor"}]}]})";

    emulator::PrescriptionStore m_store;
};
