// SPDX-License-Identifier: MIT
#pragma once

#include "jsonnode.h"
#include "records.h"

#include <QSet>

namespace emulator
{
/// Reads a seed; its form is described in docs/emulator.md.
class SeedReader
{
public:
    /// @param today the day from which "writtenDaysAgo" and its like count back
    explicit SeedReader(const QDate& today);

    /// Throws EmulatorError with the place of the first mistake.
    Seed read(const JsonNode& root);

    /// A dispense that names its prescription. Its id stays empty, and its day invalid when none is given. Throws as
    /// read() does.
    Dispense readDispenseElsewhere(const JsonNode& node) const;

    /// The rules, changed by the members of a "rules" object.
    static Rules rules(const JsonNode& node, Rules rules);

private:
    void readClient(const JsonNode& node);
    void readPayer(const JsonNode& node);
    void readPractitioner(const JsonNode& node);
    void readPatient(const JsonNode& node);
    void readPrescription(const JsonNode& node, const Patient& patient);
    void readDispense(const JsonNode& node, const Prescription& prescription);
    static Dispense dispenseIn(const JsonNode& node);
    QDate day(const JsonNode& node, const QString& key, const QString& daysAgoKey) const;
    static QString uniqueId(const JsonNode& node, const QString& key, QSet<QString>& known);
    static QString knownId(const JsonNode& node, const QString& key, const QString& id, const QSet<QString>& known);
    static PersonName personName(const JsonNode& node);

    QDate m_today;
    Seed m_seed;
    QSet<QString> m_clients;
    QSet<QString> m_payers;
    QSet<QString> m_practitioners;
    QSet<QString> m_patients;
    QSet<QString> m_cards;
    QSet<QString> m_prescriptions;
    QSet<QString> m_dispenses;
};
} // namespace emulator
