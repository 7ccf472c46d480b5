// SPDX-License-Identifier: MIT
#include "prescriptionstore.h"

#include "rulefields.h"
#include "schema.h"
#include "tables.h"

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// @param verb how a row with the same key is treated
template <typename Record>
void insert(const Database& database, const Table<Record>& table, const Record& record,
            const QString& verb = u"INSERT "_s)
{
    database.run(verb + table.insertion(), table.valuesOf(record));
}

template <typename Record>
void insertUnlessKnown(const Database& database, const Table<Record>& table, const Record& record)
{
    insert(database, table, record, u"INSERT OR IGNORE "_s);
}

/// @param condition what follows the table's name in the statement
template <typename Record>
QList<Record> select(const Database& database, const Table<Record>& table, const QString& condition = {},
                     const QVariantList& values = {})
{
    QSqlQuery rows =
        database.run(u"SELECT "_s + table.selection() + u" FROM "_s + table.name + u' ' + condition, values);
    QList<Record> records;
    while (rows.next()) {
        records.append(table.recordIn(rows));
    }
    return records;
}

QList<Prescription> selectPrescriptions(const Database& database, const QString& condition, const QVariantList& values)
{
    const Table<Prescription>& table = tables::prescriptions();
    QSqlQuery rows = database.run(u"SELECT "_s + table.selection() +
                                      u", patient.id FROM prescription"
                                      " JOIN patient ON patient.card = prescription.card "_s +
                                      condition,
                                  values);
    QList<Prescription> prescriptions;
    while (rows.next()) {
        Prescription prescription = table.recordIn(rows);
        prescription.patientId = rows.value(int(table.columns.size())).toString();
        prescriptions.append(prescription);
    }
    return prescriptions;
}

template <typename Record>
std::optional<Record> first(const QList<Record>& records)
{
    return records.isEmpty() ? std::nullopt : std::optional(records.first());
}

template <typename Record>
QHash<QString, Record> byId(const QList<Record>& records)
{
    QHash<QString, Record> all;
    for (const Record& record : records) {
        all.insert(record.id, record);
    }
    return all;
}
} // namespace

PrescriptionStore::PrescriptionStore(const QString& file)
    : m_database(file)
{
    schema::prepare(m_database, file);
    m_database.run(u"PRAGMA foreign_keys = ON"_s);
    m_database.run(u"PRAGMA journal_mode = WAL"_s);
    m_database.run(u"PRAGMA synchronous = NORMAL"_s);
    m_rules = storedRules();
}

bool PrescriptionStore::isEmpty() const
{
    return !m_database.run(u"SELECT 1 FROM client UNION ALL SELECT 1 FROM patient LIMIT 1"_s).next();
}

void PrescriptionStore::replace(const Seed& seed)
{
    m_database.inTransaction([this, &seed] {
        for (const char* table : {"dispense", "prescription", "patient", "practitioner", "payer", "client"}) {
            m_database.run(u"DELETE FROM "_s + QLatin1StringView(table));
        }
        for (const Client& client : seed.clients) {
            insert(m_database, tables::clients(), client);
        }
        for (const Payer& payer : seed.payers) {
            addUnlessKnown(payer);
        }
        for (const Practitioner& practitioner : seed.practitioners) {
            addUnlessKnown(practitioner);
        }
        for (const Patient& patient : seed.patients) {
            add(patient);
        }
        for (const Prescription& prescription : seed.prescriptions) {
            insert(m_database, tables::prescriptions(), prescription);
        }
        for (const Dispense& dispense : seed.dispenses) {
            insert(m_database, tables::dispenses(), dispense);
        }
        setRules(seed.rules);
    });
}

void PrescriptionStore::add(const Patient& patient)
{
    insert(m_database, tables::patients(), patient);
}

void PrescriptionStore::addUnlessKnown(const Practitioner& practitioner)
{
    insertUnlessKnown(m_database, tables::practitioners(), practitioner);
}

void PrescriptionStore::addUnlessKnown(const Payer& payer)
{
    insertUnlessKnown(m_database, tables::payers(), payer);
}

void PrescriptionStore::add(const QList<Prescription>& prescriptions)
{
    m_database.inTransaction([this, &prescriptions] {
        for (const Prescription& prescription : prescriptions) {
            insert(m_database, tables::prescriptions(), prescription);
        }
    });
}

