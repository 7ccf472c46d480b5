// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"
#include "records.h"

#include <QHash>

#include <optional>

namespace emulator
{
/// The registry's state, in SQLite. A getter of one record returns nothing when there is none. Every member throws
/// EmulatorError when the database fails. Belongs to the thread that opened it.
class PrescriptionStore
{
public:
    /// Opens the file, and creates it when it is missing; an empty name keeps the state in memory. Throws
    /// EmulatorError when the file cannot be used, for example because a newer emulator wrote it.
    explicit PrescriptionStore(const QString& file = {});
    Q_DISABLE_COPY_MOVE(PrescriptionStore)
    ~PrescriptionStore() = default;

    /// True as long as there is neither a client nor a patient.
    bool isEmpty() const;
    /// Replaces everything with the seed.
    void replace(const Seed& seed);
    /// Adds prescriptions of known patients, all or none.
    void add(const QList<Prescription>& prescriptions);
    void add(const Patient& patient);
    /// Does nothing when the id is known.
    void addUnlessKnown(const Practitioner& practitioner);
    void addUnlessKnown(const Payer& payer);

    const Rules& rules() const { return m_rules; }
    void setRules(const Rules& rules);

    std::optional<Client> client(const QString& id) const;
    std::optional<Patient> patientOfCard(const QString& card) const;
    QHash<QString, Practitioner> practitioners() const;
    QHash<QString, Payer> payers() const;
    QStringList cards() const;

    /// In the order in which they were added.
    /// @param status empty: all
    QList<Prescription> prescriptionsOfCard(const QString& card, const QString& status = {}) const;
    std::optional<Prescription> prescription(const QString& id) const;

    /// The dispenses of a card, cancelled ones included, by prescription and oldest first.
    QHash<QString, QList<Dispense>> dispensesOfCard(const QString& card) const;
    QList<Dispense> dispensesOf(const QString& prescriptionId) const;
    std::optional<Dispense> dispense(const QString& id) const;
    /// Every dispense, oldest first.
    QList<Dispense> dispenses() const;

    /// Adds the dispense and sets its prescription's status, both or neither.
    void book(const Dispense& dispense, const QString& prescriptionStatus);
    /// Marks the dispense as cancelled and sets its prescription's status, both or neither.
    void cancel(const QString& dispenseId, const QString& prescriptionStatus);

private:
    void setStatus(const QString& prescriptionId, const QString& status);
    Rules storedRules() const;

    Database m_database;
    Rules m_rules;
};
} // namespace emulator
