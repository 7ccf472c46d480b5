// SPDX-License-Identifier: MIT
#include "seedreader.h"

#include "prescriptionstatus.h"
#include "rulefields.h"

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QDate isoDate(const JsonNode& node, const QString& key)
{
    const QString text = node.text(key);
    const QDate date = QDate::fromString(text, u"yyyy-MM-dd"_s);
    if (!date.isValid()) {
        node.fail(key, u"a date in the form yyyy-MM-dd is expected"_s);
    }
    return date;
}

/// A day that can also be written as yyyy-MM-dd.
QDate daysAfter(const QDate& start, int days, const JsonNode& node, const QString& key)
{
    const QDate date = start.addDays(days);
    if (date.year() < 1 || date.year() > 9999) {
        node.fail(key, u"a number of days that stays between the years 1 and 9999 is expected"_s);
    }
    return date;
}

double positive(const JsonNode& node, const QString& key)
{
    const auto value = node.number(key);
    if (!value || *value <= 0) {
        node.fail(key, u"a number above 0 is expected"_s);
    }
    return *value;
}

/// A rule of each type that there is.
/// @{
int rule(const JsonNode& node, const QString& name, int whenAbsent)
{
    return node.count(name).value_or(whenAbsent);
}

bool rule(const JsonNode& node, const QString& name, bool whenAbsent)
{
    return node.flag(name, whenAbsent);
}

QString rule(const JsonNode& node, const QString& name, const QString& whenAbsent)
{
    return node.text(name, whenAbsent);
}
/// @}
} // namespace

SeedReader::SeedReader(const QDate& today)
    : m_today(today)
{
}

Seed SeedReader::read(const JsonNode& root)
{
    root.allowOnly({u"rules"_s, u"clients"_s, u"payers"_s, u"practitioners"_s, u"patients"_s});

    *this = SeedReader(m_today);
    m_seed.rules = rules(root.object(u"rules"_s), {});
    for (const JsonNode& node : root.list(u"clients"_s)) {
        readClient(node);
    }
    for (const JsonNode& node : root.list(u"payers"_s)) {
        readPayer(node);
    }
    for (const JsonNode& node : root.list(u"practitioners"_s)) {
        readPractitioner(node);
    }
    for (const JsonNode& node : root.list(u"patients"_s)) {
        readPatient(node);
    }
    return m_seed;
}

Rules SeedReader::rules(const JsonNode& node, Rules rules)
{
    QStringList names;
    for (const RuleField& field : ruleFields()) {
        names.append(field.name);
        std::visit([&](auto member) { rules.*member = rule(node, field.name, rules.*member); }, field.member);
    }
    node.allowOnly(names);
    return rules;
}

void SeedReader::readClient(const JsonNode& node)
{
    node.allowOnly({u"id"_s, u"secret"_s, u"scopes"_s, u"organizationIdentifier"_s});
    m_seed.clients.append({uniqueId(node, u"id"_s, m_clients), node.text(u"secret"_s), node.texts(u"scopes"_s),
                           node.text(u"organizationIdentifier"_s)});
}

void SeedReader::readPayer(const JsonNode& node)
{
    node.allowOnly({u"id"_s, u"name"_s});
    m_seed.payers.append({uniqueId(node, u"id"_s, m_payers), node.text(u"name"_s)});
}

void SeedReader::readPractitioner(const JsonNode& node)
{
    node.allowOnly({u"id"_s, u"family"_s, u"given"_s});
    m_seed.practitioners.append({uniqueId(node, u"id"_s, m_practitioners), personName(node)});
}

void SeedReader::readPatient(const JsonNode& node)
{
    node.allowOnly({u"id"_s, u"card"_s, u"family"_s, u"given"_s, u"birthDate"_s, u"prescriptions"_s});
    Patient patient;
    patient.id = uniqueId(node, u"id"_s, m_patients);
    patient.card = uniqueId(node, u"card"_s, m_cards);
    patient.name = personName(node);
    patient.birthDate = isoDate(node, u"birthDate"_s);
    m_seed.patients.append(patient);
    for (const JsonNode& prescription : node.list(u"prescriptions"_s)) {
        readPrescription(prescription, patient);
    }
}

