// SPDX-License-Identifier: MIT
#include "seedreader.h"

#include "prescriptionstatus.h"

namespace emulator
{
namespace
{
QDate isoDate(const JsonNode& node, const QString& key)
{
    const QString text = node.text(key);
    const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid())
        node.fail(key, QStringLiteral("a date in the form yyyy-MM-dd is expected"));
    return date;
}

/// A day that can be written as yyyy-MM-dd, too.
QDate daysAfter(const QDate& start, int days, const JsonNode& node, const QString& key)
{
    const QDate date = start.addDays(days);
    if (date.year() < 1 || date.year() > 9999)
        node.fail(key, QStringLiteral("a number of days that stays between the years 1 and 9999 is expected"));
    return date;
}

double positive(const JsonNode& node, const QString& key)
{
    const auto value = node.number(key);
    if (!value || *value <= 0)
        node.fail(key, QStringLiteral("a number above 0 is expected"));
    return *value;
}
} // namespace

SeedReader::SeedReader(const QDate& today)
    : m_today(today)
{
}

Seed SeedReader::read(const QByteArray& json)
{
    const JsonNode root = JsonNode::parse(json);
    root.allowOnly({QStringLiteral("rules"), QStringLiteral("clients"), QStringLiteral("payers"),
                    QStringLiteral("practitioners"), QStringLiteral("patients")});

    *this = SeedReader(m_today);
    m_seed.rules = rules(root.object(QStringLiteral("rules")), {});
    for (const JsonNode& node : root.list(QStringLiteral("clients")))
        readClient(node);
    for (const JsonNode& node : root.list(QStringLiteral("payers")))
        readPayer(node);
    for (const JsonNode& node : root.list(QStringLiteral("practitioners")))
        readPractitioner(node);
    for (const JsonNode& node : root.list(QStringLiteral("patients")))
        readPatient(node);
    return m_seed;
}

Rules SeedReader::rules(const JsonNode& node, Rules rules)
{
    node.allowOnly({QStringLiteral("tokenLifetime"), QStringLiteral("oaisToken"), QStringLiteral("prescriptionScope"),
                    QStringLiteral("dispenseScope"), QStringLiteral("dosageSystem")});
    rules.tokenLifetime = node.count(QStringLiteral("tokenLifetime")).value_or(rules.tokenLifetime);
    rules.oaisToken = node.text(QStringLiteral("oaisToken"), rules.oaisToken);
    rules.prescriptionScope = node.text(QStringLiteral("prescriptionScope"), rules.prescriptionScope);
    rules.dispenseScope = node.text(QStringLiteral("dispenseScope"), rules.dispenseScope);
    rules.dosageSystem = node.text(QStringLiteral("dosageSystem"), rules.dosageSystem);
    return rules;
}

void SeedReader::readClient(const JsonNode& node)
{
    node.allowOnly({QStringLiteral("id"), QStringLiteral("secret"), QStringLiteral("scopes"),
                    QStringLiteral("organizationIdentifier")});
    m_seed.clients.append({uniqueId(node, QStringLiteral("id"), m_clients), node.text(QStringLiteral("secret")),
                           node.texts(QStringLiteral("scopes")), node.text(QStringLiteral("organizationIdentifier"))});
}

void SeedReader::readPayer(const JsonNode& node)
{
    node.allowOnly({QStringLiteral("id"), QStringLiteral("name")});
    m_seed.payers.append({uniqueId(node, QStringLiteral("id"), m_payers), node.text(QStringLiteral("name"))});
}

void SeedReader::readPractitioner(const JsonNode& node)
{
    node.allowOnly({QStringLiteral("id"), QStringLiteral("family"), QStringLiteral("given")});
    m_seed.practitioners.append({uniqueId(node, QStringLiteral("id"), m_practitioners), personName(node)});
}

void SeedReader::readPatient(const JsonNode& node)
{
    node.allowOnly({QStringLiteral("id"), QStringLiteral("card"), QStringLiteral("family"), QStringLiteral("given"),
                    QStringLiteral("birthDate"), QStringLiteral("prescriptions")});
    Patient patient;
    patient.id = uniqueId(node, QStringLiteral("id"), m_patients);
    patient.card = uniqueId(node, QStringLiteral("card"), m_cards);
    patient.name = personName(node);
    patient.birthDate = isoDate(node, QStringLiteral("birthDate"));
    m_seed.patients.append(patient);
    for (const JsonNode& prescription : node.list(QStringLiteral("prescriptions")))
        readPrescription(prescription, patient);
}

