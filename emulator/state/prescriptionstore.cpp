// SPDX-License-Identifier: MIT
#include "prescriptionstore.h"

#include "emulatorerror.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
const QStringList tables{
    u"CREATE TABLE IF NOT EXISTS rule (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE IF NOT EXISTS client (id TEXT PRIMARY KEY, secret TEXT NOT NULL, scopes TEXT NOT NULL,"
    " organization TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE IF NOT EXISTS payer (id TEXT PRIMARY KEY, name TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE IF NOT EXISTS practitioner (id TEXT PRIMARY KEY, family TEXT NOT NULL,"
    " given TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE IF NOT EXISTS patient (card TEXT PRIMARY KEY, id TEXT NOT NULL UNIQUE,"
    " family TEXT NOT NULL, given TEXT NOT NULL, birth_date TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE IF NOT EXISTS prescription (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE,"
    " card TEXT NOT NULL REFERENCES patient, serial_number TEXT NOT NULL, status TEXT NOT NULL,"
    " inn TEXT NOT NULL, inn_code TEXT NOT NULL, trade_name TEXT NOT NULL, trade_name_code TEXT NOT NULL,"
    " dosage_code TEXT NOT NULL, prescribed_by_inn INTEGER NOT NULL, quantity REAL NOT NULL,"
    " written TEXT NOT NULL, valid_until TEXT NOT NULL, instructions TEXT NOT NULL, patient_share REAL,"
    " payer TEXT REFERENCES payer, practitioner TEXT NOT NULL REFERENCES practitioner,"
    " signed INTEGER NOT NULL)"_s,
    u"CREATE INDEX IF NOT EXISTS prescription_of_card ON prescription (card, number)"_s,
    u"CREATE TABLE IF NOT EXISTS dispense (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE,"
    " prescription TEXT NOT NULL REFERENCES prescription (id), pharmacy TEXT NOT NULL,"
    " quantity REAL NOT NULL, handed_over TEXT NOT NULL, final INTEGER NOT NULL,"
    " cancelled INTEGER NOT NULL, resource TEXT NOT NULL, claim TEXT NOT NULL)"_s,
    u"CREATE INDEX IF NOT EXISTS dispense_of_prescription ON dispense (prescription, number)"_s,
};

const QString prescriptionColumns =
    u"SELECT p.id, p.card, patient.id, p.serial_number, p.status, p.inn, p.inn_code, p.trade_name, p.trade_name_code,"
    " p.dosage_code, p.prescribed_by_inn, p.quantity, p.written, p.valid_until, p.instructions, p.patient_share,"
    " p.payer, p.practitioner, p.signed FROM prescription p JOIN patient ON patient.card = p.card "_s;

const QString dispenseColumns =
    u"SELECT d.id, d.prescription, d.pharmacy, d.quantity, d.handed_over, d.final, d.cancelled, d.resource, d.claim"
    " FROM dispense d "_s;

QString joined(const QStringList& texts)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

QStringList parted(const QVariant& stored)
{
    QStringList texts;
    const QJsonArray array = QJsonDocument::fromJson(stored.toByteArray()).array();
    for (const auto text : array) {
        texts.append(text.toString());
    }
    return texts;
}

/// An empty text, not NULL, for a text that was never set.
QString text(const QString& value)
{
    return value.isNull() ? u""_s : value;
}

QDate date(const QVariant& stored)
{
    return QDate::fromString(stored.toString(), Qt::ISODate);
}

Prescription prescriptionIn(const QSqlQuery& row)
{
    int column = 0;
    const auto next = [&row, &column] { return row.value(column++); };
    Prescription prescription;
    prescription.id = next().toString();
    prescription.card = next().toString();
    prescription.patientId = next().toString();
    prescription.serialNumber = next().toString();
    prescription.status = next().toString();
    prescription.inn = next().toString();
    prescription.innCode = next().toString();
    prescription.tradeName = next().toString();
    prescription.tradeNameCode = next().toString();
    prescription.dosageCode = next().toString();
    prescription.prescribedByInn = next().toBool();
    prescription.quantity = next().toDouble();
    prescription.written = date(next());
    prescription.validUntil = date(next());
    prescription.instructions = parted(next());
    if (const QVariant share = next(); !share.isNull()) {
        prescription.patientShare = share.toDouble();
    }
    prescription.payerId = next().toString();
    prescription.practitionerId = next().toString();
    prescription.isSigned = next().toBool();
    return prescription;
}

