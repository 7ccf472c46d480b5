// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The URIs that the registry's resources carry; see docs/registry-protocol.md. Their hosts are chosen when the
/// emulator is built, together with the plug-in's.
namespace emulator::uri
{
inline const QString factorExtension =
    QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-factor");
inline const QString finalDispenseExtension =
    QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/StructureDefinition/by-finalDispense");
inline const QString cardNumbers = QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/sid/card");
inline const QString serialNumbers = QStringLiteral("http://" REGISTRY_STRUCTURE_HOST "/fhir/sid/prescription-serial");
inline const QString nonProprietaryNames = QStringLiteral("http://" DOSAGE_DICTIONARY_HOST "/Справочник.МНН");
inline const QString tradeNames = QStringLiteral("http://" DOSAGE_DICTIONARY_HOST "/Справочник.ТорговоеНаименование");
inline const QString currency = QStringLiteral("urn:std:iso:4217");
} // namespace emulator::uri
