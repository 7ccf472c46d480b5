// SPDX-License-Identifier: MIT
#pragma once

#include "client.h"
#include "dispense.h"
#include "patient.h"
#include "payer.h"
#include "practitioner.h"
#include "prescription.h"
#include "rules.h"

#include <QList>

namespace emulator
{
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