Dispense dispenseIn(const QSqlQuery& row)
{
    int column = 0;
    const auto next = [&row, &column] { return row.value(column++); };
    Dispense dispense;
    dispense.id = next().toString();
    dispense.prescriptionId = next().toString();
    dispense.pharmacy = next().toString();
    dispense.quantity = next().toDouble();
    dispense.handedOver = date(next());
    dispense.isFinal = next().toBool();
    dispense.isCancelled = next().toBool();
    dispense.resource = next().toByteArray();
    dispense.claim = next().toByteArray();
    return dispense;
}
} // namespace

PrescriptionStore::PrescriptionStore(const QString& file)
    : m_connectionName(u"registry-emulator-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connectionName))
{
    m_database.setDatabaseName(file.isEmpty() ? u":memory:"_s : file);
    try {
        if (!m_database.open()) {
            throw EmulatorError(u"cannot open the data file %1: %2"_s.arg(file, m_database.lastError().text()));
        }
        run(u"PRAGMA foreign_keys = ON"_s);
        run(u"PRAGMA journal_mode = WAL"_s);
        run(u"PRAGMA synchronous = NORMAL"_s);
        createTables();
        m_rules = storedRules();
    } catch (...) {
        m_database = {};
        QSqlDatabase::removeDatabase(m_connectionName);
        throw;
    }
}

PrescriptionStore::~PrescriptionStore()
{
    m_database = {};
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlQuery PrescriptionStore::run(const QString& statement, const QVariantList& values) const
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (qsizetype index = 0; done && index < values.size(); ++index) {
        query.bindValue(int(index), values.at(index));
    }
    done = done && query.exec();
    if (!done) {
        throw EmulatorError(u"the database fails: "_s + query.lastError().text());
    }
    return query;
}

void PrescriptionStore::inTransaction(const std::function<void()>& change)
{
    if (!m_database.transaction()) {
        throw EmulatorError(u"the database fails: "_s + m_database.lastError().text());
    }
    try {
        change();
    } catch (...) {
        m_database.rollback();
        throw;
    }
    if (!m_database.commit()) {
        const QString reason = m_database.lastError().text();
        m_database.rollback();
        throw EmulatorError(u"the database fails: "_s + reason);
    }
}

void PrescriptionStore::createTables()
{
    inTransaction([this] {
        for (const QString& table : tables) {
            run(table);
        }
    });
}

bool PrescriptionStore::isEmpty() const
{
    return !run(u"SELECT 1 FROM client UNION ALL SELECT 1 FROM patient LIMIT 1"_s).next();
}

void PrescriptionStore::replace(const Seed& seed)
{
    inTransaction([this, &seed] {
        for (const char* table : {"dispense", "prescription", "patient", "practitioner", "payer", "client"}) {
            run(u"DELETE FROM "_s + QLatin1StringView(table));
        }
        for (const Client& client : seed.clients) {
            run(u"INSERT INTO client VALUES (?, ?, ?, ?)"_s,
                {client.id, text(client.secret), joined(client.scopes), text(client.organization)});
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
            insert(prescription);
        }
        for (const Dispense& dispense : seed.dispenses) {
            insert(dispense);
        }
        setRules(seed.rules);
    });
}

void PrescriptionStore::add(const Patient& patient)
{
    run(u"INSERT INTO patient VALUES (?, ?, ?, ?, ?)"_s,
        {patient.card, patient.id, text(patient.name.family), joined(patient.name.given),
         text(patient.birthDate.toString(Qt::ISODate))});
}

void PrescriptionStore::addUnlessKnown(const Practitioner& practitioner)
{
    run(u"INSERT OR IGNORE INTO practitioner VALUES (?, ?, ?)"_s,
        {practitioner.id, text(practitioner.name.family), joined(practitioner.name.given)});
}

void PrescriptionStore::addUnlessKnown(const Payer& payer)
{
    run(u"INSERT OR IGNORE INTO payer VALUES (?, ?)"_s, {payer.id, text(payer.name)});
}

void PrescriptionStore::add(const QList<Prescription>& prescriptions)
{
    inTransaction([this, &prescriptions] {
        for (const Prescription& prescription : prescriptions) {
            insert(prescription);
        }
    });
}

void PrescriptionStore::insert(const Prescription& prescription)
{
    const QVariant share = prescription.patientShare ? QVariant(*prescription.patientShare) : QVariant();
    const QVariant payer = prescription.payerId.isEmpty() ? QVariant() : QVariant(prescription.payerId);
    run(u"INSERT INTO prescription VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {prescription.id, prescription.card, text(prescription.serialNumber), prescription.status,
         text(prescription.inn), text(prescription.innCode), text(prescription.tradeName),
         text(prescription.tradeNameCode), text(prescription.dosageCode), prescription.prescribedByInn,
         prescription.quantity, prescription.written.toString(Qt::ISODate),
         prescription.validUntil.toString(Qt::ISODate), joined(prescription.instructions), share, payer,
         prescription.practitionerId, prescription.isSigned});
}

