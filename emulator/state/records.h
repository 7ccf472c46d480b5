// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// All records of the registry: what it is set up with, what it holds on prescriptions, what a pharmacy sends.
namespace emulator
{
/// What may differ between one registry and another.
struct Rules {
    int tokenLifetime = 3600;  ///< seconds
    QString oaisToken;         ///< the second bearer token that every request must carry; empty: none is required
    QString prescriptionScope; ///< scope that a look-up by card needs; empty: any token is enough
    QString dispenseScope;     ///< scope that registering and cancelling a dispense needs; empty: any token is enough
    /// Coding system of the medicines' dosages. Its codes are the numeric ones of a pharmacy's dictionary.
    QString dosageSystem = QString::fromUtf8("http://" DOSAGE_DICTIONARY_HOST "/Справочник.Дозировка");

    // What a look-up by card shows of earlier dispenses
    bool showDispenseIds = true;
    bool showPharmacies = true;          ///< where they were dispensed
    bool showCancelledDispenses = false; ///< as "entered-in-error"; otherwise they are left out
};

// Who asks

/// A pharmacy's access to the registry.
struct Client {
    QString id;
    QString secret;
    QStringList scopes;   ///< what it may ask for
    QString organization; ///< the organization identifier that it has to give
};

/// What a bearer token grants.
struct Access {
    QString client;
    QString organization; ///< organization identifier of the pharmacy
    QStringList scopes;
    QDateTime expiry; ///< the first moment at which the token is no longer valid
};

// What the registry holds

/// A person's name: the family name, and the given names with the patronymic last.
struct PersonName {
    QString family;
    QStringList given;
};

/// The holder of a card.
struct Patient {
    QString id;
    QString card;
    PersonName name;
    QDate birthDate;
};

/// The author of prescriptions.
struct Practitioner {
    QString id;
    PersonName name;
};

/// An organization that pays patients' benefits.
struct Payer {
    QString id;
    QString name;
};

/// A prescription as the registry holds it.
struct Prescription {
    QString id;
    QString card; ///< of the patient
    QString patientId;
    QString serialNumber; ///< of the prescription form
    QString status;       ///< see prescriptionstatus.h
    QString inn;          ///< non-proprietary name
    QString innCode;
    QString tradeName; ///< empty: prescribed by its non-proprietary name alone
    QString tradeNameCode;
    QString dosageCode; ///< numeric, of the dosage dictionary; may be empty
    bool prescribedByInn = false;
    double quantity = 0; ///< doses
    QDate written;
    QDate validUntil; ///< the last day on which it may be dispensed
    QStringList instructions;
    std::optional<double> patientShare; ///< of the price, as a fraction; nothing: the patient pays all
    QString payerId;                    ///< the organization that pays the rest; empty: none
    QString practitionerId;
    bool isSigned = true;
};

/// What a pharmacy handed out on a prescription.
struct Dispense {
    QString id;
    QString prescriptionId;
    QString pharmacy;        ///< organization identifier of the client that registered it; may be empty in a seed
    QString pharmacyName;    ///< of the Location in its document; may be empty in a seed
    QString pharmacyAddress; ///< of the same Location, in one line; may be empty in a seed
    double quantity = 0;     ///< doses
    QDate handedOver;
    bool isFinal = false; ///< nothing more is to be dispensed on the prescription
    bool isCancelled = false;
    QByteArray resource; ///< the MedicationDispense as it was registered (JSON); empty for a seeded one
    QByteArray claim;    ///< the Claim that came with it (JSON); empty without one
};

// What a pharmacy sends

/// What a pharmacy asks a payer for, as a dispense document states it.
struct Claim {
    QString prescriptionId;
    QString patientReference; ///< "Patient/…"
    QString payerId;
    double unitPrice = 0; ///< the full price of what was dispensed, in BYN
    double factor = 0;    ///< the payer's share of it, as a fraction
    double net = 0;       ///< what the payer is to pay, in BYN
    QString unitPriceCurrency;
    QString netCurrency;
};

// What the registry begins with

/// All that a registry begins with.
struct Seed {
    Rules rules;
    QList<Client> clients;
    QList<Payer> payers;
    QList<Practitioner> practitioners;
    QList<Patient> patients;
    QList<Prescription> prescriptions;
    QList<Dispense> dispenses;
};
} // namespace emulator
