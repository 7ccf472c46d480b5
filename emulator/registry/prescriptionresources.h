// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QJsonObject>

/// Records as resources of HL7 FHIR DSTU 1, with the registry's own extensions; see docs/registry-protocol.md.
namespace emulator
{
QJsonObject patientResource(const Patient& patient);
QJsonObject practitionerResource(const Practitioner& practitioner);
QJsonObject payerResource(const Payer& payer);

/// @param dosageSystem coding system of the medicines' dosages
QJsonObject prescriptionResource(const Prescription& prescription, const QString& dosageSystem);
/// The evidence that the prescription is signed.
QJsonObject signatureResource(const Prescription& prescription);
/// An earlier dispense of the prescription, with its pharmacy as a contained Location.
QJsonObject dispenseResource(const Dispense& dispense, const Prescription& prescription);
} // namespace emulator