void PrescriptionStore::setRules(const Rules& rules)
{
    for (const RuleField& field : ruleFields()) {
        const QVariant value = std::visit([&rules](auto member) { return stored(rules.*member); }, field.member);
        m_database.run(u"INSERT OR REPLACE INTO rule VALUES (?, ?)"_s, {field.name, value});
    }
    m_rules = rules;
}

Rules PrescriptionStore::storedRules() const
{
    Rules rules; // an older file lacks newer rules
    for (const RuleField& field : ruleFields()) {
        QSqlQuery row = m_database.run(u"SELECT value FROM rule WHERE name = ?"_s, {field.name});
        if (row.next()) {
            std::visit([&](auto member) { restore(rules.*member, row.value(0)); }, field.member);
        }
    }
    return rules;
}

std::optional<Client> PrescriptionStore::client(const QString& id) const
{
    return first(select(m_database, tables::clients(), u"WHERE id = ?"_s, {id}));
}

std::optional<Patient> PrescriptionStore::patientOfCard(const QString& card) const
{
    return first(select(m_database, tables::patients(), u"WHERE card = ?"_s, {card}));
}

QHash<QString, Practitioner> PrescriptionStore::practitioners() const
{
    return byId(select(m_database, tables::practitioners()));
}

QHash<QString, Payer> PrescriptionStore::payers() const
{
    return byId(select(m_database, tables::payers()));
}

QStringList PrescriptionStore::cards() const
{
    QStringList cards;
    QSqlQuery rows = m_database.run(u"SELECT card FROM patient ORDER BY card"_s);
    while (rows.next()) {
        cards.append(rows.value(0).toString());
    }
    return cards;
}

QList<Prescription> PrescriptionStore::prescriptionsOfCard(const QString& card, const QString& status) const
{
    if (status.isEmpty()) {
        return selectPrescriptions(m_database, u"WHERE prescription.card = ? ORDER BY number"_s, {card});
    }
    return selectPrescriptions(m_database, u"WHERE prescription.card = ? AND status = ? ORDER BY number"_s,
                               {card, status});
}

std::optional<Prescription> PrescriptionStore::prescription(const QString& id) const
{
    return first(selectPrescriptions(m_database, u"WHERE prescription.id = ?"_s, {id}));
}

QHash<QString, QList<Dispense>> PrescriptionStore::dispensesOfCard(const QString& card) const
{
    QHash<QString, QList<Dispense>> dispenses;
    const QList<Dispense> all = select(m_database, tables::dispenses(),
                                       u"JOIN prescription ON prescription.id = dispense.prescription"
                                       " WHERE prescription.card = ? ORDER BY handed_over, dispense.number"_s,
                                       {card});
    for (const Dispense& dispense : all) {
        dispenses[dispense.prescriptionId].append(dispense);
    }
    return dispenses;
}

QList<Dispense> PrescriptionStore::dispensesOf(const QString& prescriptionId) const
{
    return select(m_database, tables::dispenses(), u"WHERE prescription = ? ORDER BY handed_over, number"_s,
                  {prescriptionId});
}

std::optional<Dispense> PrescriptionStore::dispense(const QString& id) const
{
    return first(select(m_database, tables::dispenses(), u"WHERE id = ?"_s, {id}));
}

QList<Dispense> PrescriptionStore::dispenses() const
{
    return select(m_database, tables::dispenses(), u"ORDER BY number"_s);
}

void PrescriptionStore::setStatus(const QString& prescriptionId, const QString& status)
{
    m_database.run(u"UPDATE prescription SET status = ? WHERE id = ?"_s, {status, prescriptionId});
}

void PrescriptionStore::book(const Dispense& dispense, const QString& prescriptionStatus)
{
    m_database.inTransaction([&] {
        insert(m_database, tables::dispenses(), dispense);
        setStatus(dispense.prescriptionId, prescriptionStatus);
    });
}

void PrescriptionStore::cancel(const QString& dispenseId, const QString& prescriptionStatus)
{
    m_database.inTransaction([&] {
        m_database.run(u"UPDATE dispense SET cancelled = 1 WHERE id = ?"_s, {dispenseId});
        m_database.run(u"UPDATE prescription SET status = ?"
                       " WHERE id = (SELECT prescription FROM dispense WHERE id = ?)"_s,
                       {prescriptionStatus, dispenseId});
    });
}
} // namespace emulator