void SeedReader::readPrescription(const JsonNode& node, const Patient& patient)
{
    node.allowOnly({u"id"_s,
                    u"serialNumber"_s,
                    u"status"_s,
                    u"inn"_s,
                    u"innCode"_s,
                    u"tradeName"_s,
                    u"tradeNameCode"_s,
                    u"dosageCode"_s,
                    u"prescribedByInn"_s,
                    u"quantity"_s,
                    u"written"_s,
                    u"writtenDaysAgo"_s,
                    u"validUntil"_s,
                    u"validDays"_s,
                    u"instructions"_s,
                    u"patientShare"_s,
                    u"payer"_s,
                    u"practitioner"_s,
                    u"signed"_s,
                    u"dispenses"_s});
    Prescription prescription;
    prescription.id = uniqueId(node, u"id"_s, m_prescriptions);
    prescription.card = patient.card;
    prescription.patientId = patient.id;
    prescription.serialNumber = node.text(u"serialNumber"_s, QString());
    prescription.status = node.text(u"status"_s, prescriptionstatus::active);
    if (!prescriptionstatus::all.contains(prescription.status)) {
        node.fail(u"status"_s, u"one of these is expected: "_s + prescriptionstatus::all.join(u", "_s));
    }
    prescription.inn = node.text(u"inn"_s);
    prescription.innCode = node.text(u"innCode"_s, QString());
    prescription.tradeName = node.text(u"tradeName"_s, QString());
    prescription.tradeNameCode = node.text(u"tradeNameCode"_s, QString());
    prescription.dosageCode = node.text(u"dosageCode"_s, QString());
    prescription.prescribedByInn = node.flag(u"prescribedByInn"_s, prescription.tradeName.isEmpty());
    if (!prescription.prescribedByInn && prescription.tradeName.isEmpty()) {
        node.fail(u"tradeName"_s, u"needed when \"prescribedByInn\" is false"_s);
    }
    prescription.quantity = positive(node, u"quantity"_s);
    prescription.written = day(node, u"written"_s, u"writtenDaysAgo"_s);
    if (node.has(u"validUntil"_s) == node.has(u"validDays"_s)) {
        node.fail(u"validUntil"_s, u"either this or \"validDays\" is expected"_s);
    }
    const auto validDays = node.count(u"validDays"_s);
    prescription.validUntil =
        validDays ? daysAfter(prescription.written, *validDays, node, u"validDays"_s) : isoDate(node, u"validUntil"_s);
    prescription.instructions = node.texts(u"instructions"_s);
    prescription.patientShare = node.number(u"patientShare"_s);
    if (prescription.patientShare && (*prescription.patientShare < 0 || *prescription.patientShare > 1)) {
        node.fail(u"patientShare"_s, u"a fraction from 0 to 1 is expected"_s);
    }
    prescription.payerId = knownId(node, u"payer"_s, node.text(u"payer"_s, QString()), m_payers);
    prescription.practitionerId = knownId(node, u"practitioner"_s, node.text(u"practitioner"_s), m_practitioners);
    prescription.isSigned = node.flag(u"signed"_s, true);
    m_seed.prescriptions.append(prescription);
    for (const JsonNode& dispense : node.list(u"dispenses"_s)) {
        readDispense(dispense, prescription);
    }
}

void SeedReader::readDispense(const JsonNode& node, const Prescription& prescription)
{
    node.allowOnly({u"id"_s, u"quantity"_s, u"handedOver"_s, u"handedOverDaysAgo"_s, u"pharmacy"_s, u"pharmacyName"_s,
                    u"pharmacyAddress"_s, u"final"_s});
    Dispense dispense = dispenseIn(node);
    dispense.id = uniqueId(node, u"id"_s, m_dispenses);
    dispense.prescriptionId = prescription.id;
    dispense.handedOver = day(node, u"handedOver"_s, u"handedOverDaysAgo"_s);
    m_seed.dispenses.append(dispense);
}

Dispense SeedReader::readDispenseElsewhere(const JsonNode& node) const
{
    node.allowOnly({u"prescription"_s, u"quantity"_s, u"handedOver"_s, u"handedOverDaysAgo"_s, u"pharmacy"_s,
                    u"pharmacyName"_s, u"pharmacyAddress"_s, u"final"_s});
    Dispense dispense = dispenseIn(node);
    dispense.prescriptionId = node.text(u"prescription"_s);
    if (node.has(u"handedOver"_s) || node.has(u"handedOverDaysAgo"_s)) {
        dispense.handedOver = day(node, u"handedOver"_s, u"handedOverDaysAgo"_s);
    }
    return dispense;
}

/// Doses and pharmacy, without id, prescription and day.
Dispense SeedReader::dispenseIn(const JsonNode& node)
{
    Dispense dispense;
    dispense.pharmacy = node.text(u"pharmacy"_s, QString());
    dispense.pharmacyName = node.text(u"pharmacyName"_s, QString());
    dispense.pharmacyAddress = node.text(u"pharmacyAddress"_s, QString());
    dispense.quantity = positive(node, u"quantity"_s);
    dispense.isFinal = node.flag(u"final"_s, false);
    return dispense;
}

QDate SeedReader::day(const JsonNode& node, const QString& key, const QString& daysAgoKey) const
{
    if (node.has(key) == node.has(daysAgoKey)) {
        node.fail(key, u"either this or \""_s + daysAgoKey + u"\" is expected"_s);
    }
    const auto daysAgo = node.count(daysAgoKey);
    return daysAgo ? daysAfter(m_today, -*daysAgo, node, daysAgoKey) : isoDate(node, key);
}

QString SeedReader::uniqueId(const JsonNode& node, const QString& key, QSet<QString>& known)
{
    QString id = node.text(key);
    if (known.contains(id)) {
        node.fail(key, u"\""_s + id + u"\" stands twice"_s);
    }
    known.insert(id);
    return id;
}

QString SeedReader::knownId(const JsonNode& node, const QString& key, const QString& id, const QSet<QString>& known)
{
    if (!id.isEmpty() && !known.contains(id)) {
        node.fail(key, u"\""_s + id + u"\" is not in the seed"_s);
    }
    return id;
}

PersonName SeedReader::personName(const JsonNode& node)
{
    return {node.text(u"family"_s), node.texts(u"given"_s)};
}
} // namespace emulator