void SeedReader::readPrescription(const JsonNode& node, const Patient& patient)
{
    node.allowOnly({QStringLiteral("id"),
                    QStringLiteral("serialNumber"),
                    QStringLiteral("status"),
                    QStringLiteral("inn"),
                    QStringLiteral("innCode"),
                    QStringLiteral("tradeName"),
                    QStringLiteral("tradeNameCode"),
                    QStringLiteral("dosageCode"),
                    QStringLiteral("prescribedByInn"),
                    QStringLiteral("quantity"),
                    QStringLiteral("written"),
                    QStringLiteral("writtenDaysAgo"),
                    QStringLiteral("validUntil"),
                    QStringLiteral("validDays"),
                    QStringLiteral("instructions"),
                    QStringLiteral("patientShare"),
                    QStringLiteral("payer"),
                    QStringLiteral("practitioner"),
                    QStringLiteral("signed"),
                    QStringLiteral("dispenses")});
    Prescription prescription;
    prescription.id = uniqueId(node, QStringLiteral("id"), m_prescriptions);
    prescription.card = patient.card;
    prescription.patientId = patient.id;
    prescription.serialNumber = node.text(QStringLiteral("serialNumber"), QString());
    prescription.status = node.text(QStringLiteral("status"), prescriptionstatus::active);
    if (!prescriptionstatus::all.contains(prescription.status)) {
        node.fail(QStringLiteral("status"),
                  QStringLiteral("one of these is expected: ") + prescriptionstatus::all.join(QStringLiteral(", ")));
    }
    prescription.inn = node.text(QStringLiteral("inn"));
    prescription.innCode = node.text(QStringLiteral("innCode"), QString());
    prescription.tradeName = node.text(QStringLiteral("tradeName"), QString());
    prescription.tradeNameCode = node.text(QStringLiteral("tradeNameCode"), QString());
    prescription.dosageCode = node.text(QStringLiteral("dosageCode"), QString());
    prescription.prescribedByInn = node.flag(QStringLiteral("prescribedByInn"), prescription.tradeName.isEmpty());
    if (!prescription.prescribedByInn && prescription.tradeName.isEmpty())
        node.fail(QStringLiteral("tradeName"), QStringLiteral("needed when \"prescribedByInn\" is false"));
    prescription.quantity = positive(node, QStringLiteral("quantity"));
    prescription.written = day(node, QStringLiteral("written"), QStringLiteral("writtenDaysAgo"));
    if (node.has(QStringLiteral("validUntil")) == node.has(QStringLiteral("validDays")))
        node.fail(QStringLiteral("validUntil"), QStringLiteral("either this or \"validDays\" is expected"));
    const auto validDays = node.count(QStringLiteral("validDays"));
    prescription.validUntil = validDays ? daysAfter(prescription.written, *validDays, node, QStringLiteral("validDays"))
                                        : isoDate(node, QStringLiteral("validUntil"));
    prescription.instructions = node.texts(QStringLiteral("instructions"));
    prescription.patientShare = node.number(QStringLiteral("patientShare"));
    if (prescription.patientShare && (*prescription.patientShare < 0 || *prescription.patientShare > 1))
        node.fail(QStringLiteral("patientShare"), QStringLiteral("a fraction from 0 to 1 is expected"));
    prescription.payerId =
        knownId(node, QStringLiteral("payer"), node.text(QStringLiteral("payer"), QString()), m_payers);
    prescription.practitionerId =
        knownId(node, QStringLiteral("practitioner"), node.text(QStringLiteral("practitioner")), m_practitioners);
    prescription.isSigned = node.flag(QStringLiteral("signed"), true);
    m_seed.prescriptions.append(prescription);
    for (const JsonNode& dispense : node.list(QStringLiteral("dispenses")))
        readDispense(dispense, prescription);
}

void SeedReader::readDispense(const JsonNode& node, const Prescription& prescription)
{
    node.allowOnly({QStringLiteral("id"), QStringLiteral("quantity"), QStringLiteral("handedOver"),
                    QStringLiteral("handedOverDaysAgo"), QStringLiteral("pharmacy"), QStringLiteral("final")});
    Dispense dispense;
    dispense.id = uniqueId(node, QStringLiteral("id"), m_dispenses);
    dispense.prescriptionId = prescription.id;
    dispense.pharmacy = node.text(QStringLiteral("pharmacy"), QString());
    dispense.quantity = positive(node, QStringLiteral("quantity"));
    dispense.handedOver = day(node, QStringLiteral("handedOver"), QStringLiteral("handedOverDaysAgo"));
    dispense.isFinal = node.flag(QStringLiteral("final"), false);
    m_seed.dispenses.append(dispense);
}

QDate SeedReader::day(const JsonNode& node, const QString& key, const QString& daysAgoKey) const
{
    if (node.has(key) == node.has(daysAgoKey))
        node.fail(key, QStringLiteral("either this or \"") + daysAgoKey + QStringLiteral("\" is expected"));
    const auto daysAgo = node.count(daysAgoKey);
    return daysAgo ? daysAfter(m_today, -*daysAgo, node, daysAgoKey) : isoDate(node, key);
}

QString SeedReader::uniqueId(const JsonNode& node, const QString& key, QSet<QString>& known)
{
    QString id = node.text(key);
    if (known.contains(id))
        node.fail(key, QStringLiteral("\"") + id + QStringLiteral("\" stands twice"));
    known.insert(id);
    return id;
}

QString SeedReader::knownId(const JsonNode& node, const QString& key, const QString& id, const QSet<QString>& known)
{
    if (!id.isEmpty() && !known.contains(id))
        node.fail(key, QStringLiteral("\"") + id + QStringLiteral("\" is not in the seed"));
    return id;
}

PersonName SeedReader::personName(const JsonNode& node)
{
    return {node.text(QStringLiteral("family")), node.texts(QStringLiteral("given"))};
}
} // namespace emulator
