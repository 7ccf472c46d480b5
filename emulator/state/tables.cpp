// SPDX-License-Identifier: MIT
#include "tables.h"

using namespace Qt::StringLiterals;

namespace emulator::tables
{
namespace
{
QVariant storedPayer(const Prescription& prescription)
{
    return prescription.payerId.isEmpty() ? QVariant() : QVariant(prescription.payerId); // NULL refers to nothing
}

void restorePayer(Prescription& prescription, const QVariant& value)
{
    prescription.payerId = value.toString();
}

/// A text of the Location in a dispense's resource; empty when there is none.
QString inLocation(const QString& path)
{
    return u"ifnull((SELECT json_extract(resource, fullkey || '"_s + path +
           u"') FROM json_each(nullif(resource, ''), '$.contained')"
           " WHERE json_extract(resource, fullkey || '.resourceType') = 'Location'), '')"_s;
}
} // namespace

const Table<Client>& clients()
{
    using C = Column<Client>;
    static const Table<Client> table{u"client"_s,
                                     {
                                         C::of<&Client::id>(u"id"_s, u"TEXT PRIMARY KEY"_s),
                                         C::of<&Client::secret>(u"secret"_s, u"TEXT NOT NULL"_s),
                                         C::of<&Client::scopes>(u"scopes"_s, u"TEXT NOT NULL"_s),
                                         C::of<&Client::organization>(u"organization"_s, u"TEXT NOT NULL"_s),
                                     }};
    return table;
}

const Table<Payer>& payers()
{
    using C = Column<Payer>;
    static const Table<Payer> table{u"payer"_s,
                                    {
                                        C::of<&Payer::id>(u"id"_s, u"TEXT PRIMARY KEY"_s),
                                        C::of<&Payer::name>(u"name"_s, u"TEXT NOT NULL"_s),
                                    }};
    return table;
}

const Table<Practitioner>& practitioners()
{
    using C = Column<Practitioner>;
    using P = Practitioner;
    static const Table<P> table{u"practitioner"_s,
                                {
                                    C::of<&P::id>(u"id"_s, u"TEXT PRIMARY KEY"_s),
                                    C::of<&P::name, &PersonName::family>(u"family"_s, u"TEXT NOT NULL"_s),
                                    C::of<&P::name, &PersonName::given>(u"given"_s, u"TEXT NOT NULL"_s),
                                }};
    return table;
}

const Table<Patient>& patients()
{
    using C = Column<Patient>;
    using P = Patient;
    static const Table<P> table{u"patient"_s,
                                {
                                    C::of<&P::card>(u"card"_s, u"TEXT PRIMARY KEY"_s),
                                    C::of<&P::id>(u"id"_s, u"TEXT NOT NULL UNIQUE"_s),
                                    C::of<&P::name, &PersonName::family>(u"family"_s, u"TEXT NOT NULL"_s),
                                    C::of<&P::name, &PersonName::given>(u"given"_s, u"TEXT NOT NULL"_s),
                                    C::of<&P::birthDate>(u"birth_date"_s, u"TEXT NOT NULL"_s),
                                }};
    return table;
}

/// The patient's id is not here: it follows from the card.
const Table<Prescription>& prescriptions()
{
    using C = Column<Prescription>;
    using P = Prescription;
    static const QList<C> columns{
        C::of<&P::id>(u"id"_s, u"TEXT NOT NULL UNIQUE"_s),
        C::of<&P::card>(u"card"_s, u"TEXT NOT NULL REFERENCES patient"_s),
        C::of<&P::serialNumber>(u"serial_number"_s, u"TEXT NOT NULL"_s),
        C::of<&P::status>(u"status"_s, u"TEXT NOT NULL"_s),
        C::of<&P::inn>(u"inn"_s, u"TEXT NOT NULL"_s),
        C::of<&P::innCode>(u"inn_code"_s, u"TEXT NOT NULL"_s),
        C::of<&P::tradeName>(u"trade_name"_s, u"TEXT NOT NULL"_s),
        C::of<&P::tradeNameCode>(u"trade_name_code"_s, u"TEXT NOT NULL"_s),
        C::of<&P::dosageCode>(u"dosage_code"_s, u"TEXT NOT NULL"_s),
        C::of<&P::prescribedByInn>(u"prescribed_by_inn"_s, u"INTEGER NOT NULL"_s),
        C::of<&P::quantity>(u"quantity"_s, u"REAL NOT NULL"_s),
        C::of<&P::written>(u"written"_s, u"TEXT NOT NULL"_s),
        C::of<&P::validUntil>(u"valid_until"_s, u"TEXT NOT NULL"_s),
        C::of<&P::instructions>(u"instructions"_s, u"TEXT NOT NULL"_s),
        C::of<&P::patientShare>(u"patient_share"_s, u"REAL"_s),
        {u"payer"_s, u"TEXT REFERENCES payer"_s, storedPayer, restorePayer},
        C::of<&P::practitionerId>(u"practitioner"_s, u"TEXT NOT NULL REFERENCES practitioner"_s),
        C::of<&P::isSigned>(u"signed"_s, u"INTEGER NOT NULL"_s),
    };
    static const Table<P> table{u"prescription"_s, columns, true};
    return table;
}

const Table<Dispense>& dispenses()
{
    using C = Column<Dispense>;
    using D = Dispense;
    static const QList<C> columns{
        C::of<&D::id>(u"id"_s, u"TEXT NOT NULL UNIQUE"_s),
        C::of<&D::prescriptionId>(u"prescription"_s, u"TEXT NOT NULL REFERENCES prescription (id)"_s),
        C::of<&D::pharmacy>(u"pharmacy"_s, u"TEXT NOT NULL"_s),
        C::of<&D::quantity>(u"quantity"_s, u"REAL NOT NULL"_s),
        C::of<&D::handedOver>(u"handed_over"_s, u"TEXT NOT NULL"_s),
        C::of<&D::isFinal>(u"final"_s, u"INTEGER NOT NULL"_s),
        C::of<&D::isCancelled>(u"cancelled"_s, u"INTEGER NOT NULL"_s),
        C::of<&D::resource>(u"resource"_s, u"TEXT NOT NULL"_s),
        C::of<&D::claim>(u"claim"_s, u"TEXT NOT NULL"_s),
        C::of<&D::pharmacyName>(u"pharmacy_name"_s, u"TEXT NOT NULL DEFAULT ''"_s, 2, inLocation(u".name"_s)),
        C::of<&D::pharmacyAddress>(u"pharmacy_address"_s, u"TEXT NOT NULL DEFAULT ''"_s, 2,
                                   inLocation(u".address.text"_s)),
    };
    static const Table<D> table{u"dispense"_s, columns, true};
    return table;
}
} // namespace emulator::tables