void PrescriptionStore::insert(const Dispense& dispense)
{
    run(u"INSERT INTO dispense VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {dispense.id, dispense.prescriptionId, text(dispense.pharmacy), dispense.quantity,
         dispense.handedOver.toString(Qt::ISODate), dispense.isFinal, dispense.isCancelled,
         text(QString::fromUtf8(dispense.resource)), text(QString::fromUtf8(dispense.claim))});
}

void PrescriptionStore::setRules(const Rules& rules)
{
    const QList<std::pair<QString, QString>> values{{u"tokenLifetime"_s, QString::number(rules.tokenLifetime)},
                                                    {u"oaisToken"_s, rules.oaisToken},
                                                    {u"prescriptionScope"_s, rules.prescriptionScope},
                                                    {u"dispenseScope"_s, rules.dispenseScope},
                                                    {u"dosageSystem"_s, rules.dosageSystem}};
    for (const auto& [name, value] : values) {
        run(u"INSERT OR REPLACE INTO rule VALUES (?, ?)"_s, {name, text(value)});
    }
    m_rules = rules;
}

Rules PrescriptionStore::storedRules() const
{
    QHash<QString, QString> values;
    QSqlQuery rows = run(u"SELECT name, value FROM rule"_s);
    while (rows.next()) {
        values.insert(rows.value(0).toString(), rows.value(1).toString());
    }
    Rules rules;
    if (values.isEmpty()) {
        return rules;
    }
    rules.tokenLifetime = values.value(u"tokenLifetime"_s).toInt();
    rules.oaisToken = values.value(u"oaisToken"_s);
    rules.prescriptionScope = values.value(u"prescriptionScope"_s);
    rules.dispenseScope = values.value(u"dispenseScope"_s);
    rules.dosageSystem = values.value(u"dosageSystem"_s);
    return rules;
}

std::optional<Client> PrescriptionStore::client(const QString& id) const
{
    QSqlQuery row = run(u"SELECT id, secret, scopes, organization FROM client WHERE id = ?"_s, {id});
    if (!row.next()) {
        return std::nullopt;
    }
    return Client{row.value(0).toString(), row.value(1).toString(), parted(row.value(2)), row.value(3).toString()};
}

std::optional<Patient> PrescriptionStore::patientOfCard(const QString& card) const
{
    QSqlQuery row = run(u"SELECT id, card, family, given, birth_date FROM patient WHERE card = ?"_s, {card});
    if (!row.next()) {
        return std::nullopt;
    }
    return Patient{row.value(0).toString(),
                   row.value(1).toString(),
                   {row.value(2).toString(), parted(row.value(3))},
                   date(row.value(4))};
}

QHash<QString, Practitioner> PrescriptionStore::practitioners() const
{
    QHash<QString, Practitioner> practitioners;
    QSqlQuery rows = run(u"SELECT id, family, given FROM practitioner"_s);
    while (rows.next()) {
        const QString id = rows.value(0).toString();
        practitioners.insert(id, {id, {rows.value(1).toString(), parted(rows.value(2))}});
    }
    return practitioners;
}

QHash<QString, Payer> PrescriptionStore::payers() const
{
    QHash<QString, Payer> payers;
    QSqlQuery rows = run(u"SELECT id, name FROM payer"_s);
    while (rows.next()) {
        payers.insert(rows.value(0).toString(), {rows.value(0).toString(), rows.value(1).toString()});
    }
    return payers;
}

QStringList PrescriptionStore::cards() const
{
    QStringList cards;
    QSqlQuery rows = run(u"SELECT card FROM patient ORDER BY card"_s);
    while (rows.next()) {
        cards.append(rows.value(0).toString());
    }
    return cards;
}

QList<Prescription> PrescriptionStore::prescriptionsOfCard(const QString& card, const QString& status) const
{
    QList<Prescription> prescriptions;
    QSqlQuery rows =
        status.isEmpty()
            ? run(prescriptionColumns + u"WHERE p.card = ? ORDER BY p.number"_s, {card})
            : run(prescriptionColumns + u"WHERE p.card = ? AND p.status = ? ORDER BY p.number"_s, {card, status});
    while (rows.next()) {
        prescriptions.append(prescriptionIn(rows));
    }
    return prescriptions;
}

std::optional<Prescription> PrescriptionStore::prescription(const QString& id) const
{
    QSqlQuery row = run(prescriptionColumns + u"WHERE p.id = ?"_s, {id});
    if (!row.next()) {
        return std::nullopt;
    }
    return prescriptionIn(row);
}

QHash<QString, QList<Dispense>> PrescriptionStore::dispensesOfCard(const QString& card) const
{
    QHash<QString, QList<Dispense>> dispenses;
    QSqlQuery rows = run(dispenseColumns + u"JOIN prescription p ON p.id = d.prescription WHERE p.card = ?"
                                           " ORDER BY d.handed_over, d.number"_s,
                         {card});
    while (rows.next()) {
        const Dispense dispense = dispenseIn(rows);
        dispenses[dispense.prescriptionId].append(dispense);
    }
    return dispenses;
}

QList<Dispense> PrescriptionStore::dispensesOf(const QString& prescriptionId) const
{
    QList<Dispense> dispenses;
    QSqlQuery rows =
        run(dispenseColumns + u"WHERE d.prescription = ? ORDER BY d.handed_over, d.number"_s, {prescriptionId});
    while (rows.next()) {
        dispenses.append(dispenseIn(rows));
    }
    return dispenses;
}

std::optional<Dispense> PrescriptionStore::dispense(const QString& id) const
{
    QSqlQuery row = run(dispenseColumns + u"WHERE d.id = ?"_s, {id});
    if (!row.next()) {
        return std::nullopt;
    }
    return dispenseIn(row);
}

QList<Dispense> PrescriptionStore::dispenses() const
{
    QList<Dispense> dispenses;
    QSqlQuery rows = run(dispenseColumns + u"ORDER BY d.number"_s);
    while (rows.next()) {
        dispenses.append(dispenseIn(rows));
    }
    return dispenses;
}

void PrescriptionStore::setStatus(const QString& prescriptionId, const QString& status)
{
    run(u"UPDATE prescription SET status = ? WHERE id = ?"_s, {status, prescriptionId});
}

void PrescriptionStore::book(const Dispense& dispense, const QString& prescriptionStatus)
{
    inTransaction([&] {
        insert(dispense);
        setStatus(dispense.prescriptionId, prescriptionStatus);
    });
}

void PrescriptionStore::cancel(const QString& dispenseId, const QString& prescriptionStatus)
{
    inTransaction([&] {
        run(u"UPDATE dispense SET cancelled = 1 WHERE id = ?"_s, {dispenseId});
        run(u"UPDATE prescription SET status = ?"
            " WHERE id = (SELECT prescription FROM dispense WHERE id = ?)"_s,
            {prescriptionStatus, dispenseId});
    });
}
} // namespace emulator
